#include "tests/linux/fakenetworkmanager.h"

#include "tests/linux/text.h"

#include "linux/nmnames.h"

#include <QtCore/QTimer>
#include <QtDBus/QDBusArgument>

#include <algorithm>

using namespace HmiLinux;

namespace {

QVariant objectPath(const QString &path)
{
    return QVariant::fromValue(QDBusObjectPath(path));
}

QString interfaceOf(const QString &device)
{
    return device.section(QLatin1Char('/'), -1);
}

QString configPath(const QString &interface)
{
    return Nm::path() + text("/IP4Config/") + interface;
}

QString activePath(const QString &interface)
{
    return Nm::path() + text("/ActiveConnection/") + interface;
}

/// A map that came over the bus keeps its inner values packed; they are unpacked for the test to look at.
Sections unpacked(Sections settings)
{
    QVariantMap &ipv4 = settings[text("ipv4")];
    ipv4.insert(text("address-data"), QVariant::fromValue(recordsOf(ipv4.value(text("address-data")))));
    ipv4.insert(text("dns"), QVariant::fromValue(qdbus_cast<QList<uint>>(ipv4.value(text("dns")))));
    QVariantMap &user = settings[text("user")];
    user.insert(text("data"),
                QVariant::fromValue(qdbus_cast<QMap<QString, QString>>(user.value(text("data")))));
    return settings;
}

} // namespace

FakeNetworkManager::FakeNetworkManager() : m_steps({{Nm::Preparing, 0}, {50, 0}, {70, 0}, {Nm::Activated, 0}})
{
    onCall(text("GetSettings"), [this](const QDBusMessage &message) {
        if (!m_profiles.contains(message.path()))
            return refusal(message);
        return message.createReply(QVariant::fromValue(m_profiles.value(message.path())));
    });
    onCall(text("AddConnection2"), [this](const QDBusMessage &message) { return addConnection(message); });
    onCall(text("Update2"), [this](const QDBusMessage &message) { return update(message); });
    onCall(text("ActivateConnection"),
           [this](const QDBusMessage &message) { return activateConnection(message); });
    onCall(text("Reapply"), [this](const QDBusMessage &message) { return reapply(message); });
    onCall(text("Disconnect"), [this](const QDBusMessage &message) {
        const QString interface = interfaceOf(message.path());
        clear(interface);
        setState(interface, Nm::Disconnected, 39);
        return message.createReply();
    });
}

bool FakeNetworkManager::publish(const QString &address)
{
    return FakeObjects::publish(address, Nm::service());
}

QString FakeNetworkManager::devicePath(const QString &interface)
{
    return Nm::path() + text("/Devices/") + interface;
}

void FakeNetworkManager::addPort(const QString &interface, const QString &mac)
{
    add(devicePath(interface), {{Nm::device(),
                                 {{text("Interface"), interface},
                                  {text("State"), uint(Nm::Disconnected)},
                                  {text("Autoconnect"), true},
                                  {text("HwAddress"), mac},
                                  {text("ActiveConnection"), objectPath(text("/"))}}},
                                {Nm::wired(), {{text("Carrier"), true}}}});
}

QString FakeNetworkManager::addProfile(const Sections &settings)
{
    QString path = Nm::settingsPath() + text("/%1").arg(++m_count);
    m_profiles[path] = settings;
    add(path, {{Nm::profile(), {{text("Unsaved"), false}, {text("Flags"), 0U}}}});
    return path;
}

void FakeNetworkManager::removeProfile(const QString &path)
{
    if (m_profiles.remove(path) > 0)
        remove(path);
}

void FakeNetworkManager::setState(const QString &interface, uint state, uint reason)
{
    const QString device = devicePath(interface);
    const uint before = get(device, Nm::device(), text("State")).toUInt();
    set(device, Nm::device(), {{text("State"), state}});
    tell(device, Nm::device(), text("StateChanged"), {state, before, reason});
    if (state <= Nm::Disconnected && reason != Nm::NewActivation)
        dropVolatile();
}

void FakeNetworkManager::unplug(const QString &interface)
{
    clear(interface);
    setState(interface, Nm::Unavailable, 40);
}

void FakeNetworkManager::activate(const QString &profile, const QString &interface)
{
    putInForce(interface, profile);
    setState(interface, Nm::Activated);
}

Sections FakeNetworkManager::wiredProfile(const QString &uuid, const QVariantMap &ipv4)
{
    return {{text("connection"),
             {{text("id"), uuid}, {text("uuid"), uuid}, {text("type"), text("802-3-ethernet")}}},
            {text("ipv4"), ipv4}};
}

QDBusMessage FakeNetworkManager::addConnection(const QDBusMessage &message)
{
    const Sections settings = unpacked(qdbus_cast<Sections>(message.arguments().constFirst()));
    const QVariant uuid = settings.value(text("connection")).value(text("uuid"));
    const bool isThere =
        std::any_of(m_profiles.cbegin(), m_profiles.cend(), [&uuid](const Sections &profile) {
            return profile.value(text("connection")).value(text("uuid")) == uuid;
        });
    if (m_refusesWrites || isThere)
        return refusal(message);
    const QString path = addProfile(settings);
    QDBusMessage reply = message.createReply();
    reply << objectPath(path) << QVariantMap();
    return reply;
}

QDBusMessage FakeNetworkManager::update(const QDBusMessage &message)
{
    if (m_refusesWrites)
        return refusal(message);
    m_profiles[message.path()] = unpacked(qdbus_cast<Sections>(message.arguments().constFirst()));
    if ((message.arguments().value(1).toUInt() & Nm::ToDisk) != 0)
        set(message.path(), Nm::profile(), {{text("Flags"), 0U}});
    tell(message.path(), Nm::profile(), text("Updated"), {});
    return message.createReply(QVariantMap());
}

QDBusMessage FakeNetworkManager::activateConnection(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const QString profile = qdbus_cast<QDBusObjectPath>(arguments.value(0)).path();
    if (!m_profiles.contains(profile))
        return refusal(message);
    return begin(message, profile, interfaceOf(qdbus_cast<QDBusObjectPath>(arguments.value(1)).path()));
}

QDBusMessage FakeNetworkManager::begin(const QDBusMessage &message, const QString &profile,
                                       const QString &interface)
{
    clear(interface);
    dropVolatile(profile);
    play(interface, profile, m_steps, ++m_rounds[interface]);
    return message.createReply(objectPath(activePath(interface)));
}

QDBusMessage FakeNetworkManager::reapply(const QDBusMessage &message)
{
    const QString interface = interfaceOf(message.path());
    const QString active =
        get(message.path(), Nm::device(), text("ActiveConnection")).value<QDBusObjectPath>().path();
    putInForce(interface, get(active, Nm::active(), text("Connection")).value<QDBusObjectPath>().path());
    return message.createReply();
}

QDBusMessage FakeNetworkManager::refusal(const QDBusMessage &message) const
{
    return message.createErrorReply(text("org.freedesktop.NetworkManager.Settings.PermissionDenied"),
                                    text("refused"));
}

void FakeNetworkManager::play(const QString &interface, const QString &profile, Steps steps, int round)
{
    if (steps.isEmpty() || round != m_rounds.value(interface) || !m_profiles.contains(profile))
        return;
    const QPair<uint, uint> step = steps.takeFirst();
    if (step.first == Nm::Activated)
        putInForce(interface, profile);
    setState(interface, step.first, step.second);
    QTimer::singleShot(0, this, [=] { play(interface, profile, steps, round); });
}

void FakeNetworkManager::dropVolatile(const QString &but)
{
    const QStringList paths = m_profiles.keys();
    for (const QString &path : paths) {
        const uint flags = get(path, Nm::profile(), text("Flags")).toUInt();
        if (path != but && (flags & Volatile) != 0)
            removeProfile(path);
    }
}

void FakeNetworkManager::putInForce(const QString &interface, const QString &profile)
{
    const QVariantMap ipv4 = m_profiles.value(profile).value(text("ipv4"));
    const bool isManual = ipv4.value(text("method")) == text("manual");
    const Records stored = recordsOf(ipv4.value(text("address-data")));
    const QString address =
        isManual && !stored.isEmpty() ? stored.constFirst().value(text("address")).toString() : m_lease;
    const QVariant prefix =
        isManual && !stored.isEmpty() ? stored.constFirst().value(text("prefix")) : QVariant(24U);
    const QString gateway = isManual ? ipv4.value(text("gateway")).toString()
                                     : m_lease.left(m_lease.lastIndexOf(QLatin1Char('.'))) + text(".1");
    const Records addresses{{{text("address"), address}, {text("prefix"), prefix}}};
    if (address.isEmpty() || ipv4.value(text("method")) == text("disabled"))
        return setActive(interface, profile);
    add(configPath(interface),
        {{Nm::ip4(),
          {{text("AddressData"), QVariant::fromValue(addresses)},
           {text("Gateway"), gateway},
           {text("NameserverData"), QVariant::fromValue(Records{{{text("address"), gateway}}})}}}});
    set(devicePath(interface), Nm::device(), {{text("Ip4Config"), objectPath(configPath(interface))}});
    setActive(interface, profile);
}

void FakeNetworkManager::setActive(const QString &interface, const QString &profile)
{
    add(activePath(interface),
        {{Nm::active(), {{text("Connection"), objectPath(profile)}, {text("Default"), false}}}});
    set(devicePath(interface), Nm::device(), {{text("ActiveConnection"), objectPath(activePath(interface))}});
    if (m_onInForce)
        m_onInForce(interface, profile);
}

void FakeNetworkManager::clear(const QString &interface)
{
    set(devicePath(interface), Nm::device(), {{text("ActiveConnection"), objectPath(text("/"))}});
    takeAway(devicePath(interface), Nm::device(), text("Ip4Config"));
    remove(activePath(interface));
    remove(configPath(interface));
    if (m_onInForce)
        m_onInForce(interface, {});
}
