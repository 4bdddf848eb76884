#include "linux/snapshot.h"

#include <algorithm>

namespace HmiLinux {

using HMI::SystemSet;

std::optional<std::size_t> placeOf(SystemSet::NIC nic)
{
    const auto found = std::find(Adapters.begin(), Adapters.end(), nic);
    if (found == Adapters.end())
        return std::nullopt;
    return std::size_t(found - Adapters.begin());
}

QString nameOf(SystemSet::NIC nic)
{
    static const std::array<QString, Adapters.size()> names = {
        QStringLiteral("LAN0"), QStringLiteral("LAN1"), QStringLiteral("WIFI"), QStringLiteral("MOBILE_4G"),
        QStringLiteral("VPN")};
    const std::optional<std::size_t> place = placeOf(nic);
    return place ? names.at(*place) : QString();
}

bool Wish::isEmpty() const
{
    return !enabled && !dhcp && !hasAddresses() && !dns && !isDefault;
}

ProfileValues Wish::over(ProfileValues values) const
{
    values.enabled = enabled.value_or(values.enabled);
    values.dhcp = dhcp.value_or(values.dhcp);
    values.stored.ip = ip.value_or(values.stored.ip);
    values.stored.mask = mask.value_or(values.stored.mask);
    values.stored.gateway = gateway.value_or(values.stored.gateway);
    values.dns = dns.value_or(values.dns);
    values.isDefault = isDefault.value_or(values.isDefault);
    return values;
}

ProfileValues Snapshot::values(std::size_t place) const
{
    ProfileValues values = wishes.at(place).over(adapters.at(place).values);
    if (Adapters.at(place) == SystemSet::VPN)
        values.enabled = vpn.isOn;
    return values;
}

Dns Snapshot::dns(std::size_t place) const
{
    if (wishes.at(place).dns)
        return *wishes.at(place).dns;
    const AdapterState &adapter = adapters.at(place);
    return adapter.values.dns == Dns() ? adapter.liveDns : adapter.values.dns;
}

std::optional<std::size_t> Snapshot::defaultPlace() const
{
    std::optional<std::size_t> carrier;
    for (std::size_t place = 0; place < adapters.size(); ++place) {
        if (values(place).isDefault)
            return place;
        if (adapters.at(place).carriesDefaultRoute)
            carrier = place;
    }
    return carrier;
}

} // namespace HmiLinux
