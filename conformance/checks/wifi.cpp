#include "conformance/checks/asking.h"
#include "conformance/checks/calllimits.h"
#include "conformance/checks/cost.h"
#include "conformance/checks/functions.h"

#include <algorithm>

using HMI::SystemSet;

namespace Conformance {

namespace {

constexpr Milliseconds LinkLimit{2000};

HMI::SSID unknownNetwork()
{
    HMI::SSID ssid{};
    constexpr char Name[] = "no network has this name";
    std::copy(std::begin(Name), std::end(Name), ssid.begin());
    return ssid;
}

void expectTerminated(Check &check, const char *operation, const HMI::SSID &ssid)
{
    if (ssid.back() != '\0')
        check.failed(operation, "a name that ends within its 33 bytes", text(ssid));
}

/// Waits for the end of an attempt to join what cannot be joined.
void expectNotJoined(Check &check, const Mailbox<SystemSet::StateWifi> &reports)
{
    if (!check.waitFor([&] { return finalOf(reports).has_value(); }, check.patience(JoinLimit))) {
        return check.failed("connectWifi", "a final report",
                            text(static_cast<int>(reports.count())) + " reports, none of them final");
    }
    check.note(reports.origin());
    for (std::size_t i = 0; i < reports.count(); ++i) {
        const int state = reports.at(i);
        if (state == SystemSet::WIFI_CONNECTED)
            check.failed("connectWifi", "no report that a network was joined which does not exist",
                         text(state));
        else
            check.expectRange("connectWifi", state, SystemSet::WIFI_OFFLINE, SystemSet::WIFI_WRONG_PASSWORD);
    }
    if (service().currentWifiSsid() == unknownNetwork())
        check.failed("currentWifiSsid", "not a network that does not exist", text(unknownNetwork()));
}

} // namespace

void Checks::wifiLink(Check &check)
{
    const HMI::SSID ssid = service().currentWifiSsid();
    expectTerminated(check, "currentWifiSsid", ssid);
    check.expectRange("currentWifiSignalStrength", service().currentWifiSignalStrength(), 0, 100);
    // The link may come or go between two looks.
    const auto agree = [] {
        return service().isWifiConnected() || service().currentWifiSsid() == HMI::SSID{};
    };
    if (!check.waitFor(agree, LinkLimit))
        check.failed("currentWifiSsid", "no name while no network is joined", text(ssid));
}

void Checks::wifiScan(Check &check)
{
    const bool isEnabled = service().isNicEnabled(SystemSet::WIFI);
    const ListReports reports = askForScan();
    if (!waitForReport(check, "scanWifi", *reports, ListLimit))
        return;
    check.note(reports->origin());
    const List &list = reports->at(0);
    if (!list) {
        if (isEnabled)
            check.refused("scanWifi", "a list", "none");
        return;
    }
    check.note(std::to_string(list->size()) + " networks");
    if (!isEnabled && !list->empty())
        check.failed("scanWifi", "no networks while Wi-Fi is off", std::to_string(list->size()) + " of them");
    for (const SystemSet::SsidInfo &network : *list) {
        expectTerminated(check, "scanWifi", network.ssid);
        check.expectRange("scanWifi", network.signal, 0, 100);
        check.expectUtf8("scanWifi", network.password);
    }
}

void Checks::wifiOff(Check &check)
{
    service().enableNIC(SystemSet::WIFI, false, true);
    if (!check.waitFor([] { return !service().isNicEnabled(SystemSet::WIFI); }, LinkLimit))
        return check.skipped("Wi-Fi cannot be switched off");
    const ListReports reports = askForScan();
    if (!waitForReport(check, "scanWifi", *reports, ListLimit))
        return;
    if (reports->at(0) && !reports->at(0)->empty()) {
        check.failed("scanWifi", "null or an empty list while Wi-Fi is off",
                     std::to_string(reports->at(0)->size()) + " networks");
    }
}

void Checks::wifiUnknown(Check &check)
{
    JoinReports reports;
    const double cost = costOf([&] { reports = askToJoin(unknownNetwork(), "nobody's password"); });
    if (cost > RequestLimit)
        check.failed("connectWifi", "back within " + milliseconds(RequestLimit), milliseconds(cost));
    expectNotJoined(check, *reports);
}

void Checks::wifiReplaced(Check &check)
{
    service().connectWifi(unknownNetwork(), {}, {}); // of which nobody wants to hear
    const JoinReports old = askToJoin(unknownNetwork(), {});
    const JoinReports reports = askToJoin(unknownNetwork(), {});
    expectNotJoined(check, *reports);
    // Whether the old one still reports is the platform's choice; it cannot have joined.
    for (std::size_t i = 0; i < old->count(); ++i) {
        if (old->at(i) == SystemSet::WIFI_CONNECTED)
            check.failed("connectWifi", "no success of an attempt that was replaced",
                         "a report that it joined");
    }
}

void Checks::wifiReset(Check &check)
{
    const ListReports reports = askForReset();
    if (!waitForReport(check, "resetWifi", *reports, ListLimit))
        return;
    check.note(reports->origin());
    const auto isLeft = [] {
        return !service().isWifiConnected() && service().currentWifiSsid() == HMI::SSID{};
    };
    if (!check.waitFor(isLeft, LinkLimit))
        check.failed("resetWifi", "no network is joined", text(service().currentWifiSsid()));
    const List &list = reports->at(0);
    if (!list)
        return check.note("the scan after the reset failed");
    const auto kept = std::count_if(list->begin(), list->end(), [](const SystemSet::SsidInfo &network) {
        return !network.password.empty();
    });
    if (kept > 0)
        check.failed("resetWifi", "no password is left", std::to_string(kept) + " passwords");
}

} // namespace Conformance
