#include "cards/network/wifimonitor.h"

#include "cards/network/wifitile.h"
#include "panel/panel.h"

namespace QSP {

namespace {

constexpr int interval = 2000;
constexpr NIC nic = HMI::SystemSet::WIFI;

} // namespace

WifiMonitor::WifiMonitor(QObject *timerOwner, Panel &panel) : m_panel(panel), m_timer(timerOwner, interval)
{
    connect(&panel.adapter(nic), &Adapter::enabledChanged, this, &WifiMonitor::update);
    connect(&panel.wifi().attempt(), &JoinAttempt::underWayChanged, this, [this](bool isUnderWay) {
        if (!isUnderWay)
            update();
    });
}

void WifiMonitor::setTile(WifiTile *tile)
{
    m_status.setItem(tile->statusText());
    m_status.show(QT_TRANSLATE_NOOP("CardNetwork", "Offline"));
}

void WifiMonitor::watch()
{
    // Only the selected adapter is watched; selecting it later starts the refreshing.
    if (m_panel.selected() != nic)
        return;
    m_timer.ensure(this, [this] { refresh(); });
    m_timer.start();
}

void WifiMonitor::start()
{
    watch();
    update();
}

void WifiMonitor::startAgain()
{
    if (m_timer.isMade())
        forget();
    start();
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
    Adapter &adapter = m_panel.adapter(nic);
    // An attempt to join says nothing of an adapter that was switched off meanwhile.
    if (!adapter.isUp()) {
        m_status.show(QT_TRANSLATE_NOOP("CardNetwork", "Offline"));
        adapter.dropLease();
        m_timer.stop();
        return;
    }
    // In the middle of an attempt, the tile would flip to "Offline" and back.
    WifiLink &link = m_panel.wifi();
    if (m_connecting || link.attempt().isUnderWay())
        return;
    watch();
    link.refresh();
    const bool connected = link.isConnected();
    m_status.show(connected ? QT_TRANSLATE_NOOP("CardNetwork", "Online")
                            : QT_TRANSLATE_NOOP("CardNetwork", "Offline"));
    if (connected)
        m_panel.adapter(m_panel.selected()).showInForce();
    else
        adapter.dropLease(); // it went with the link
    emit statusShown(connected, connected ? link.name() : QString());
}

void WifiMonitor::forget()
{
    m_panel.adapter(nic).forget();
    m_panel.wifi().forget();
}

void WifiMonitor::refresh()
{
    forget();
    update();
}

void WifiMonitor::setConnecting(bool connecting)
{
    m_connecting = connecting;
    if (!connecting)
        refresh();
}

} // namespace QSP
