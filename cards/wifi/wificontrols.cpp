#include "cards/wifi/wificontrols.h"

#include "cards/wifi/wifibuttons.h"
#include "controls/beepbutton.h"
#include "shell/base/documentalias.h"

namespace QSP {

namespace {

constexpr qreal disabledOpacity = 0.4;

} // namespace

WifiControls::WifiControls(QQuickItem *card, int rowHeight, int fontPixelSize)
    : QObject(card), m_busy(aliasOf<QQuickItem>(card, "scaning"))
{
    m_busyHome = m_busy ? m_busy->parentItem() : nullptr;
    for (const char *alias : {"scanButton", "bigScanButton"}) {
        auto *button = aliasOf<BeepButton>(card, alias);
        if (!button)
            continue;
        add(button, aliasOf<QQuickItem>(card, QByteArray(alias) + "Image"));
        connect(button, &QQuickAbstractButton::clicked, this, &WifiControls::scanClicked);
    }
    if (auto *row = aliasOf<QQuickItem>(card, "resetRow")) {
        BeepButton *button = addWifiResetButton(row, rowHeight, fontPixelSize);
        add(button, nullptr);
        connect(button, &QQuickAbstractButton::clicked, this, &WifiControls::resetClicked);
    }
}

void WifiControls::add(BeepButton *button, QQuickItem *image)
{
    const Button added{button, image};
    m_buttons << added;
    connect(button, &QQuickAbstractButton::pressedChanged, this, [added] { fade(added); });
}

void WifiControls::fade(const Button &button)
{
    if (!button.button)
        return;
    const qreal opacity = button.button->isEnabled() ? button.button->pressFade() : disabledOpacity;
    button.button->setOpacity(opacity);
    if (button.image)
        button.image->setOpacity(opacity);
}

void WifiControls::show(bool scanning, QQuickItem *place)
{
    for (const Button &button : qAsConst(m_buttons)) {
        if (button.button)
            button.button->setEnabled(!scanning);
        fade(button);
    }
    if (!m_busy)
        return;
    m_busy->setParentItem(place ? place : m_busyHome.data());
    m_busy->setX(place ? -m_busy->width() / 2.0 : 0.0);
    m_busy->setVisible(scanning || place);
}

bool WifiControls::isBusyInPlace() const
{
    return m_busy && m_busy->isVisible() && m_busy->parentItem() != m_busyHome;
}

} // namespace QSP
