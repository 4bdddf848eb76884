#include "linux/wifireading.h"

#include "linux/nmnames.h"
#include "linux/objectmirror.h"
#include "linux/profilebook.h"
#include "linux/wifiname.h"

#include <QtCore/QHash>
#include <QtDBus/QDBusArgument>

#include <algorithm>

namespace HmiLinux {

namespace {

constexpr uint g_unsaved = 0x1;
constexpr uint g_volatile = 0x4;
constexpr uint g_sae = 0x400;
constexpr int g_fullStrength = 100;

const Profile *knownAmong(const QVector<const Profile *> &profiles, const QByteArray &name)
{
    const Profile *found = nullptr;
    for (const Profile *profile : profiles) {
        if (profile->wifiName == name && (found == nullptr || profile->isOwnWifi))
            found = profile;
    }
    return found;
}

} // namespace

WifiReading::WifiReading(const ObjectMirror &mirror, const ProfileBook &book) : m_mirror(mirror), m_book(book)
{}

WifiLink WifiReading::link(const AdapterState &adapter) const
{
    WifiLink link;
    link.isJoined = adapter.deviceState == Nm::Activated;
    if (!link.isJoined)
        return link;
    const WifiNetwork joined = network(activePoint(adapter.device));
    link.strength = joined.strength;
    link.ssid = ssidOf(joined.name);
    // Between two access points, and where the name is hidden, the profile knows it.
    const Profile *profile = m_book.byPath(adapter.activeProfile);
    if (joined.name.isEmpty() && profile != nullptr)
        link.ssid = ssidOf(profile->wifiName);
    return link;
}

QVector<WifiNetwork> WifiReading::networks(const QString &device, const QString &interface) const
{
    QHash<QByteArray, WifiNetwork> byName;
    const QStringList paths = points(device);
    for (const QString &path : paths) {
        const WifiNetwork found = network(path);
        if (found.name.isEmpty())
            continue;
        const auto before = byName.constFind(found.name);
        if (before == byName.constEnd() || before->strength < found.strength)
            byName.insert(found.name, found);
    }
    const QVector<const Profile *> profiles = stored(interface);
    QVector<WifiNetwork> list;
    list.reserve(byName.size());
    for (const WifiNetwork &found : qAsConst(byName)) {
        list.append(found);
        if (const Profile *profile = knownAmong(profiles, found.name))
            list.last().profile = profile->path;
    }
    std::sort(list.begin(), list.end(), [](const WifiNetwork &a, const WifiNetwork &b) {
        return a.strength != b.strength ? a.strength > b.strength : a.name < b.name;
    });
    return list;
}

const Profile *WifiReading::known(const QByteArray &name, const QString &interface) const
{
    return knownAmong(stored(interface), name);
}

const Profile *WifiReading::own(const AdapterState &adapter, const QString &interface) const
{
    if (!adapter.activeProfile.isEmpty()) {
        const Profile *active = m_book.byPath(adapter.activeProfile);
        return active != nullptr && active->isOwnWifi && isStored(*active) ? active : nullptr;
    }
    const Profile *last = nullptr;
    const QVector<const Profile *> profiles = owns(interface);
    for (const Profile *profile : profiles) {
        if (last == nullptr || last->lastUsed < profile->lastUsed)
            last = profile;
    }
    return last;
}

QVector<const Profile *> WifiReading::owns(const QString &interface) const
{
    QVector<const Profile *> profiles = stored(interface);
    profiles.erase(std::remove_if(profiles.begin(), profiles.end(),
                                  [](const Profile *profile) { return !profile->isOwnWifi; }),
                   profiles.end());
    return profiles;
}

QVector<const Profile *> WifiReading::stored(const QString &interface) const
{
    QVector<const Profile *> profiles;
    const QStringList paths = m_mirror.pathsWith(Nm::profile());
    for (const QString &path : paths) {
        const Profile *profile = m_book.byPath(path);
        const bool isNetwork = profile != nullptr && !profile->wifiName.isEmpty();
        if (isNetwork && isStored(*profile) &&
            (profile->interface.isEmpty() || profile->interface == interface))
            profiles.append(profile);
    }
    return profiles;
}

QStringList WifiReading::points(const QString &device) const
{
    QStringList paths;
    const auto list = qdbus_cast<QList<QDBusObjectPath>>(
        m_mirror.property(device, Nm::wireless(), QStringLiteral("AccessPoints")));
    for (const QDBusObjectPath &path : list)
        paths.append(path.path());
    return paths;
}

WifiNetwork WifiReading::network(const QString &point) const
{
    const auto property = [this, &point](const QString &name) {
        return m_mirror.property(point, Nm::accessPoint(), name);
    };
    WifiNetwork network;
    network.point = point;
    network.name = wifiNameIn(property(QStringLiteral("Ssid")));
    network.strength = std::min(property(QStringLiteral("Strength")).toInt(), g_fullStrength);
    const uint wpa = property(QStringLiteral("WpaFlags")).toUInt();
    const uint rsn = property(QStringLiteral("RsnFlags")).toUInt();
    network.security = securityOf(property(QStringLiteral("Flags")).toUInt(), wpa, rsn);
    network.offersSae = ((wpa | rsn) & g_sae) != 0;
    return network;
}

QString WifiReading::activePoint(const QString &device) const
{
    return m_mirror.property(device, Nm::wireless(), QStringLiteral("ActiveAccessPoint"))
        .value<QDBusObjectPath>()
        .path();
}

bool WifiReading::isStored(const Profile &profile) const
{
    const QVariant flags = m_mirror.property(profile.path, Nm::profile(), QStringLiteral("Flags"));
    return (flags.toUInt() & (g_unsaved | g_volatile)) == 0;
}

} // namespace HmiLinux
