#include "tests/linux/fakeobjects.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>

using HmiLinux::ManagedObjects;
using HmiLinux::Sections;

namespace {

QString manager()
{
    return QStringLiteral("org.freedesktop.DBus.ObjectManager");
}

QString properties()
{
    return QStringLiteral("org.freedesktop.DBus.Properties");
}

} // namespace

FakeObjects::FakeObjects(QString manager) : m_manager(std::move(manager)), m_bus(QString())
{
    HmiLinux::registerBusTypes();
}

FakeObjects::~FakeObjects()
{
    vanish();
}

bool FakeObjects::publish(const QString &address, const QString &name)
{
    static int count = 0;
    m_connectionName = QStringLiteral("fake-%1").arg(++count);
    m_name = name;
    m_bus = QDBusConnection::connectToBus(address, m_connectionName);
    return m_bus.isConnected() && m_bus.registerVirtualObject(m_manager, this, QDBusConnection::SubPath) &&
           m_bus.registerService(name);
}

void FakeObjects::vanish()
{
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_connectionName);
}

void FakeObjects::add(const QString &path, const Sections &interfaces)
{
    m_objects[path] = interfaces;
    tell(m_manager, manager(), QStringLiteral("InterfacesAdded"),
         {QVariant::fromValue(QDBusObjectPath(path)), QVariant::fromValue(interfaces)});
}

void FakeObjects::remove(const QString &path)
{
    const QStringList interfaces = m_objects.take(path).keys();
    tell(m_manager, manager(), QStringLiteral("InterfacesRemoved"),
         {QVariant::fromValue(QDBusObjectPath(path)), interfaces});
}

void FakeObjects::set(const QString &path, const QString &interface, const QVariantMap &values)
{
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        m_objects[path][interface].insert(value.key(), *value);
    tell(path, properties(), QStringLiteral("PropertiesChanged"), {interface, values, QStringList()});
}

void FakeObjects::takeAway(const QString &path, const QString &interface, const QString &property)
{
    m_objects[path][interface].remove(property);
    tell(path, properties(), QStringLiteral("PropertiesChanged"),
         {interface, QVariantMap(), QStringList{property}});
}

QVariant FakeObjects::get(const QString &path, const QString &interface, const QString &property) const
{
    return m_objects.value(path).value(interface).value(property);
}

void FakeObjects::tell(const QString &path, const QString &interface, const QString &signal,
                       const QVariantList &arguments)
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage message = QDBusMessage::createSignal(path, interface, signal);
    message.setArguments(arguments);
    m_bus.send(message);
}

QString FakeObjects::introspect(const QString &) const
{
    return {};
}

bool FakeObjects::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    return connection.send(answer(message));
}

QDBusMessage FakeObjects::answer(const QDBusMessage &message)
{
    const QString member = message.member();
    const QString failure = m_failures.take(member);
    if (!failure.isEmpty())
        return message.createErrorReply(failure, member);
    if (member == QLatin1String("GetManagedObjects")) {
        ManagedObjects objects;
        for (auto object = m_objects.cbegin(); object != m_objects.cend(); ++object)
            objects.insert(QDBusObjectPath(object.key()), *object);
        return message.createReply(QVariant::fromValue(objects));
    }
    if (!member.startsWith(QLatin1String("Get")))
        m_calls.append(member);
    if (message.interface() == properties() && member == QLatin1String("Set")) {
        if (m_refusesProperties)
            return message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("refused"));
        const QVariantList arguments = message.arguments();
        set(message.path(), arguments.value(0).toString(),
            {{arguments.value(1).toString(), qdbus_cast<QDBusVariant>(arguments.value(2)).variant()}});
        return message.createReply();
    }
    const auto method = m_methods.constFind(member);
    if (method == m_methods.constEnd())
        return message.createErrorReply(QDBusError::UnknownMethod, member);
    return (*method)(message);
}
