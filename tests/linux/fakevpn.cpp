#include "tests/linux/fakevpn.h"

#include "tests/linux/text.h"

#include "linux/nmnames.h"
#include "linux/vpnnames.h"

#include <QtCore/QTimer>
#include <QtDBus/QDBusArgument>

using namespace HmiLinux;

namespace {

QVariant objectPath(const QString &path)
{
    return QVariant::fromValue(QDBusObjectPath(path));
}

QString configPath(const QString &id)
{
    return Nm::path() + text("/IP4Config/tunnel_") + id;
}

Sections settingsOf(const QString &id, const QString &type)
{
    return {{text("connection"), {{text("id"), id}, {text("uuid"), id}, {text("type"), type}}},
            {text("ipv4"), {{text("method"), text("auto")}}}};
}

} // namespace

FakeVpn::FakeVpn(FakeNetworkManager *daemon)
    : m_daemon(daemon), m_activateOthers(daemon->method(text("ActivateConnection")))
{
    m_daemon->onCall(text("ActivateConnection"),
                     [this](const QDBusMessage &message) { return activateConnection(message); });
    m_daemon->onCall(text("DeactivateConnection"),
                     [this](const QDBusMessage &message) { return deactivateConnection(message); });
    setOnline(true);
}

void FakeVpn::setOnline(bool online)
{
    const QString primary = online ? Nm::path() + text("/ActiveConnection/lan0") : text("/");
    m_daemon->set(Nm::path(), Nm::service(), {{text("PrimaryConnection"), objectPath(primary)}});
}

void FakeVpn::addConnection(const QString &id, const QMap<QString, QString> &data)
{
    Sections settings = settingsOf(id, text("vpn"));
    settings[text("vpn")].insert(text("data"), QVariant::fromValue(data));
    m_profiles[id] = m_daemon->addProfile(settings);
}

void FakeVpn::addWireGuard(const QString &id, const QString &interface)
{
    m_profiles[id] = m_daemon->addProfile(settingsOf(id, text("wireguard")));
    m_interfaces[id] = interface;
}

void FakeVpn::setState(const QString &id, uint state, uint reason)
{
    const QString active = activePath(id);
    if (state == Nm::VpnActivated) {
        const Records addresses{{{text("address"), text("10.88.3.61")}, {text("prefix"), 16U}}};
        m_daemon->add(configPath(id), {{Nm::ip4(), {{text("AddressData"), QVariant::fromValue(addresses)}}}});
        m_daemon->set(active, Nm::active(), {{text("Ip4Config"), objectPath(configPath(id))}});
    }
    m_daemon->set(active, Nm::vpn(), {{text("VpnState"), state}});
    m_daemon->tell(active, Nm::vpn(), text("VpnStateChanged"), {state, reason});
    if (state > Nm::VpnActivated)
        end(id);
}

bool FakeVpn::isActive(const QString &id) const
{
    return m_active.contains(id);
}

QString FakeVpn::activePath(const QString &id)
{
    return Nm::path() + text("/ActiveConnection/tunnel_") + id;
}

QString FakeVpn::activate(const QString &profile)
{
    const QString id = idOf(profile);
    QString active = activePath(id);
    m_started.append(id);
    m_active.append(id);
    QVariantMap properties{{text("Connection"), objectPath(profile)},
                           {text("Default"), false},
                           {text("State"), uint(Nm::ActiveActivating)},
                           {text("Ip4Config"), objectPath(text("/"))}};
    if (!m_interfaces.contains(id)) {
        m_daemon->add(active, {{Nm::active(), properties}, {Nm::vpn(), {{text("VpnState"), 0U}}}});
        play(id, m_steps);
        return active;
    }
    const QString device = FakeNetworkManager::devicePath(m_interfaces.value(id));
    m_daemon->add(device, {{Nm::device(), {{text("Interface"), m_interfaces.value(id)}}}});
    properties.insert(text("Devices"), QVariant::fromValue(QList<QDBusObjectPath>{QDBusObjectPath(device)}));
    m_daemon->add(active, {{Nm::active(), properties}});
    m_daemon->set(active, Nm::active(), {{text("State"), uint(Nm::ActiveActivated)}});
    return active;
}

QDBusMessage FakeVpn::activateConnection(const QDBusMessage &message)
{
    const QString profile = qdbus_cast<QDBusObjectPath>(message.arguments().value(0)).path();
    if (idOf(profile).isEmpty())
        return m_activateOthers(message);
    if (m_refuses)
        return message.createErrorReply(text("org.freedesktop.NetworkManager.PermissionDenied"),
                                        text("refused"));
    return message.createReply(objectPath(activate(profile)));
}

QDBusMessage FakeVpn::deactivateConnection(const QDBusMessage &message)
{
    const QString active = qdbus_cast<QDBusObjectPath>(message.arguments().value(0)).path();
    const QStringList ids = m_active; // which ending one changes
    for (const QString &id : ids) {
        if (activePath(id) != active)
            continue;
        if (m_interfaces.contains(id))
            end(id);
        else
            setState(id, Nm::VpnDisconnected, 2);
        return message.createReply();
    }
    return message.createErrorReply(text("org.freedesktop.NetworkManager.ConnectionNotActive"),
                                    text("it is not active"));
}

void FakeVpn::play(const QString &id, Steps steps)
{
    if (steps.isEmpty() || !isActive(id))
        return;
    const QPair<uint, uint> step = steps.takeFirst();
    setState(id, step.first, step.second);
    QTimer::singleShot(0, this, [=] { play(id, steps); });
}

void FakeVpn::end(const QString &id)
{
    m_active.removeAll(id);
    m_daemon->remove(activePath(id));
    m_daemon->remove(configPath(id));
}
