#include "linux/networkreading.h"

#include "linux/nmnames.h"
#include "linux/objectmirror.h"
#include "linux/profilebook.h"
#include "linux/vpnreading.h"
#include "linux/wifireading.h"

#include <algorithm>

namespace HmiLinux {

namespace {

HMI::IP addressIn(const QVariant &value)
{
    return addressOf(value.toString()).value_or(HMI::IP());
}

HMI::MAC macIn(const QString &text)
{
    HMI::MAC mac = {};
    const QStringList bytes = text.split(QLatin1Char(':'));
    if (std::size_t(bytes.size()) != mac.size())
        return mac;
    for (int i = 0; i < bytes.size(); ++i)
        mac.at(std::size_t(i)) = static_cast<unsigned char>(bytes.at(i).toUInt(nullptr, 16));
    return mac;
}

} // namespace

NetworkReading::NetworkReading(const ObjectMirror &mirror, const ProfileBook &book)
    : m_mirror(mirror), m_book(book)
{}

AdapterState NetworkReading::adapter(HMI::SystemSet::NIC nic, const QString &interface) const
{
    AdapterState state;
    if (interface.isEmpty() || !m_mirror.isComplete())
        return state;
    if (const Profile *own = m_book.byUuid(profileUuid(nameOf(nic)))) {
        state.profile = own->path;
        state.isBoundElsewhere = !own->interface.isEmpty() && own->interface != interface;
    }
    state.device = deviceOf(interface);
    state.known = !state.device.isEmpty();
    if (state.known) {
        readDevice(&state);
        readLive(pathIn(state.device, Nm::device(), QStringLiteral("Ip4Config")), &state);
    }
    if (nic == HMI::SystemSet::WIFI)
        readWifi(&state, interface);
    state.values = valuesOf(state);
    if (nic == HMI::SystemSet::WIFI) {
        state.values.enabled = state.known && isRadioOn();
        readDefault(&state, interface);
    }
    // A port without a profile takes whatever fits; a modem without one connects to nothing.
    if (nic == HMI::SystemSet::MOBILE_4G && state.profile.isEmpty() && state.activeProfile.isEmpty())
        state.values.enabled = false;
    return state;
}

AdapterState NetworkReading::tunnel(const QString &active) const
{
    AdapterState state;
    state.known = !active.isEmpty();
    state.values.dhcp = true; // the other end gives the address
    if (!state.known)
        return state;
    state.interface = VpnReading(&m_mirror, &m_book).interface(active);
    readLive(pathIn(active, Nm::active(), QStringLiteral("Ip4Config")), &state);
    return state;
}

QString NetworkReading::deviceOf(const QString &interface) const
{
    const QStringList devices = m_mirror.pathsWith(Nm::device());
    for (const QString &device : devices) {
        if (m_mirror.property(device, Nm::device(), QStringLiteral("Interface")) == interface)
            return device;
    }
    return {};
}

void NetworkReading::readDevice(AdapterState *state) const
{
    state->deviceState = m_mirror.property(state->device, Nm::device(), QStringLiteral("State")).toUInt();
    state->interface =
        m_mirror.property(state->device, Nm::device(), QStringLiteral("IpInterface")).toString();
    state->autoconnects =
        m_mirror.property(state->device, Nm::device(), QStringLiteral("Autoconnect")).toBool();
    state->mac = macIn(hardwareAddress(state->device));
    const QString active = pathIn(state->device, Nm::device(), QStringLiteral("ActiveConnection"));
    if (active.isEmpty())
        return;
    state->activeProfile = pathIn(active, Nm::active(), QStringLiteral("Connection"));
    state->carriesDefaultRoute = m_mirror.property(active, Nm::active(), QStringLiteral("Default")).toBool();
}

QString NetworkReading::hardwareAddress(const QString &device) const
{
    // The one in use is another while a wireless device looks around, and where one was given to it.
    const QString permanent = QStringLiteral("PermHwAddress");
    const QString used = QStringLiteral("HwAddress");
    // Up to 1.22 both were told by the kind of the device alone.
    const QPair<QString, QString> sources[] = {{Nm::wired(), permanent},
                                               {Nm::wireless(), permanent},
                                               {Nm::device(), used},
                                               {Nm::wired(), used},
                                               {Nm::wireless(), used}};
    for (const QPair<QString, QString> &source : sources) {
        QString address = m_mirror.property(device, source.first, source.second).toString();
        if (!address.isEmpty())
            return address;
    }
    return {};
}

void NetworkReading::readLive(const QString &config, AdapterState *state) const
{
    // There may be no such property while nothing is in force.
    if (config.isEmpty())
        return;
    const Records addresses = recordsOf(m_mirror.property(config, Nm::ip4(), QStringLiteral("AddressData")));
    if (!addresses.isEmpty()) {
        state->live.ip = addressIn(addresses.constFirst().value(QStringLiteral("address")));
        state->live.mask = maskOf(addresses.constFirst().value(QStringLiteral("prefix")).toInt());
    }
    state->live.gateway = addressIn(m_mirror.property(config, Nm::ip4(), QStringLiteral("Gateway")));
    const Records servers = recordsOf(m_mirror.property(config, Nm::ip4(), QStringLiteral("NameserverData")));
    const auto server = [&servers](int index) {
        return addressIn(servers.value(index).value(QStringLiteral("address")));
    };
    state->liveDns = Dns{server(0), server(1)};
}

ProfileValues NetworkReading::valuesOf(const AdapterState &state) const
{
    const Profile *own = m_book.byPath(state.profile);
    if (own != nullptr && state.hasOwn())
        return own->values;
    // Until the panel has a profile of its own, the adapter is as others have set it up.
    ProfileValues values;
    if (const Profile *active = m_book.byPath(state.activeProfile))
        values = active->values;
    values.isDefault = false;
    values.enabled = state.known && state.deviceState > Nm::Unmanaged && state.autoconnects;
    return values;
}

void NetworkReading::readWifi(AdapterState *state, const QString &interface) const
{
    const WifiReading wifi(m_mirror, m_book);
    state->wifi = wifi.link(*state);
    if (const Profile *own = wifi.own(*state, interface))
        state->profile = own->path;
}

void NetworkReading::readDefault(AdapterState *state, const QString &interface) const
{
    // The adapter is chosen, whichever network it is in: all of the panel's own say the same.
    const QVector<const Profile *> owns = WifiReading(m_mirror, m_book).owns(interface);
    state->values.isDefault = std::any_of(owns.cbegin(), owns.cend(),
                                          [](const Profile *profile) { return profile->values.isDefault; });
    state->isKept = !owns.isEmpty();
    for (const Profile *profile : owns) {
        if (profile->path != state->profile)
            state->others.append(profile->path);
    }
}

bool NetworkReading::isRadioOn() const
{
    return m_mirror.property(Nm::path(), Nm::service(), QStringLiteral("WirelessEnabled")).toBool();
}

QString NetworkReading::pathIn(const QString &object, const QString &interface, const QString &name) const
{
    const QString path = m_mirror.property(object, interface, name).value<QDBusObjectPath>().path();
    return path == QLatin1String("/") ? QString() : path;
}

} // namespace HmiLinux
