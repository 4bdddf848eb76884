#pragma once

#include "hmi/systemset.h"

namespace Conformance {

/// Values as findings tell them.
std::string text(bool value);
std::string text(int value);
std::string text(HMI::IP value);
std::string text(const std::pair<HMI::IP, HMI::IP> &servers);
std::string text(const HMI::MAC &mac);
std::string text(const HMI::SSID &ssid);
/// The name of an adapter, as --adapters takes it; "NIC(3)" for what is none.
std::string nameOf(HMI::SystemSet::NIC nic);
std::string milliseconds(double value);

} // namespace Conformance
