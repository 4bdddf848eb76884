#include "conformance/checks/check.h"
#include "conformance/checks/functions.h"

#include <algorithm>

using HMI::SystemSet;

namespace Conformance {

namespace {

/// What a panel might be asked for and does not have: no bit, two bits, an unknown bit, all bits, and the adapters
/// that other panels have.
std::vector<SystemSet::NIC> absentAdapters()
{
    std::vector<SystemSet::NIC> absent;
    for (const int value : {0, 3, 8, 255})
        absent.push_back(static_cast<SystemSet::NIC>(value));
    for (const AdapterName &adapter : AdapterNames) {
        if (!has(adapter.nic))
            absent.push_back(adapter.nic);
    }
    return absent;
}

} // namespace

void Checks::answers(Check &check)
{
    const SystemSet &panel = service();
    for (const AdapterName &adapter : AdapterNames) {
        const SystemSet::NIC nic = adapter.nic;
        panel.getIp(nic);
        panel.getSubnetMask(nic);
        panel.getGateway(nic);
        panel.getIpFromEE(nic);
        panel.getSubnetMaskFromEE(nic);
        panel.getGatewayFromEE(nic);
        panel.getMac(nic);
        panel.getDns(nic);
        panel.isDhcpOn(nic);
        panel.isNicEnabled(nic);
        panel.get4GState(nic);
        panel.get4GSignal(nic);
    }
    panel.getAllNIC();
    panel.getDefaultNIC();
    panel.currentWifiSsid();
    panel.isWifiConnected();
    panel.currentWifiSignalStrength();
    panel.getVPNServer();
    panel.getVPNServerState(SystemSet::ASIA);
    panel.getVPNServerState(SystemSet::EUROPE);
    panel.bright();
    panel.isBuzzerOn();
    panel.getLanguage();
    panel.getSerialNumber();
    check.note("serial number of " + std::to_string(panel.getSerialNumber().size()) + " bytes");
}

void Checks::adaptersConstant(Check &check)
{
    constexpr int Times = 50;
    const int mask = service().getAllNIC();
    for (int i = 0; i < Times; ++i) {
        if (!check.expect("getAllNIC", service().getAllNIC(), mask))
            return;
    }
}

void Checks::adaptersDefault(Check &check)
{
    const SystemSet::NIC nic = service().getDefaultNIC();
    const bool isOne = std::any_of(AdapterNames.begin(), AdapterNames.end(),
                                   [nic](const AdapterName &adapter) { return adapter.nic == nic; });
    const bool hasAny = service().getAllNIC() != 0;
    if (hasAny ? isOne : nic == NoAdapter)
        return;
    check.failed("getDefaultNIC", hasAny ? "one of the adapters" : "0 on a panel without adapters",
                 nameOf(nic));
}

void Checks::adaptersAbsent(Check &check)
{
    const SystemSet &panel = service();
    const HMI::IP none;
    for (const SystemSet::NIC nic : absentAdapters()) {
        check.about(nic);
        check.expect("getIp", panel.getIp(nic), none);
        check.expect("getSubnetMask", panel.getSubnetMask(nic), none);
        check.expect("getGateway", panel.getGateway(nic), none);
        check.expect("getIpFromEE", panel.getIpFromEE(nic), none);
        check.expect("getSubnetMaskFromEE", panel.getSubnetMaskFromEE(nic), none);
        check.expect("getGatewayFromEE", panel.getGatewayFromEE(nic), none);
        check.expect("getMac", panel.getMac(nic), HMI::MAC{});
        check.expect("getDns", panel.getDns(nic), std::pair<HMI::IP, HMI::IP>());
        check.expect("isDhcpOn", panel.isDhcpOn(nic), false);
        check.expect("isNicEnabled", panel.isNicEnabled(nic), false);
        check.expect("get4GState", panel.get4GState(nic), 0);
        check.expect("get4GSignal", panel.get4GSignal(nic), 0);
    }
    if (has(SystemSet::VPN))
        return;
    check.about(SystemSet::VPN);
    check.expect("getVPNServer", static_cast<int>(panel.getVPNServer()), static_cast<int>(SystemSet::ASIA));
    for (const SystemSet::VPNServer server : {SystemSet::ASIA, SystemSet::EUROPE})
        check.expect("getVPNServerState", panel.getVPNServerState(server), 0);
}

void Checks::adaptersUntouched(Check &check)
{
    const HMI::IP address = 0x01020304;
    SystemSet &panel = service();
    const SystemSet::NIC defaultAdapter = panel.getDefaultNIC();
    const int mask = panel.getAllNIC();
    for (const SystemSet::NIC nic : absentAdapters()) {
        check.about(nic);
        panel.setIp(nic, address, true);
        panel.setSubnetMask(nic, address, true);
        panel.setGateway(nic, address, true);
        panel.setDns(nic, {address, address});
        panel.enableNIC(nic, true, true);
        panel.setDefaultNIC(nic, false);
        check.expect("setIp", panel.getIpFromEE(nic), HMI::IP());
        check.expect("setDns", panel.getDns(nic), std::pair<HMI::IP, HMI::IP>());
        check.expect("enableNIC", panel.isNicEnabled(nic), false);
        check.expect("setDefaultNIC", static_cast<int>(panel.getDefaultNIC()),
                     static_cast<int>(defaultAdapter));
        check.expect("enableNIC", panel.getAllNIC(), mask);
    }
}

void Checks::adaptersChoice(Check &check)
{
    const SystemSet::NIC nic = check.adapter();
    const auto chosen = [] { return static_cast<int>(service().getDefaultNIC()); };
    const int before = chosen();
    service().setDefaultNIC(nic, false);
    check.takes<int>("setDefaultNIC", "getDefaultNIC", chosen, before, nic, Check::When::Soon);
}

void Checks::adaptersSwitching(Check &check)
{
    const SystemSet::NIC nic = check.adapter();
    const bool before = service().isNicEnabled(nic);
    const int mask = service().getAllNIC();
    for (const bool wanted : {!before, before}) {
        service().enableNIC(nic, wanted, true);
        if (!check.takes<bool>(
                "enableNIC", "isNicEnabled", [nic] { return service().isNicEnabled(nic); }, !wanted, wanted,
                Check::When::AtCall))
            return;
        check.expect("getAllNIC", service().getAllNIC(), mask);
    }
}

} // namespace Conformance
