#include "linux/systemset_p.h"

#include "linux/worker.h"

using namespace HmiLinux;

namespace HMI {

namespace {

/// Whether addresses can be set by hand: 4G and the tunnel have those that the other side gives them.
bool hasStaticAddresses(SystemSet::NIC nic)
{
    return nic != SystemSet::MOBILE_4G && nic != SystemSet::VPN;
}

/// Lets the operator's value stand in for one of the stored addresses until it is written with the others.
void wishAddress(Service &service, SystemSet::NIC nic, IP value, bool persist, std::optional<IP> Wish::*field)
{
    const std::optional<std::size_t> place = service.place(nic);
    if (!place || !hasStaticAddresses(nic))
        return;
    service.wish(*place, persist, [=](Wish &wish) { wish.*field = value; });
    service.later([&service, place] { service.worker().network().writer(*place)->gather(); });
}

} // namespace

IP SystemSet::getIp(NIC nic) const
{
    return d->read<IP>(nic,
                       [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).live.ip; });
}

IP SystemSet::getSubnetMask(NIC nic) const
{
    return d->read<IP>(
        nic, [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).live.mask; });
}

IP SystemSet::getGateway(NIC nic) const
{
    return d->read<IP>(
        nic, [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).live.gateway; });
}

IP SystemSet::getIpFromEE(NIC nic) const
{
    return d->read<IP>(nic,
                       [](const Snapshot &now, std::size_t place) { return now.values(place).stored.ip; });
}

IP SystemSet::getSubnetMaskFromEE(NIC nic) const
{
    return d->read<IP>(nic,
                       [](const Snapshot &now, std::size_t place) { return now.values(place).stored.mask; });
}

IP SystemSet::getGatewayFromEE(NIC nic) const
{
    return d->read<IP>(
        nic, [](const Snapshot &now, std::size_t place) { return now.values(place).stored.gateway; });
}

void SystemSet::setIp(NIC nic, IP ip, bool persist)
{
    if (!d->onlyTells(QStringLiteral("give %1 the address %2").arg(nameOf(nic), dotted(ip))))
        wishAddress(d->service, nic, ip, persist, &Wish::ip);
}

void SystemSet::setSubnetMask(NIC nic, IP mask, bool persist)
{
    if (!d->onlyTells(QStringLiteral("give %1 the mask %2").arg(nameOf(nic), dotted(mask))))
        wishAddress(d->service, nic, mask, persist, &Wish::mask);
}

void SystemSet::setGateway(NIC nic, IP gateway, bool persist)
{
    if (!d->onlyTells(QStringLiteral("give %1 the gateway %2").arg(nameOf(nic), dotted(gateway))))
        wishAddress(d->service, nic, gateway, persist, &Wish::gateway);
}

MAC SystemSet::getMac(NIC nic) const
{
    return d->read<MAC>(nic,
                        [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).mac; });
}

bool SystemSet::isDhcpOn(NIC nic) const
{
    return d->read<bool>(nic, [](const Snapshot &now, std::size_t place) { return now.values(place).dhcp; });
}

void SystemSet::setDHCP(NIC nic, bool on, const std::function<void(DHCP_STATE)> &done, bool persist)
{
    const std::optional<std::size_t> place = d->service.place(nic);
    if (!place || nic == VPN || (!on && !hasStaticAddresses(nic)) ||
        d->onlyTells(
            QStringLiteral("put %1 on %2")
                .arg(nameOf(nic), on ? QStringLiteral("DHCP") : QStringLiteral("its static address")))) {
        if (done)
            d->service.later([done] { done(DHCP_FAILED); });
        return;
    }
    d->service.wish(*place, persist, [on](Wish &wish) { wish.dhcp = on; });
    d->service.later([this, place, done] { d->service.worker().network().writer(*place)->writeDhcp(done); });
}

std::pair<IP, IP> SystemSet::getDns(NIC nic) const
{
    const Dns dns = d->read<Dns>(nic, [](const Snapshot &now, std::size_t place) { return now.dns(place); });
    return {dns.first, dns.second};
}

void SystemSet::setDns(NIC nic, const std::pair<IP, IP> &servers)
{
    const std::optional<std::size_t> place = d->service.place(nic);
    if (!place || nic == VPN ||
        d->onlyTells(QStringLiteral("give %1 the name servers %2 and %3")
                         .arg(nameOf(nic), dotted(servers.first), dotted(servers.second))))
        return;
    const Dns dns = inOrder({servers.first, servers.second});
    d->service.wish(*place, true, [&dns](Wish &wish) { wish.dns = dns; });
    d->service.later([this, place] { d->service.worker().network().writer(*place)->gather(); });
}

} // namespace HMI
