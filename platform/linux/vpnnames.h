#pragma once

#include <QtCore/QString>

/// NetworkManager's names and numbers of tunnels.
namespace HmiLinux::Nm {

/// What the connection in force of a plug-in has beside that of any other.
inline QString vpn()
{
    return QStringLiteral("org.freedesktop.NetworkManager.VPN.Connection");
}

/// States of a tunnel by a plug-in.
enum VpnState : uint {
    VpnPreparing = 1,
    VpnGettingAddresses = 4,
    VpnActivated = 5,
    VpnFailed = 6,
    VpnDisconnected = 7,
};

/// Why a tunnel by a plug-in is in its state.
enum VpnReason : uint {
    VpnUnknownReason = 0,
    VpnNetworkGone = 3,
    VpnServiceStopped = 4,
    VpnTimeout = 6,
    VpnServiceNotStarted = 8,
    VpnNoSecrets = 9,
    VpnLoginFailed = 10,
};

/// States of a connection in force, of whatever kind.
enum ActiveState : uint {
    ActiveActivating = 1,
    ActiveActivated = 2,
};

} // namespace HmiLinux::Nm
