#include "cards/wifi/wificurrentrow.h"

#include "cards/wifi/wifiicon.h"
#include "panel/ssid.h"
#include "shell/base/palette.h"

#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

WifiCurrentRow::WifiCurrentRow(QQuickItem *container, int rowHeight, QObject *parent)
    : QObject(parent)
    , m_container(container)
    , m_signal(addRowImage(container, wifiSignalIcon(0), rowHeight, rowHeight / 2))
    , m_name(new QQuickText(container))
{
    const int tickSide = rowHeight * 2 / 5;
    QQuickImage *tick =
        addRowImage(container, QStringLiteral("qrc:/setting/icons/newtickgreen.png"), rowHeight, tickSide);
    QQuickAnchors *anchors = QQuickItemPrivate::get(tick)->anchors();
    anchors->setRight(QQuickItemPrivate::get(container)->right());

    m_name->setTextFormat(QQuickText::PlainText);
    m_name->setColor(Palette::instance().text);
    m_name->setHAlign(QQuickText::AlignLeft);
    m_name->setVAlign(QQuickText::AlignVCenter);
    m_name->setElideMode(QQuickText::ElideRight);
    m_name->setMaximumLineCount(1);
    m_name->setX(rowHeight * 16.0 / 13.0);
    m_name->setHeight(rowHeight);
    const int gap = rowHeight / 4;
    const auto fit = [this, tickSide, gap] {
        m_name->setWidth(qMax(0.0, m_container->width() - m_name->x() - tickSide - gap));
    };
    fit();
    connect(container, &QQuickItem::widthChanged, this, fit);
}

void WifiCurrentRow::show(const QString &name, int strength, int fontPixelSize)
{
    m_name->setFont(textFont(fontPixelSize));
    m_name->setText(displayName(name));
    if (strength >= 1)
        m_signal->setSource(wifiSignalIcon(strength));
    m_container->setVisible(true);
}

void WifiCurrentRow::hide()
{
    m_container->setVisible(false);
    m_name->setText(QString());
}

} // namespace QSP
