#pragma once

#include "hmi/systemset.h"

#include <array>

namespace HmiLinux {

/// What the operator chose of the tunnel.
struct VpnChoice {
    bool isOn = false;
    HMI::SystemSet::VPNServer server = HMI::SystemSet::ASIA;

    bool wants(std::size_t place) const { return isOn && std::size_t(server) == place; }
};

/// How far a tunnel is, in the numbers of the contract.
enum class VpnLink : int {
    NotConnected = 0,
    Connecting = 1,
    NotAuthorised = 2,
    TlsError = 3,
    CertificateError = 4,
    Connected = 5,
};

/// By server.
using VpnLinks = std::array<VpnLink, 2>;

/// What a tunnel has come to that ended before it was connected. The daemon gives its reasons but none for TLS: a plug-in
/// that cannot agree with its server gives up, or is given up when its time is over.
VpnLink failureOf(unsigned reason);

} // namespace HmiLinux
