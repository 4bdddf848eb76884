#include "linux/addressrules.h"

#include <QtCore/QStringList>

#include <utility>

namespace HmiLinux {

namespace {

constexpr int g_bits = 32;

} // namespace

Dns inOrder(Dns dns)
{
    if (dns.first == 0)
        std::swap(dns.first, dns.second);
    if (dns.first == dns.second)
        dns.second = 0;
    return dns;
}

std::optional<HMI::IP> addressOf(const QString &dotted)
{
    const QStringList parts = dotted.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return std::nullopt;
    quint32 address = 0;
    for (const QString &part : parts) {
        bool isNumber = false;
        const uint octet = part.toUInt(&isNumber);
        if (!isNumber || octet > 255 || part.size() > 3)
            return std::nullopt;
        address = address << 8 | octet;
    }
    return HMI::IP(address);
}

QString dotted(HMI::IP address)
{
    const quint32 value = address;
    return QStringLiteral("%1.%2.%3.%4")
        .arg(value >> 24)
        .arg(value >> 16 & 255)
        .arg(value >> 8 & 255)
        .arg(value & 255);
}

HMI::IP maskOf(int prefix)
{
    if (prefix <= 0)
        return 0;
    return prefix >= g_bits ? ~quint32(0) : ~(~quint32(0) >> prefix);
}

std::optional<int> prefixOf(HMI::IP mask)
{
    for (int prefix = 0; prefix <= g_bits; ++prefix) {
        if (quint32(maskOf(prefix)) == quint32(mask))
            return prefix;
    }
    return std::nullopt;
}

QString conflictOf(const Addresses &addresses)
{
    if (addresses == Addresses())
        return {};
    const quint32 ip = addresses.ip;
    const quint32 mask = addresses.mask;
    const quint32 gateway = addresses.gateway;
    const std::optional<int> prefix = prefixOf(mask);
    if (!prefix)
        return QStringLiteral("the mask %1 has holes").arg(dotted(mask));
    if (*prefix == 0)
        return QStringLiteral("there is no mask");
    if (ip == 0)
        return QStringLiteral("there is no address");
    const quint32 first = ip >> 24;
    if (first == 0 || first == 127 || first >= 224)
        return QStringLiteral("%1 is no address of an adapter").arg(dotted(ip));
    // A network of two addresses, or of one, has neither an own address nor a broadcast.
    if (*prefix < g_bits - 1) {
        if ((ip & ~mask) == 0)
            return QStringLiteral("%1 is the address of its network").arg(dotted(ip));
        if ((ip | mask) == ~quint32(0))
            return QStringLiteral("%1 is the broadcast address of its network").arg(dotted(ip));
    }
    if (gateway == 0)
        return {};
    if ((gateway & mask) != (ip & mask))
        return QStringLiteral("the gateway %1 is not in the network of %2").arg(dotted(gateway), dotted(ip));
    if (gateway == ip)
        return QStringLiteral("the gateway %1 is the adapter itself").arg(dotted(gateway));
    if (*prefix < g_bits - 1 && ((gateway & ~mask) == 0 || (gateway | mask) == ~quint32(0)))
        return QStringLiteral("the gateway %1 is no single address of its network").arg(dotted(gateway));
    return {};
}

} // namespace HmiLinux
