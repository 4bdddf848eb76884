#include "cards/network/wifimonitor.h"

#include "cards/network/addressrules.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/wifitile.h"
#include "panel/panel.h"
#include "shell/rootof.h"

namespace QSP {

namespace {

constexpr int interval = 2000;

} // namespace

WifiMonitor::WifiMonitor(CardNetwork *card) : m_card(card), m_timer(card, interval) {}

void WifiMonitor::setTile(WifiTile *tile)
{
    m_status.setItem(tile->statusText());
    m_status.show("Offline");
}

void WifiMonitor::watch()
{
    // Only the selected adapter is watched; selecting it later starts the refreshing.
    if (m_card->currentNIC() != HMI::SystemSet::WIFI)
        return;
    m_timer.ensure(this, [this] { update(); });
    m_timer.start();
}

void WifiMonitor::start()
{
    watch();
    update();
}

void WifiMonitor::setPaused(bool paused)
{
    if (paused)
        m_timer.pause();
    else if (m_timer.resume())
        update();
}

void WifiMonitor::update()
{
    if (!m_status.hasItem())
        return;
    // An attempt to join says nothing of an adapter that was switched off meanwhile.
    if (!systemSet().isNicEnabled(HMI::SystemSet::WIFI)) {
        m_status.show("Offline");
        m_card->rules().dropLease(HMI::SystemSet::WIFI);
        m_timer.stop();
        return;
    }
    // In the middle of an attempt, the tile would flip to "Offline" and back.
    if (m_connecting || panelOf(m_card).wifi().attempt().isUnderWay())
        return;
    watch();
    panelOf(m_card).wifi().read();
    show();
}

void WifiMonitor::show()
{
    if (!m_status.hasItem())
        return;
    const WifiLink &link = panelOf(m_card).wifi();
    const bool connected = link.isConnected();
    QString ssid;
    if (connected) {
        m_status.show("Online");
        ssid = link.name();
        m_card->updateNetInfoDisplay(m_card->currentNIC());
    } else {
        m_status.show("Offline");
        // The lease went with the link.
        m_card->rules().dropLease(HMI::SystemSet::WIFI);
    }
    emit m_card->wifiStatusChanged(connected, ssid);
}

void WifiMonitor::setConnecting(bool connecting)
{
    m_connecting = connecting;
    if (!connecting)
        update();
}

} // namespace QSP
