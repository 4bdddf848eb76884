#pragma once

#include "hmi/systemset.h"

#include <array>

namespace Conformance {

struct AdapterName {
    HMI::SystemSet::NIC nic;
    const char *name;
};

/// The adapters, as results name them and --adapters takes them.
inline constexpr std::array<AdapterName, 5> AdapterNames = {{
    {HMI::SystemSet::LAN0, "LAN0"},
    {HMI::SystemSet::LAN1, "LAN1"},
    {HMI::SystemSet::WIFI, "WIFI"},
    {HMI::SystemSet::MOBILE_4G, "4G"},
    {HMI::SystemSet::VPN, "VPN"},
}};

} // namespace Conformance
