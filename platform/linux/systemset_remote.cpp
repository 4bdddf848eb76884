#include "linux/systemset_p.h"

using namespace HmiLinux;

namespace HMI {

// No tunnel is driven yet: the panel says that it has none. The choice of a server holds until the process ends.

int SystemSet::get4GState(NIC nic) const
{
    if (nic != MOBILE_4G)
        return 0;
    return d->read<int>(nic, [](const Snapshot &now, std::size_t place) {
        return linkState(now.modem, now.adapters.at(place).deviceState, now.values(place).enabled);
    });
}

int SystemSet::get4GSignal(NIC nic) const
{
    if (nic != MOBILE_4G)
        return 0;
    return d->read<int>(nic, [](const Snapshot &now, std::size_t) { return now.modem.signal; });
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
