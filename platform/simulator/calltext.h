#pragma once

#include "hmi/systemset.h"

#include <string>

namespace HmiSimulator {

/// How arguments stand in the journal.
std::string text(bool value);
std::string text(HMI::IP address);
std::string text(HMI::SystemSet::NIC nic);
std::string text(HMI::SystemSet::VPNServer server);
std::string text(HMI::SystemSet::Language language);
std::string text(HMI::SystemSet::DHCP_STATE state);
std::string text(HMI::SystemSet::StateWifi state);
std::string text(const HMI::SSID &ssid);
/// In quotes; quotes, backslashes, control characters and bytes that are not UTF-8 are escaped.
std::string quoted(const std::string &bytes);
/// Tells only whether there is a password.
std::string masked(const std::string &password);

} // namespace HmiSimulator
