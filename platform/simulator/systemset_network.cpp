#include "hmi/systemset.h"

#include "simulator/addressing.h"
#include "simulator/links.h"
#include "simulator/report.h"
#include "simulator/servicecall.h"
#include "simulator/wifineighbourhood.h"

using namespace HmiSimulator;

namespace HMI {

namespace {

/// Sets one of the three addresses: @p field is &Addresses::ip and so on.
void setAddress(SystemSet::NIC nic, IP value, bool persist, IP Addresses::*field)
{
    core().write([=](Panel &panel) {
        Adapter *adapter = panel.find(nic);
        if (adapter == nullptr)
            return;
        if (persist)
            adapter->stored.*field = value;
        if (!adapter->dhcp && isUp(panel, nic))
            adapter->live.*field = value;
    });
}

} // namespace

IP SystemSet::getIp(NIC nic) const
{
    return getFrom(nic, "getIp", IP(), [](const Adapter &adapter) { return adapter.live.ip; });
}

IP SystemSet::getSubnetMask(NIC nic) const
{
    return getFrom(nic, "getSubnetMask", IP(), [](const Adapter &adapter) { return adapter.live.mask; });
}

IP SystemSet::getGateway(NIC nic) const
{
    return getFrom(nic, "getGateway", IP(), [](const Adapter &adapter) { return adapter.live.gateway; });
}

IP SystemSet::getIpFromEE(NIC nic) const
{
    return getFrom(nic, "getIpFromEE", IP(), [](const Adapter &adapter) { return adapter.stored.ip; });
}

IP SystemSet::getSubnetMaskFromEE(NIC nic) const
{
    return getFrom(nic, "getSubnetMaskFromEE", IP(),
                   [](const Adapter &adapter) { return adapter.stored.mask; });
}

IP SystemSet::getGatewayFromEE(NIC nic) const
{
    return getFrom(nic, "getGatewayFromEE", IP(),
                   [](const Adapter &adapter) { return adapter.stored.gateway; });
}

void SystemSet::setIp(NIC nic, IP ip, bool persist)
{
    action("setIp", {text(nic), text(ip), persistence(persist)});
    setAddress(nic, ip, persist, &Addresses::ip);
}

void SystemSet::setSubnetMask(NIC nic, IP mask, bool persist)
{
    action("setSubnetMask", {text(nic), text(mask), persistence(persist)});
    setAddress(nic, mask, persist, &Addresses::mask);
}

void SystemSet::setGateway(NIC nic, IP gateway, bool persist)
{
    action("setGateway", {text(nic), text(gateway), persistence(persist)});
    setAddress(nic, gateway, persist, &Addresses::gateway);
}

MAC SystemSet::getMac(NIC nic) const
{
    return getFrom(nic, "getMac", MAC{}, [](const Adapter &adapter) { return adapter.mac; });
}

bool SystemSet::isDhcpOn(NIC nic) const
{
    return getFrom(nic, "isDhcpOn", false, [](const Adapter &adapter) { return adapter.dhcp; });
}

void SystemSet::setDHCP(NIC nic, bool on, const std::function<void(DHCP_STATE)> &done, bool persist)
{
    action("setDHCP", {text(nic), text(on), persistence(persist)});
    const int delay = core().write([=](Panel &panel) {
        if (Adapter *adapter = panel.find(nic))
            adapter->dhcp = on;
        return on ? panel.delays.dhcp : panel.delays.fixed;
    });
    submit(takeFault(Operation::Dhcp),
           {"setDHCP", text(nic), delay, [nic, done] {
                const DHCP_STATE state = core().write([nic](Panel &panel) { return settleDhcp(panel, nic); });
                return answer(done, state);
            }});
}

int SystemSet::getAllNIC() const
{
    return get("getAllNIC", [](const Panel &panel) { return panel.nicMask; });
}

bool SystemSet::isNicEnabled(NIC nic) const
{
    return getFrom(nic, "isNicEnabled", false, [](const Adapter &adapter) { return adapter.enabled; });
}

void SystemSet::enableNIC(NIC nic, bool enable, bool persist)
{
    action("enableNIC", {text(nic), text(enable), persistence(persist)});
    const bool changed = core().write([=](Panel &panel) {
        const Adapter *adapter = panel.find(nic);
        if (adapter == nullptr || adapter->enabled == enable)
            return false;
        HmiSimulator::enable(panel, nic, enable);
        return true;
    });
    if (!changed)
        return;
    if (nic == MOBILE_4G)
        followMobile(enable);
    else if (nic == VPN)
        followVpn(enable);
    else if (nic == WIFI && enable)
        rejoinWifi();
}

SystemSet::NIC SystemSet::getDefaultNIC() const
{
    return get("getDefaultNIC", [](const Panel &panel) { return static_cast<NIC>(panel.defaultNic); });
}

void SystemSet::setDefaultNIC(NIC nic, bool restart)
{
    action("setDefaultNIC", {text(nic), restart ? "restart" : "no restart"});
    core().write([nic](Panel &panel) {
        if (panel.find(nic) != nullptr)
            panel.defaultNic = nic;
    });
}

void SystemSet::pingTest(NIC nic, const std::function<void(bool)> &done)
{
    action("pingTest", {text(nic)});
    const int delay = core().read([](const Panel &panel) { return panel.delays.ping; });
    submit(takeFault(Operation::Ping), {"pingTest", text(nic), delay, [nic, done] {
                                            const bool answered = core().read([nic](const Panel &panel) {
                                                return panel.faults.ping.value_or(answersPing(panel, nic));
                                            });
                                            return answer(done, answered);
                                        }});
}

std::pair<IP, IP> SystemSet::getDns(NIC nic) const
{
    return getFrom(nic, "getDns", std::pair<IP, IP>(), [](const Adapter &adapter) { return adapter.dns; });
}

void SystemSet::setDns(NIC nic, const std::pair<IP, IP> &servers)
{
    action("setDns", {text(nic), text(servers.first), text(servers.second)});
    core().write([&](Panel &panel) {
        if (Adapter *adapter = panel.find(nic))
            adapter->dns = servers;
    });
}

int SystemSet::get4GState(NIC nic) const
{
    return get("get4GState", nic, [nic](const Panel &panel) {
        return nic == MOBILE_4G && panel.find(nic) != nullptr ? panel.mobile.state : 0;
    });
}

int SystemSet::get4GSignal(NIC nic) const
{
    const auto [signal, drift] = get("get4GSignal", nic, [nic](const Panel &panel) {
        const Adapter *modem = nic == MOBILE_4G ? panel.find(nic) : nullptr;
        return modem != nullptr && modem->enabled ? std::pair(panel.mobile.signal, panel.mobile.drift)
                                                  : std::pair(0, 0);
    });
    return adrift(signal, drift);
}

SystemSet::VPNServer SystemSet::getVPNServer() const
{
    return get("getVPNServer", [](const Panel &panel) {
        return panel.find(VPN) != nullptr ? static_cast<VPNServer>(panel.vpn.server) : ASIA;
    });
}

void SystemSet::setVPNServer(VPNServer server)
{
    action("setVPNServer", {text(server)});
    if (server != ASIA && server != EUROPE)
        return;
    const bool reconnects = core().write([server](Panel &panel) {
        const bool changes = panel.vpn.server != server;
        panel.vpn.server = server;
        const Adapter *tunnel = panel.find(VPN);
        return changes && tunnel != nullptr && tunnel->enabled;
    });
    if (reconnects)
        followVpn(true);
}

int SystemSet::getVPNServerState(VPNServer server) const
{
    return get("getVPNServerState", server, [server](const Panel &panel) {
        return panel.find(VPN) != nullptr && panel.vpn.server == server ? panel.vpn.state : 0;
    });
}

void SystemSet::resetVPNIp(VPNServer server)
{
    action("resetVPNIp", {text(server)});
    core().write([server](Panel &panel) {
        Adapter *tunnel = panel.find(VPN);
        if (tunnel != nullptr && panel.vpn.server == server)
            tunnel->live = {};
    });
}

} // namespace HMI
