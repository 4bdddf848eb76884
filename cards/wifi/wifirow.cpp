#include "cards/wifi/wifirow.h"

#include "cards/wifi/wifiicon.h"
#include "controls/beepbutton.h"
#include "panel/ssid.h"
#include "shell/base/palette.h"

#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

#include <cmath>
#include <utility>

namespace QSP {

WifiRow::WifiRow(Look look, QQuickItem *list) : QQuickItem(list), m_look(std::move(look)) {}

void WifiRow::setFirst(bool first)
{
    m_isFirst = first;
    if (m_line)
        m_line->setVisible(!first);
}

void WifiRow::setNear(bool near)
{
    if (near == (m_button != nullptr))
        return;
    if (near) {
        make();
    } else if (!m_button->isPressed()) {
        // The contents are the button's children.
        delete std::exchange(m_button, nullptr);
        m_label = nullptr;
        m_line = nullptr;
    }
}

void WifiRow::make()
{
    const int rowHeight = static_cast<int>(height());

    m_button = new BeepButton(this);
    auto *background = new QQuickRectangle(m_button);
    background->setColor(Palette::instance().markedSurface);
    background->setRadius(6.0);
    background->setVisible(false);
    m_button->setBackground(background);
    connect(m_button, &QQuickAbstractButton::pressedChanged, background,
            [this, background] { background->setVisible(m_button->isPressed()); });
    connect(m_button, &QQuickAbstractButton::clicked, this, &WifiRow::clicked);

    auto *line = new QQuickRectangle(m_button);
    line->setColor(Palette::instance().separator);
    line->setHeight(1.0);
    line->setVisible(!m_isFirst);
    m_line = line;

    addRowImage(m_button, wifiSignalIcon(m_look.signal), rowHeight, rowHeight / 2);

    auto *label = new QQuickText(m_button);
    m_label = label;
    label->setTextFormat(QQuickText::PlainText);
    label->setFont(textFont(m_look.fontPixelSize));
    label->setColor(Palette::instance().text);
    label->setHAlign(QQuickText::AlignLeft);
    label->setVAlign(QQuickText::AlignVCenter);
    label->setElideMode(QQuickText::ElideRight);
    label->setMaximumLineCount(1);
    label->setText(displayName(m_look.name));
    layout();
}

void WifiRow::layout()
{
    if (!m_button)
        return;
    m_button->setSize(size());
    const qreal x = height() * 16.0 / 13.0;
    // On whole pixels of the glass, between which the page lies: the shade of a dialog leaves out a part of one.
    const QPointF place = mapToScene(QPointF());
    const qreal lineX = std::round(place.x() + x);
    m_line->setPosition({lineX - place.x(), std::round(place.y()) - place.y()});
    m_line->setWidth(qMax(0.0, std::floor(place.x() + width()) - lineX));
    m_label->setX(x);
    m_label->setSize(QSizeF(qMax(0.0, width() - x - height() / 4.0), height()));
}

void WifiRow::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        layout();
}

} // namespace QSP
