#include "cards/network/statusmonitors.h"

#include "panel/panel.h"

namespace QSP {

StatusMonitors::StatusMonitors(QObject *timerOwner, Panel &panel)
    : m_panel(panel), m_mobile(timerOwner, panel), m_vpn(timerOwner, panel), m_wifi(timerOwner, panel)
{}

void StatusMonitors::start(NIC nic)
{
    if (nic == HMI::SystemSet::MOBILE_4G)
        m_mobile.setup(m_panel.adapter(nic).isUp());
    else if (nic == HMI::SystemSet::VPN)
        m_vpn.start();
    else if (nic == HMI::SystemSet::WIFI)
        m_wifi.start();
}

void StatusMonitors::stop(NIC nic)
{
    if (nic == HMI::SystemSet::MOBILE_4G)
        m_mobile.stop();
    else if (nic == HMI::SystemSet::VPN)
        m_vpn.stop();
    else if (nic == HMI::SystemSet::WIFI)
        m_wifi.stop();
}

void StatusMonitors::setPaused(bool paused)
{
    m_mobile.setPaused(paused);
    m_vpn.setPaused(paused);
    m_wifi.setPaused(paused);
}

} // namespace QSP
