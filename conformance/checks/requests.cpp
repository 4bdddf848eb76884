#include "conformance/checks/asking.h"
#include "conformance/checks/calllimits.h"
#include "conformance/checks/cost.h"
#include "conformance/checks/functions.h"

#include <atomic>

using HMI::SystemSet;

namespace Conformance {

namespace {

/// An adapter that the panel has and that is asked for, or none: requests must be safe in any case.
SystemSet::NIC someAdapter(const Check &check)
{
    for (const AdapterName &adapter : AdapterNames) {
        if (has(adapter.nic) && check.isAsked(adapter.nic))
            return adapter.nic;
    }
    return static_cast<SystemSet::NIC>(NoAdapter);
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
    const SystemSet::NIC nic = someAdapter(check);
    expectAtOnce(check, "pingTest", costOf([&] { pings = askForPing(nic); }));
    if (check.isAsked(SystemSet::WIFI))
        expectAtOnce(check, "scanWifi", costOf([&] { lists = askForScan(); }));
    waitForReport(check, "pingTest", *pings, PingLimit);
    if (lists)
        waitForReport(check, "scanWifi", *lists, ListLimit);
}

void Checks::requestsCallingBack(Check &check)
{
    const auto isDone = std::make_shared<std::atomic<bool>>(false);
    const SystemSet::NIC nic = someAdapter(check);
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
    const SystemSet::NIC nic = someAdapter(check);
    // Whatever comes of them has come by the time that later ones report.
    service().pingTest(nic, {});
    if (check.isAsked(SystemSet::WIFI))
        service().scanWifi({});
    waitForReport(check, "pingTest", *askForPing(nic), PingLimit);
    if (check.isAsked(SystemSet::WIFI))
        waitForReport(check, "scanWifi", *askForScan(), ListLimit);
    service().setDHCP(static_cast<SystemSet::NIC>(NoAdapter), false, {}, true);
    waitForReport(check, "setDHCP", *askForDhcp(static_cast<SystemSet::NIC>(NoAdapter), false), LeaseLimit);
}

void Checks::requestsOnce(Check &check)
{
    if (const char *operation = firstRepeat())
        check.warned(operation, "one report", "more than one");
}

} // namespace Conformance
