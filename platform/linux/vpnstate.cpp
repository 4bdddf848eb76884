#include "linux/vpnstate.h"

#include "linux/vpnnames.h"

namespace HmiLinux {

VpnLink failureOf(unsigned reason)
{
    switch (reason) {
    case Nm::VpnNoSecrets:
    case Nm::VpnLoginFailed:
        return VpnLink::NotAuthorised;
    case Nm::VpnUnknownReason:
    case Nm::VpnServiceStopped:
    case Nm::VpnTimeout:
        return VpnLink::TlsError;
    default:
        return VpnLink::NotConnected;
    }
}

} // namespace HmiLinux
