#include "linux/systemset_p.h"

namespace HMI {

// Neither a modem nor a tunnel is driven yet: the panel says that it has none. The choice of a server holds until
// the process ends.

int SystemSet::get4GState(NIC) const
{
    return 0;
}

int SystemSet::get4GSignal(NIC) const
{
    return 0;
}

SystemSet::VPNServer SystemSet::getVPNServer() const
{
    return d->vpnServer;
}

void SystemSet::setVPNServer(VPNServer server)
{
    if (server == ASIA || server == EUROPE)
        d->vpnServer = server;
}

int SystemSet::getVPNServerState(VPNServer) const
{
    return 0;
}

void SystemSet::resetVPNIp(VPNServer) {}

} // namespace HMI
