#include "conformance/checks/asking.h"
#include "conformance/checks/cost.h"
#include "conformance/checks/functions.h"
#include "conformance/checks/limits.h"

#include <atomic>

using HMI::SystemSet;

namespace Conformance {

namespace {

/// An adapter that the panel has, or LAN0: requests must be safe in any case.
SystemSet::NIC someAdapter()
{
    for (const AdapterName &adapter : AdapterNames) {
        if (has(adapter.nic))
            return adapter.nic;
    }
    return SystemSet::LAN0;
}

void expectAtOnce(Check &check, const char *operation, double cost)
{
    if (cost > RequestLimit)
        check.failed(operation, "back within " + milliseconds(RequestLimit), milliseconds(cost));
}

} // namespace

void Checks::requestsAtOnce(Check &check)
{
    PingReports pings;
    ListReports lists;
    const SystemSet::NIC nic = someAdapter();
    expectAtOnce(check, "pingTest", costOf([&] { pings = askForPing(nic); }));
    expectAtOnce(check, "scanWifi", costOf([&] { lists = askForScan(); }));
    waitForReport(check, "pingTest", *pings, PingLimit);
    waitForReport(check, "scanWifi", *lists, ListLimit);
}

void Checks::requestsCallingBack(Check &check)
{
    const auto isDone = std::make_shared<std::atomic<bool>>(false);
    const SystemSet::NIC nic = someAdapter();
    service().pingTest(nic, [isDone, nic](bool) {
        service().getIp(nic);
        service().getDefaultNIC();
        service().isWifiConnected();
        service().bright();
        // A request from within a report, as an impatient screen might make it.
        service().pingTest(nic, [isDone](bool) { *isDone = true; });
    });
    if (!check.waitFor([&] { return isDone->load(); }, check.patience(2 * PingLimit)))
        check.failed("pingTest", "a report that calls the service ends", "it does not");
}

void Checks::requestsUnheard(Check &check)
{
    const SystemSet::NIC nic = someAdapter();
    service().pingTest(nic, {});
    service().scanWifi({});
    // Whatever comes of them has come by the time that later ones report.
    const PingReports pings = askForPing(nic);
    const ListReports lists = askForScan();
    waitForReport(check, "pingTest", *pings, PingLimit);
    waitForReport(check, "scanWifi", *lists, ListLimit);
    service().setDHCP(static_cast<SystemSet::NIC>(NoAdapter), false, {}, true);
    waitForReport(check, "setDHCP", *askForDhcp(static_cast<SystemSet::NIC>(NoAdapter), false), LeaseLimit);
}

void Checks::requestsOnce(Check &check)
{
    if (const char *operation = firstRepeat())
        check.warned(operation, "one report", "more than one");
}

} // namespace Conformance
