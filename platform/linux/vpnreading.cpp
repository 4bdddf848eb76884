#include "linux/vpnreading.h"

#include "linux/nmnames.h"
#include "linux/objectmirror.h"
#include "linux/profilebook.h"
#include "linux/root.h"
#include "linux/vpnnames.h"

#include <QtCore/QFile>
#include <QtDBus/QDBusArgument>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

namespace HmiLinux {

VpnReading::VpnReading(const ObjectMirror *mirror, const ProfileBook *book) : m_mirror(mirror), m_book(book)
{}

bool VpnReading::isComplete() const
{
    return m_mirror->isComplete() && m_book->isComplete();
}

bool VpnReading::isOnline() const
{
    const QVariant primary =
        m_mirror->property(Nm::path(), Nm::service(), QStringLiteral("PrimaryConnection"));
    const QString path = primary.value<QDBusObjectPath>().path();
    return !path.isEmpty() && path != QLatin1String("/");
}

const Profile *VpnReading::connection(const QString &id) const
{
    return id.isEmpty() ? nullptr : m_book->byId(id, {QStringLiteral("vpn"), QStringLiteral("wireguard")});
}

QString VpnReading::active(const QString &id) const
{
    const Profile *stored = connection(id);
    if (stored == nullptr)
        return {};
    const QStringList actives = m_mirror->pathsWith(Nm::active());
    for (const QString &active : actives) {
        const QVariant profile = m_mirror->property(active, Nm::active(), QStringLiteral("Connection"));
        if (profile.value<QDBusObjectPath>().path() == stored->path)
            return active;
    }
    return {};
}

bool VpnReading::isThere(const QString &active) const
{
    return m_mirror->has(active, Nm::active());
}

bool VpnReading::isWireGuard(const QString &active) const
{
    return isThere(active) && !m_mirror->has(active, Nm::vpn());
}

VpnLink VpnReading::link(const QString &active, bool hasHeard, VpnLink failure) const
{
    if (isWireGuard(active)) {
        const uint state = m_mirror->property(active, Nm::active(), QStringLiteral("State")).toUInt();
        if (state == Nm::ActiveActivated && hasHeard)
            return VpnLink::Connected;
        return state <= Nm::ActiveActivated ? VpnLink::Connecting : VpnLink::NotConnected;
    }
    const uint state = m_mirror->property(active, Nm::vpn(), QStringLiteral("VpnState")).toUInt();
    if (state == Nm::VpnActivated)
        return VpnLink::Connected;
    return state < Nm::VpnActivated ? VpnLink::Connecting : failure;
}

QString VpnReading::interface(const QString &active) const
{
    // Those of a plug-in's are what it goes over.
    if (!isWireGuard(active))
        return {};
    const auto devices = qdbus_cast<QList<QDBusObjectPath>>(
        m_mirror->property(active, Nm::active(), QStringLiteral("Devices")));
    const QString device = devices.isEmpty() ? QString() : devices.constFirst().path();
    return m_mirror->property(device, Nm::device(), QStringLiteral("Interface")).toString();
}

bool VpnReading::hasReceived(const QString &active, const Root &root) const
{
    const QString counter = QStringLiteral("/sys/class/net/%1/statistics/rx_bytes").arg(interface(active));
    return root.read(counter).value_or(QByteArray()).trimmed().toULongLong() > 0;
}

bool VpnReading::lacksCertificate(const QString &id, const Root &root) const
{
    const Profile *stored = connection(id);
    if (stored == nullptr)
        return false;
    return std::any_of(
        stored->certificates.cbegin(), stored->certificates.cend(), [&root](const QString &file) {
            struct stat found = {};
            return ::stat(QFile::encodeName(root.path(file)).constData(), &found) != 0 && errno == ENOENT;
        });
}

} // namespace HmiLinux
