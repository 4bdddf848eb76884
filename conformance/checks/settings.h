#pragma once

#include "conformance/checks/check.h"

#include <map>
#include <optional>

namespace Conformance {

/// What checks may change of an adapter.
struct AdapterSettings {
    HMI::IP ip;
    HMI::IP mask;
    HMI::IP gateway;
    std::pair<HMI::IP, HMI::IP> dns;
    bool isEnabled = false;
    bool isDhcpOn = false;
};

/// What checks may change of a panel, as the getters tell it.
struct Settings {
    std::map<HMI::SystemSet::NIC, AdapterSettings> adapters; ///< those that the panel has
    HMI::SystemSet::NIC defaultAdapter{};
    HMI::SystemSet::VPNServer vpnServer{};
    HMI::SystemSet::Bright bright{};
    HMI::SystemSet::Language language{};
    bool isBuzzerOn = false;
    HMI::SSID network{};  ///< the joined one; all zero for none
    std::string password; ///< what the panel keeps for it; no getter tells, see addPassword()

    /// Whether it tells nothing of any adapter, as while a service has not read its panel yet.
    bool isNeutral() const;
    static Settings read();
    /// Learns the password of the joined network from a scan, so that it can be joined again.
    void addPassword(Check &check);

    /// As text, for a process that follows this one; null for a text that is none of ours.
    std::string encoded() const;
    static std::optional<Settings> decoded(const std::string &text);
};

} // namespace Conformance
