#include "simulator/addressing.h"

#include "simulator/wifineighbourhood.h"

namespace HmiSimulator {

using HMI::SystemSet;

namespace {

/// Mobile and tunnel addresses are always assigned from the other side.
bool isAssigned(int nic)
{
    return nic == SystemSet::MOBILE_4G || nic == SystemSet::VPN;
}

} // namespace

bool isUp(const Panel &panel, int nic)
{
    const Adapter *adapter = panel.find(nic);
    if (adapter == nullptr || !adapter->enabled || !adapter->link)
        return false;
    switch (nic) {
    case SystemSet::WIFI:
        return panel.wifi.connected;
    case SystemSet::MOBILE_4G:
        return panel.mobile.state == 2;
    case SystemSet::VPN:
        return panel.vpn.state == 5;
    default:
        return true;
    }
}

void applyStored(Panel &panel, int nic)
{
    if (Adapter *adapter = panel.find(nic))
        adapter->live = isUp(panel, nic) ? adapter->stored : Addresses{};
}

bool takeLease(Panel &panel, int nic)
{
    Adapter *adapter = panel.find(nic);
    if (adapter == nullptr)
        return false;
    const bool up = isUp(panel, nic);
    adapter->live = up ? adapter->lease : Addresses{};
    return up;
}

SystemSet::DHCP_STATE settleDhcp(Panel &panel, int nic)
{
    Adapter *adapter = panel.find(nic);
    if (adapter == nullptr)
        return SystemSet::DHCP_FAILED;
    if (!adapter->dhcp && !isAssigned(nic)) {
        applyStored(panel, nic);
        return SystemSet::DHCP_OK;
    }
    if (const std::optional<int> wanted = panel.faults.dhcp) {
        adapter->live = *wanted == SystemSet::DHCP_OK ? adapter->lease : Addresses{};
        return static_cast<SystemSet::DHCP_STATE>(*wanted);
    }
    return takeLease(panel, nic) ? SystemSet::DHCP_OK : SystemSet::DHCP_FAILED;
}

void enable(Panel &panel, int nic, bool on)
{
    Adapter *adapter = panel.find(nic);
    if (adapter == nullptr)
        return;
    const bool changes = adapter->enabled != on;
    adapter->enabled = on;
    if (!on) {
        adapter->live = {};
        if (nic == SystemSet::WIFI)
            leave(panel.wifi);
    } else if (changes && !adapter->dhcp && !isAssigned(nic)) {
        applyStored(panel, nic);
    }
}

bool answersPing(const Panel &panel, int nic)
{
    if (!isUp(panel, nic))
        return false;
    const Adapter *adapter = panel.find(nic);
    return adapter->live.ip != 0 && adapter->live.gateway != 0;
}

} // namespace HmiSimulator
