#pragma once

#include "conformance/checks/mailbox.h"

#include <optional>

namespace Conformance {

using List = std::unique_ptr<std::vector<HMI::SystemSet::SsidInfo>>;
using DhcpReports = std::shared_ptr<Mailbox<HMI::SystemSet::DHCP_STATE>>;
using PingReports = std::shared_ptr<Mailbox<bool>>;
using ListReports = std::shared_ptr<Mailbox<List>>;
using JoinReports = std::shared_ptr<Mailbox<HMI::SystemSet::StateWifi>>;

/// How long the screen waits for a report; see hmi/systemset.h. Nothing limits a lease but the reader's patience.
constexpr Milliseconds LeaseLimit{120000};
constexpr Milliseconds PingLimit{15000};
constexpr Milliseconds ListLimit{30000};
constexpr Milliseconds JoinLimit{60000};

// Requests with a mailbox for their reports.
DhcpReports askForDhcp(HMI::SystemSet::NIC nic, bool on);
PingReports askForPing(HMI::SystemSet::NIC nic);
ListReports askForScan();
ListReports askForReset();
JoinReports askToJoin(const HMI::SSID &ssid, const std::string &password);

/// Waits for the first report of a request of @p operation; fails @p check when none comes.
template <class Report>
bool waitForReport(Check &check, const char *operation, const Mailbox<Report> &reports, Milliseconds limit)
{
    if (check.waitFor([&] { return !reports.isEmpty(); }, check.patience(limit)))
        return true;
    check.failed(operation, "a report",
                 "none within " + std::to_string(check.patience(limit).count()) + " ms");
    return false;
}

/// The index of the report that ended an attempt to join; nothing when none did.
std::optional<std::size_t> finalOf(const Mailbox<HMI::SystemSet::StateWifi> &reports);

} // namespace Conformance
