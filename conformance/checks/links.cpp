#include "conformance/checks/check.h"
#include "conformance/checks/functions.h"

using HMI::SystemSet;

namespace Conformance {

namespace {

constexpr int LastMobileState = 2;
constexpr int LastVpnState = 5;

/// States that are not listed are shown as unknown, which is allowed and of no use to an operator.
void expectState(Check &check, const std::string &operation, int state, int last)
{
    if (state < 0 || state > last)
        check.warned(operation, "0 to " + text(last), text(state));
}

} // namespace

void Checks::mobileValues(Check &check)
{
    expectState(check, "get4GState", service().get4GState(SystemSet::MOBILE_4G), LastMobileState);
    check.expectRange("get4GSignal", service().get4GSignal(SystemSet::MOBILE_4G), 0, 100);
}

void Checks::vpnValues(Check &check)
{
    check.expectRange("getVPNServer", service().getVPNServer(), SystemSet::ASIA, SystemSet::EUROPE);
    for (const SystemSet::VPNServer server : {SystemSet::ASIA, SystemSet::EUROPE})
        expectState(check, "getVPNServerState", service().getVPNServerState(server), LastVpnState);
}

void Checks::vpnServer(Check &check)
{
    // The screen offers the choice only then.
    if (service().isNicEnabled(SystemSet::VPN)) {
        service().enableNIC(SystemSet::VPN, false, true);
        if (!check.waitFor([] { return !service().isNicEnabled(SystemSet::VPN); }, Milliseconds(1000)))
            return check.skipped("the VPN cannot be switched off");
    }
    const auto server = [] { return static_cast<int>(service().getVPNServer()); };
    const bool isEurope = server() == SystemSet::EUROPE;
    for (const SystemSet::VPNServer wanted :
         {isEurope ? SystemSet::ASIA : SystemSet::EUROPE, isEurope ? SystemSet::EUROPE : SystemSet::ASIA}) {
        const int before = server();
        service().setVPNServer(wanted);
        if (!check.takes<int>("setVPNServer", "getVPNServer", server, before, wanted, Check::When::AtCall))
            return;
    }
}

void Checks::vpnAddress(Check &check)
{
    constexpr Milliseconds DropLimit{2000};
    service().resetVPNIp(service().getVPNServer());
    if (!check.waitFor([] { return service().getIp(SystemSet::VPN) == HMI::IP(); }, DropLimit))
        check.failed("resetVPNIp", "getIp answers 0.0.0.0", text(service().getIp(SystemSet::VPN)));
}

} // namespace Conformance
