#include "conformance/checks/asking.h"

using HMI::SystemSet;

namespace Conformance {

namespace {

template <class Report> auto listener(const std::shared_ptr<Mailbox<Report>> &reports)
{
    return [reports](Report report) { reports->put(std::move(report)); };
}

} // namespace

DhcpReports askForDhcp(SystemSet::NIC nic, bool on)
{
    auto reports = std::make_shared<Mailbox<SystemSet::DHCP_STATE>>("setDHCP");
    service().setDHCP(nic, on, listener(reports), true);
    reports->returned();
    return reports;
}

PingReports askForPing(SystemSet::NIC nic)
{
    auto reports = std::make_shared<Mailbox<bool>>("pingTest");
    service().pingTest(nic, listener(reports));
    reports->returned();
    return reports;
}

ListReports askForScan()
{
    auto reports = std::make_shared<Mailbox<List>>("scanWifi");
    service().scanWifi(listener(reports));
    reports->returned();
    return reports;
}

ListReports askForReset()
{
    auto reports = std::make_shared<Mailbox<List>>("resetWifi");
    service().resetWifi(listener(reports));
    reports->returned();
    return reports;
}

JoinReports askToJoin(const HMI::SSID &ssid, const std::string &password)
{
    auto reports = std::make_shared<Mailbox<SystemSet::StateWifi>>("connectWifi", Reports::Several);
    service().connectWifi(ssid, password, listener(reports));
    reports->returned();
    return reports;
}

std::optional<std::size_t> finalOf(const Mailbox<SystemSet::StateWifi> &reports)
{
    for (std::size_t i = 0; i < reports.count(); ++i) {
        if (reports.at(i) != SystemSet::WIFI_CONNECTING)
            return i;
    }
    return std::nullopt;
}

} // namespace Conformance
