#pragma once

#include "linux/dbustypes.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>

#include <functional>

/// A daemon of the test's own: objects with properties behind an object manager, and methods as the test wants them. It answers while the event loop of its thread runs; while it does not, the daemon is frozen.
class FakeObjects : public QDBusVirtualObject
{
    Q_OBJECT

public:
    using Method = std::function<QDBusMessage(const QDBusMessage &)>;

    /// @p manager is the path of the object manager, above all other objects.
    explicit FakeObjects(QString manager = QStringLiteral("/org/freedesktop"));
    ~FakeObjects() override;

    /// Appears on the bus under @p name.
    bool publish(const QString &address, const QString &name);
    /// Leaves the bus, its objects kept.
    void vanish();

    void add(const QString &path, const HmiLinux::Sections &interfaces);
    void remove(const QString &path);
    void set(const QString &path, const QString &interface, const QVariantMap &values);
    void takeAway(const QString &path, const QString &interface, const QString &property);
    QVariant get(const QString &path, const QString &interface, const QString &property) const;
    void tell(const QString &path, const QString &interface, const QString &signal,
              const QVariantList &arguments);
    /// What a call of @p name does, on whatever object.
    void onCall(const QString &name, const Method &method) { m_methods[name] = method; }
    Method method(const QString &name) const { return m_methods.value(name); }

    /// Answers the next call of @p name with an error.
    void failOnce(const QString &name, const QString &error) { m_failures.insert(name, error); }

    /// Lets the next settings of properties be refused.
    void refuseProperties(bool refuse) { m_refusesProperties = refuse; }

    /// The names of the methods called so far, but for those that only ask.
    QStringList calls() const { return m_calls; }
    void forgetCalls() { m_calls.clear(); }

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusMessage answer(const QDBusMessage &message);

    QString m_manager;
    QString m_connectionName;
    QString m_name;
    QDBusConnection m_bus;
    QMap<QString, HmiLinux::Sections> m_objects;
    QMap<QString, Method> m_methods;
    QMap<QString, QString> m_failures;
    QStringList m_calls;
    bool m_refusesProperties = false;
};
