#include "linux/profile.h"

#include "linux/wifiname.h"

#include <QtCore/QtEndian>
#include <QtCore/QUuid>
#include <QtDBus/QDBusArgument>

namespace HmiLinux {

namespace {

using Texts = QMap<QString, QString>;

// A wired adapter without a choice has 100: the chosen one is preferred to all of them.
constexpr qint64 g_defaultMetric = 50;
constexpr qint64 g_anyMetric = -1;
// Ends before the operator has been left waiting too long, with the reason "no lease".
constexpr int g_leaseLimit = 30;
// A profile of ours wins over those that others made.
constexpr int g_priority = 100;

// Where the static addresses are while the profile takes leases. In the profile's own list they would be added to
// the lease.
const QString &ipKey()
{
    static const QString key = QStringLiteral("panelsettings.address");
    return key;
}

const QString &maskKey()
{
    static const QString key = QStringLiteral("panelsettings.netmask");
    return key;
}

const QString &gatewayKey()
{
    static const QString key = QStringLiteral("panelsettings.gateway");
    return key;
}

// Which adapter of the panel a profile was made for.
const QString &adapterKey()
{
    static const QString key = QStringLiteral("panelsettings.adapter");
    return key;
}

HMI::IP addressIn(const QString &text)
{
    return addressOf(text).value_or(HMI::IP());
}

const QString &dnsKey()
{
    static const QString key = QStringLiteral("panelsettings.dns");
    return key;
}

const QString &secondDnsKey()
{
    static const QString key = QStringLiteral("panelsettings.dns2");
    return key;
}

Addresses staticAddresses(const QVariantMap &ipv4)
{
    const Records list = recordsOf(ipv4.value(QStringLiteral("address-data")));
    if (list.isEmpty())
        return {};
    const QVariantMap &first = list.constFirst();
    return {addressIn(first.value(QStringLiteral("address")).toString()),
            maskOf(first.value(QStringLiteral("prefix")).toInt()),
            addressIn(ipv4.value(QStringLiteral("gateway")).toString())};
}

Addresses keptAddresses(const Texts &data)
{
    return {addressIn(data.value(ipKey())), addressIn(data.value(maskKey())),
            addressIn(data.value(gatewayKey()))};
}

void keep(Texts *data, const QString &key, HMI::IP address)
{
    if (address == 0)
        data->remove(key);
    else
        data->insert(key, dotted(address));
}

Dns serversIn(const QVariantMap &ipv4)
{
    const auto list = qdbus_cast<QList<uint>>(ipv4.value(QStringLiteral("dns")));
    return {HMI::IP(qFromBigEndian<quint32>(list.value(0))), HMI::IP(qFromBigEndian<quint32>(list.value(1)))};
}

QStringList certificatesIn(const QVariantMap &vpn)
{
    const auto data = qdbus_cast<Texts>(vpn.value(QStringLiteral("data")));
    QStringList files;
    for (const QString &key : {QStringLiteral("ca"), QStringLiteral("cert"), QStringLiteral("key")}) {
        const QString file = data.value(key);
        if (file.startsWith(QLatin1Char('/')))
            files.append(file);
    }
    return files;
}

QList<uint> serverList(const Dns &dns)
{
    QList<uint> list;
    for (const HMI::IP server : {dns.first, dns.second}) {
        if (server != 0)
            list.append(qToBigEndian<quint32>(server));
    }
    return list;
}

/// Switched to static addresses without having one: the daemon takes no servers for that.
bool isWithoutAddress(const ProfileValues &values)
{
    return !values.dhcp && values.stored.ip == 0;
}

void putAddresses(QVariantMap *ipv4, const ProfileValues &values)
{
    // The older form of the list would be read in place of the new one.
    ipv4->remove(QStringLiteral("addresses"));
    const bool isManual = !values.dhcp && !isWithoutAddress(values);
    Records list;
    if (isManual) {
        list.append({{QStringLiteral("address"), dotted(values.stored.ip)},
                     {QStringLiteral("prefix"), uint(prefixOf(values.stored.mask).value_or(0))}});
    }
    ipv4->insert(QStringLiteral("address-data"), QVariant::fromValue(list));
    if (isManual && values.stored.gateway != 0)
        ipv4->insert(QStringLiteral("gateway"), dotted(values.stored.gateway));
    else
        ipv4->remove(QStringLiteral("gateway"));
    const QString byHand = isManual ? QStringLiteral("manual") : QStringLiteral("disabled");
    ipv4->insert(QStringLiteral("method"), values.dhcp ? QStringLiteral("auto") : byHand);
    // An adapter counts as up when it has its IPv4 address, not when it has any.
    ipv4->insert(QStringLiteral("may-fail"), isWithoutAddress(values));
}

void readNetwork(Profile *profile, const Sections &settings, const Texts &data)
{
    const QVariantMap wireless = settings.value(wifiType());
    const QString infrastructure = QStringLiteral("infrastructure");
    if (profile->type != wifiType() ||
        wireless.value(QStringLiteral("mode"), infrastructure).toString() != infrastructure)
        return;
    profile->wifiName = wifiNameIn(wireless.value(QStringLiteral("ssid")));
    profile->isOwnWifi = data.value(adapterKey()) == QLatin1String("WIFI");
}

} // namespace

Profile readProfile(const QString &path, const Sections &settings)
{
    const QVariantMap connection = settings.value(QStringLiteral("connection"));
    const QVariantMap ipv4 = settings.value(QStringLiteral("ipv4"));
    const QVariantMap user = settings.value(QStringLiteral("user"));
    Profile profile;
    profile.path = path;
    profile.uuid = connection.value(QStringLiteral("uuid")).toString();
    profile.id = connection.value(QStringLiteral("id")).toString();
    profile.type = connection.value(QStringLiteral("type")).toString();
    profile.interface = connection.value(QStringLiteral("interface-name")).toString();
    profile.lastUsed = connection.value(QStringLiteral("timestamp")).toULongLong();
    // The daemon leaves out what has its default.
    profile.values.enabled = connection.value(QStringLiteral("autoconnect"), true).toBool();
    profile.values.dhcp =
        ipv4.value(QStringLiteral("method"), QStringLiteral("auto")).toString() == QLatin1String("auto");
    profile.values.stored = staticAddresses(ipv4);
    const auto kept = qdbus_cast<Texts>(user.value(QStringLiteral("data")));
    if (profile.values.stored == Addresses())
        profile.values.stored = keptAddresses(kept);
    profile.values.dns = isWithoutAddress(profile.values)
                             ? Dns{addressIn(kept.value(dnsKey())), addressIn(kept.value(secondDnsKey()))}
                             : serversIn(ipv4);
    readNetwork(&profile, settings, kept);
    profile.values.isDefault =
        ipv4.value(QStringLiteral("route-metric"), g_anyMetric).toLongLong() == g_defaultMetric;
    profile.certificates = certificatesIn(settings.value(QStringLiteral("vpn")));
    return profile;
}

Sections withValues(Sections settings, const ProfileValues &values)
{
    settings[QStringLiteral("connection")].insert(QStringLiteral("autoconnect"), values.enabled);

    QVariantMap &ipv4 = settings[QStringLiteral("ipv4")];
    putAddresses(&ipv4, values);
    ipv4.remove(QStringLiteral("dns-data")); // read in place of "dns" by newer daemons
    const QList<uint> servers = isWithoutAddress(values) ? QList<uint>() : serverList(values.dns);
    ipv4.insert(QStringLiteral("dns"), QVariant::fromValue(servers));
    ipv4.insert(QStringLiteral("ignore-auto-dns"), !servers.isEmpty());
    ipv4.insert(QStringLiteral("route-metric"), values.isDefault ? g_defaultMetric : g_anyMetric);

    QVariantMap &user = settings[QStringLiteral("user")];
    auto data = qdbus_cast<Texts>(user.value(QStringLiteral("data")));
    keep(&data, ipKey(), values.stored.ip);
    keep(&data, maskKey(), values.stored.mask);
    keep(&data, gatewayKey(), values.stored.gateway);
    keep(&data, dnsKey(), values.dns.first);
    keep(&data, secondDnsKey(), values.dns.second);
    user.insert(QStringLiteral("data"), QVariant::fromValue(data));
    return settings;
}

Sections newSettings(const QString &adapter, const QString &type)
{
    Sections settings;
    QVariantMap &connection = settings[QStringLiteral("connection")];
    connection.insert(QStringLiteral("id"), QStringLiteral("Panel ") + adapter);
    connection.insert(QStringLiteral("type"), type);
    connection.insert(QStringLiteral("autoconnect-priority"), g_priority);
    // A server that is silent when the panel starts is asked again, for as long as it takes.
    connection.insert(QStringLiteral("autoconnect-retries"), 0);
    settings[QStringLiteral("user")].insert(QStringLiteral("data"),
                                            QVariant::fromValue(Texts{{adapterKey(), adapter}}));
    // Nothing here is set for IPv6. Waited for, it would fail an adapter without an IPv4 address where no router is.
    settings[QStringLiteral("ipv6")].insert(QStringLiteral("method"), QStringLiteral("ignore"));
    return settings;
}

Sections newSettings(const QString &adapter, const QString &type, const QString &interface)
{
    Sections settings = newSettings(adapter, type);
    settings[QStringLiteral("connection")].insert(QStringLiteral("interface-name"), interface);
    settings[QStringLiteral("ipv4")].insert(QStringLiteral("dhcp-timeout"), g_leaseLimit);
    return settings;
}

QString wifiType()
{
    return QStringLiteral("802-11-wireless");
}

Sections newWiredSettings(const QString &adapter, const QString &interface)
{
    const QString type = QStringLiteral("802-3-ethernet");
    Sections settings = newSettings(adapter, type, interface);
    settings[QStringLiteral("connection")].insert(QStringLiteral("uuid"), profileUuid(adapter));
    settings[type];
    return settings;
}

QString profileUuid(const QString &adapter)
{
    static const QUuid space(QStringLiteral("{5f0a3c52-1d0e-4b6b-9a0c-6f2f3a9d7e41}"));
    return QUuid::createUuidV5(space, adapter).toString(QUuid::WithoutBraces);
}

} // namespace HmiLinux
