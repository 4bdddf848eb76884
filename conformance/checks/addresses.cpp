#include "conformance/checks/asking.h"
#include "conformance/checks/functions.h"

#include <array>

using HMI::SystemSet;

namespace Conformance {

namespace {

/// One of the three stored addresses.
struct Stored {
    const char *setter;
    const char *getter;
    void (SystemSet::*set)(SystemSet::NIC, HMI::IP, bool);
    HMI::IP (SystemSet::*get)(SystemSet::NIC) const;
    HMI::IP value; ///< the three belong together: a platform may refuse others
};

constexpr std::array<Stored, 3> StoredAddresses = {{
    {"setIp", "getIpFromEE", &SystemSet::setIp, &SystemSet::getIpFromEE, 0x0A141E2A},
    {"setSubnetMask", "getSubnetMaskFromEE", &SystemSet::setSubnetMask, &SystemSet::getSubnetMaskFromEE,
     0xFFFFFFF8},
    {"setGateway", "getGatewayFromEE", &SystemSet::setGateway, &SystemSet::getGatewayFromEE, 0x0A141E29},
}};

constexpr Milliseconds AddressLimit{2000};

} // namespace

void Checks::addressesStored(Check &check)
{
    const SystemSet::NIC nic = check.adapter();
    std::array<HMI::IP, StoredAddresses.size()> before;
    for (std::size_t i = 0; i < before.size(); ++i)
        before[i] = (service().*StoredAddresses[i].get)(nic);
    // All three before the first look: a platform may gather them.
    for (const Stored &stored : StoredAddresses)
        (service().*stored.set)(nic, stored.value, true);
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Stored &stored = StoredAddresses[i];
        check.takes<HMI::IP>(
            stored.setter, stored.getter, [&] { return (service().*stored.get)(nic); }, before[i],
            stored.value, Check::When::Soon);
    }
}

void Checks::dnsStored(Check &check)
{
    using Servers = std::pair<HMI::IP, HMI::IP>;
    const SystemSet::NIC nic = check.adapter();
    for (const Servers &wanted : {Servers(0x0A141E01, 0x0A141E02), Servers(0x08080404, 0)}) {
        const Servers before = service().getDns(nic);
        service().setDns(nic, wanted);
        if (!check.takes<Servers>(
                "setDns", "getDns", [nic] { return service().getDns(nic); }, before, wanted,
                Check::When::Soon))
            return;
    }
}

void Checks::dhcpLease(Check &check)
{
    const SystemSet::NIC nic = check.adapter();
    const bool before = service().isDhcpOn(nic);
    const DhcpReports reports = askForDhcp(nic, true);
    const bool flag = service().isDhcpOn(nic);
    if (!waitForReport(check, "setDHCP", *reports, LeaseLimit))
        return;
    check.note(reports->origin());
    const bool isLeased = reports->at(0) == SystemSet::DHCP_OK;
    if (!flag && (isLeased || before || service().isDhcpOn(nic)))
        check.failed("setDHCP", "isDhcpOn answers true right after the call", "false");
    if (!isLeased)
        check.refused("setDHCP", "a lease", "a report of failure");
    else if (!check.waitFor([nic] { return service().getIp(nic) != HMI::IP(); }, AddressLimit))
        check.failed("getIp", "an address, as the lease was reported", text(service().getIp(nic)));
}

void Checks::dhcpStatic(Check &check)
{
    const SystemSet::NIC nic = check.adapter();
    const HMI::IP stored = service().getIpFromEE(nic);
    const DhcpReports leased = askForDhcp(nic, true);
    if (!waitForReport(check, "setDHCP", *leased, LeaseLimit))
        return;
    check.expect("getIpFromEE", service().getIpFromEE(nic), stored);

    const DhcpReports switched = askForDhcp(nic, false);
    const bool flag = service().isDhcpOn(nic);
    if (!waitForReport(check, "setDHCP", *switched, LeaseLimit))
        return;
    if (switched->at(0) != SystemSet::DHCP_OK)
        return check.refused("setDHCP", "the stored addresses are in force", "a report of failure");
    if (flag)
        check.failed("setDHCP", "isDhcpOn answers false right after the call", "true");
    // Where the cable is out nothing is in force.
    const auto isInForce = [&] {
        const HMI::IP live = service().getIp(nic);
        return live == stored || live == HMI::IP();
    };
    if (!check.waitFor(isInForce, AddressLimit))
        check.failed("getIp", text(stored) + ", as stored", text(service().getIp(nic)));
}

void Checks::dhcpAbsent(Check &check)
{
    const auto nothing = static_cast<SystemSet::NIC>(NoAdapter);
    const DhcpReports reports = askForDhcp(nothing, true);
    check.expect("isDhcpOn", service().isDhcpOn(nothing), false);
    if (waitForReport(check, "setDHCP", *reports, LeaseLimit) && reports->at(0) == SystemSet::DHCP_OK)
        check.failed("setDHCP", "a report of failure for no adapter", "a lease");
}

void Checks::pingReport(Check &check)
{
    const SystemSet::NIC nic = check.adapter();
    const bool isEnabled = service().isNicEnabled(nic);
    const PingReports reports = askForPing(nic);
    if (!waitForReport(check, "pingTest", *reports, PingLimit))
        return;
    check.note(reports->origin());
    if (!isEnabled && reports->at(0))
        check.failed("pingTest", "no answer while the adapter is off", "an answer");
}

void Checks::pingAbsent(Check &check)
{
    const PingReports reports = askForPing(static_cast<SystemSet::NIC>(NoAdapter));
    if (waitForReport(check, "pingTest", *reports, PingLimit) && reports->at(0))
        check.failed("pingTest", "no answer over no adapter", "an answer");
}

} // namespace Conformance
