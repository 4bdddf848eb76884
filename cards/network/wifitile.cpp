#include "cards/network/wifitile.h"

#include "cards/network/statustext.h"

#include <QtCore/QUrl>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr double cornerRadius = 8.0;
constexpr double paleOpacity = 0.5;
constexpr QRgb borderColor = 0xFFE2E3E5;
constexpr QRgb pressedColor = 0xFFF2F3F5;
constexpr QRgb hintColor = 0xFF656F7D;

QQuickImage *addIcon(QQuickItem *parent, const char *icon, qreal side)
{
    auto *image = new QQuickImage(parent);
    image->setSourceSize({40, 40});
    image->setSource(QUrl(QLatin1String("qrc:/setting/icons/") + QLatin1String(icon)));
    image->setSize(QSizeF(side, side));
    QQuickItemPrivate::get(image)->anchors()->setVerticalCenter(
        QQuickItemPrivate::get(parent)->verticalCenter());
    return image;
}

QQuickText *addText(QQuickItem *parent, int pixelSize, QRgb color)
{
    auto *text = new QQuickText(parent);
    QFont font = text->font();
    font.setPixelSize(qMax(1, pixelSize));
    text->setFont(font);
    text->setColor(QColor::fromRgba(color));
    return text;
}

} // namespace

WifiTile::WifiTile(qreal height, int fontPixelSize, QQuickItem *parent) : BeepButton(parent)
{
    setHeight(height);
    auto *frame = new QQuickRectangle(this);
    frame->setRadius(cornerRadius);
    frame->border()->setWidth(1.0);
    frame->border()->setColor(QColor::fromRgba(borderColor));
    setBackground(frame);
    connect(this, &QQuickAbstractButton::pressedChanged, frame, [this, frame] {
        frame->setColor(isPressed() ? QColor::fromRgba(pressedColor) : QColor(Qt::white));
    });

    const qreal iconSide = 0.512 * height;
    const qreal iconX = 0.381 * height;
    QQuickImage *icon = addIcon(this, "4@2x.png", iconSide);
    icon->setX(iconX);

    // Two lines, one above and one below the middle.
    const qreal textX = qRound(iconX + iconSide + fontPixelSize);
    m_status = addText(this, fontPixelSize, StatusText::normal);
    m_status->setX(textX);
    QQuickAnchors *anchors = QQuickItemPrivate::get(m_status)->anchors();
    anchors->setBottom(QQuickItemPrivate::get(this)->verticalCenter());
    anchors->setBottomMargin(2.0);
    QQuickText *hint = addText(this, qRound(0.8 * fontPixelSize), hintColor);
    hint->setX(textX);
    anchors = QQuickItemPrivate::get(hint)->anchors();
    anchors->setTop(QQuickItemPrivate::get(this)->verticalCenter());
    anchors->setTopMargin(2.0);
    setNetworkText(hint, "Wi-Fi Settings");

    m_marker = addIcon(this, "rightArrow0@2x.png", qRound(0.35 * height));
    anchors = QQuickItemPrivate::get(m_marker)->anchors();
    anchors->setRight(QQuickItemPrivate::get(this)->right());
    anchors->setRightMargin(fontPixelSize);
}

void WifiTile::setWifiEnabled(bool enabled)
{
    setEnabled(enabled);
    setOpacity(enabled ? 1.0 : paleOpacity);
    m_marker->setVisible(enabled);
}

} // namespace QSP
