#include "cards/network/wifitile.h"

#include "cards/network/statustext.h"
#include "shell/barparts.h"
#include "shell/base/palette.h"

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

QQuickImage *addIcon(QQuickItem *parent, const char *icon)
{
    auto *image = new QQuickImage(parent);
    image->setSourceSize({40, 40});
    image->setSource(iconUrl(icon));
    QQuickItemPrivate::get(image)->anchors()->setVerticalCenter(
        QQuickItemPrivate::get(parent)->verticalCenter());
    return image;
}

QQuickText *addText(QQuickItem *parent, const QColor &color)
{
    auto *text = new QQuickText(parent);
    text->setColor(color);
    return text;
}

void placeText(QQuickText *text, qreal x, int pixelSize)
{
    text->setFont(textFont(pixelSize));
    text->setX(x);
}

} // namespace

WifiTile::WifiTile(QQuickItem *parent)
    : BeepButton(parent)
    , m_icon(addIcon(this, "4@2x.png"))
    , m_status(addText(this, Palette::instance().text))
    , m_hint(addText(this, Palette::instance().hint))
    , m_marker(addIcon(this, "rightArrow0@2x.png"))
{
    auto *frame = new QQuickRectangle(this);
    frame->setRadius(cornerRadius);
    frame->border()->setWidth(1.0);
    frame->border()->setColor(QColor::fromRgba(borderColor));
    setBackground(frame);
    connect(this, &QQuickAbstractButton::pressedChanged, frame, [this, frame] {
        frame->setColor(isPressed() ? Palette::instance().markedSurface : Palette::instance().surface);
    });

    // Two lines, one above and one below the middle.
    QQuickAnchors *anchors = QQuickItemPrivate::get(m_status)->anchors();
    anchors->setBottom(QQuickItemPrivate::get(this)->verticalCenter());
    anchors->setBottomMargin(2.0);
    anchors = QQuickItemPrivate::get(m_hint)->anchors();
    anchors->setTop(QQuickItemPrivate::get(this)->verticalCenter());
    anchors->setTopMargin(2.0);
    setNetworkText(m_hint, QT_TRANSLATE_NOOP("CardNetwork", "Wi-Fi Settings"));
    QQuickItemPrivate::get(m_marker)->anchors()->setRight(QQuickItemPrivate::get(this)->right());
}

void WifiTile::setSizes(qreal height, int fontPixelSize)
{
    setHeight(height);
    const qreal iconSide = 0.512 * height;
    m_icon->setSize(QSizeF(iconSide, iconSide));
    m_icon->setX(0.381 * height);
    const qreal textX = qRound(m_icon->x() + iconSide + fontPixelSize);
    placeText(m_status, textX, fontPixelSize);
    placeText(m_hint, textX, qRound(0.8 * fontPixelSize));
    const qreal markerSide = qRound(0.35 * height);
    m_marker->setSize(QSizeF(markerSide, markerSide));
    QQuickItemPrivate::get(m_marker)->anchors()->setRightMargin(fontPixelSize);
}

void WifiTile::setWifiEnabled(bool enabled)
{
    setEnabled(enabled && m_leadsOn);
    setOpacity(enabled ? 1.0 : paleOpacity);
    m_marker->setVisible(enabled && m_leadsOn);
}

void WifiTile::endHere()
{
    m_leadsOn = false;
    setEnabled(false);
    m_marker->setVisible(false);
    m_hint->setVisible(false);
    QQuickAnchors *anchors = QQuickItemPrivate::get(m_status)->anchors();
    anchors->resetBottom();
    anchors->setVerticalCenter(QQuickItemPrivate::get(this)->verticalCenter());
}

} // namespace QSP
