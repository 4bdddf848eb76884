#pragma once

#include "hmi/systemset.h"

namespace HmiLinux {

/// The network that a wireless adapter has joined.
struct WifiLink {
    bool isJoined = false;
    HMI::SSID ssid = {}; ///< all zero when none, or not known
    int strength = 0;    ///< percent
};

} // namespace HmiLinux
