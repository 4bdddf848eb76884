#pragma once

#include "cards/network/mobilemonitor.h"
#include "cards/network/vpnmonitor.h"
#include "cards/network/wifimonitor.h"
#include "panel/nic.h"

namespace QSP {

/// What keeps the status of 4G, VPN and Wi-Fi fresh; wired adapters have none.
class StatusMonitors
{
public:
    StatusMonitors(QObject *timerOwner, Panel &panel);

    void start(NIC nic);
    void stop(NIC nic);
    void setPaused(bool paused);

    MobileMonitor &mobile() { return m_mobile; }
    VpnMonitor &vpn() { return m_vpn; }
    WifiMonitor &wifi() { return m_wifi; }

private:
    Panel &m_panel;
    MobileMonitor m_mobile;
    VpnMonitor m_vpn;
    WifiMonitor m_wifi;
};

} // namespace QSP
