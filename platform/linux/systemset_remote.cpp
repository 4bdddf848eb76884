#include "linux/systemset_p.h"

#include "linux/vpntunnel.h"
#include "linux/worker.h"

using namespace HmiLinux;

namespace HMI {

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
    // A choice may be left of a tunnel that the panel does not have any more.
    return d->read<VPNServer>(VPN, [](const Snapshot &now, std::size_t) { return now.vpn.server; });
}

void SystemSet::setVPNServer(VPNServer server)
{
    const QString name = server == EUROPE ? QStringLiteral("Europe") : QStringLiteral("Asia");
    if (!d->service.place(VPN) || d->onlyTells(QStringLiteral("choose the server in ") + name))
        return;
    d->service.vpn().setServer(server);
    d->service.later([this] { d->service.worker().network().vpn()->choose(); });
}

int SystemSet::getVPNServerState(VPNServer server) const
{
    if (server != ASIA && server != EUROPE)
        return 0;
    return int(d->service.vpnLink(server));
}

void SystemSet::resetVPNIp(VPNServer server)
{
    if (d->service.place(VPN) && !d->onlyTells(QStringLiteral("end the tunnel")))
        d->service.later([this, server] { d->service.worker().network().vpn()->drop(server); });
}

} // namespace HMI
