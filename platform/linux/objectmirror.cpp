#include "linux/objectmirror.h"

#include "linux/ask.h"
#include "linux/log.h"

#include <QtDBus/QDBusArgument>

namespace HmiLinux {

namespace {

const QString &managerInterface()
{
    static const QString name = QStringLiteral("org.freedesktop.DBus.ObjectManager");
    return name;
}

} // namespace

ObjectMirror::ObjectMirror(QString service, QString manager, QObject *parent)
    : QObject(parent)
    , m_service(std::move(service))
    , m_manager(std::move(manager))
    , m_bus(QString())
    , m_retry(this)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryTime);
    connect(&m_retry, &QTimer::timeout, this, &ObjectMirror::fetch);
}

void ObjectMirror::attach(const QDBusConnection &bus)
{
    m_bus = bus;
    const QString busName = QStringLiteral("org.freedesktop.DBus");
    m_bus.connect(busName, QStringLiteral("/org/freedesktop/DBus"), busName,
                  QStringLiteral("NameOwnerChanged"), {m_service}, QString(), this,
                  SLOT(ownerChanged(QDBusMessage)));
    m_bus.connect(m_service, m_manager, managerInterface(), QStringLiteral("InterfacesAdded"), this,
                  SLOT(interfacesAdded(QDBusMessage)));
    m_bus.connect(m_service, m_manager, managerInterface(), QStringLiteral("InterfacesRemoved"), this,
                  SLOT(interfacesRemoved(QDBusMessage)));
    m_bus.connect(m_service, QString(), QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("PropertiesChanged"), this, SLOT(propertiesChanged(QDBusMessage)));
    fetch();
}

void ObjectMirror::detach()
{
    m_bus = QDBusConnection(QString());
    clear();
}

QStringList ObjectMirror::pathsWith(const QString &interface) const
{
    QStringList paths;
    for (auto object = m_objects.cbegin(); object != m_objects.cend(); ++object) {
        if (object->contains(interface))
            paths.append(object.key());
    }
    paths.sort();
    return paths;
}

bool ObjectMirror::has(const QString &path, const QString &interface) const
{
    const auto object = m_objects.constFind(path);
    return object != m_objects.constEnd() && object->contains(interface);
}

QVariant ObjectMirror::property(const QString &path, const QString &interface, const QString &name) const
{
    const auto object = m_objects.constFind(path);
    return object == m_objects.constEnd() ? QVariant() : object->value(interface).value(name);
}

void ObjectMirror::fetch()
{
    const int round = ++m_round;
    const QDBusMessage question = QDBusMessage::createMethodCall(m_service, m_manager, managerInterface(),
                                                                 QStringLiteral("GetManagedObjects"));
    ask(m_bus, question, this, [this, round](const QDBusMessage &answer) {
        if (round != m_round)
            return;
        if (isError(answer)) {
            // For one that is not there, the signal of a new owner makes up for it.
            if (isUnanswered(answer))
                m_retry.start();
            if (!m_told)
                qCWarning(busLog, "%s does not answer: %s", qPrintable(m_service),
                          qPrintable(reasonOf(answer)));
            m_told = true;
            emit changed();
            return;
        }
        m_told = true; // one that was there and restarts is no fault
        m_objects.clear();
        const auto objects = qdbus_cast<ManagedObjects>(answer.arguments().value(0));
        for (auto object = objects.cbegin(); object != objects.cend(); ++object)
            m_objects.insert(object.key().path(), *object);
        m_complete = true;
        emit changed();
    });
}

void ObjectMirror::clear()
{
    ++m_round;
    m_retry.stop();
    const bool wasComplete = m_complete;
    m_complete = false;
    m_objects.clear();
    if (wasComplete)
        emit changed();
}

void ObjectMirror::ownerChanged(const QDBusMessage &signal)
{
    const QString newOwner = signal.arguments().value(2).toString();
    clear();
    if (newOwner.isEmpty()) {
        qCInfo(busLog, "%s has gone", qPrintable(m_service));
        return;
    }
    fetch();
}

void ObjectMirror::interfacesAdded(const QDBusMessage &signal)
{
    if (!m_complete)
        return;
    const QString path = qdbus_cast<QDBusObjectPath>(signal.arguments().value(0)).path();
    const auto added = qdbus_cast<Sections>(signal.arguments().value(1));
    Sections &object = m_objects[path];
    for (auto interface = added.cbegin(); interface != added.cend(); ++interface)
        object.insert(interface.key(), *interface);
    emit changed();
}

void ObjectMirror::interfacesRemoved(const QDBusMessage &signal)
{
    if (!m_complete)
        return;
    const auto object = m_objects.find(qdbus_cast<QDBusObjectPath>(signal.arguments().value(0)).path());
    if (object == m_objects.end())
        return;
    const QStringList interfaces = signal.arguments().value(1).toStringList();
    for (const QString &interface : interfaces)
        object->remove(interface);
    if (object->isEmpty())
        m_objects.erase(object);
    emit changed();
}

void ObjectMirror::propertiesChanged(const QDBusMessage &signal)
{
    const auto object = m_objects.find(signal.path());
    if (!m_complete || object == m_objects.end())
        return;
    const QString interface = signal.arguments().value(0).toString();
    const auto section = object->find(interface);
    if (section == object->end())
        return;
    const auto values = qdbus_cast<QVariantMap>(signal.arguments().value(1));
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        section->insert(value.key(), *value);
    const QStringList invalid = signal.arguments().value(2).toStringList();
    for (const QString &name : invalid)
        section->remove(name);
    emit changed();
}

} // namespace HmiLinux
