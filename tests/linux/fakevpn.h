#pragma once

#include "tests/linux/fakenetworkmanager.h"

/// The tunnels of a daemon, by plug-ins and by WireGuard, with what becomes of them told by the test.
class FakeVpn : public QObject
{
    Q_OBJECT

public:
    using Steps = FakeNetworkManager::Steps; ///< states of a tunnel, each with its reason

    /// Lets @p daemon have tunnels from now on, which outlives this.
    explicit FakeVpn(FakeNetworkManager *daemon);

    /// Whether there is a network to go over.
    void setOnline(bool online);
    void addConnection(const QString &id, const QMap<QString, QString> &data = {});
    void addWireGuard(const QString &id, const QString &interface);
    /// What a tunnel of a plug-in comes to.
    void setSteps(const Steps &steps) { m_steps = steps; }
    void refuse(bool refuse) { m_refuses = refuse; }
    /// Brings the tunnel with that id into a state.
    void setState(const QString &id, uint state, uint reason);
    /// Has somebody else start it.
    void start(const QString &id) { activate(m_profiles.value(id)); }
    bool isActive(const QString &id) const;
    /// The ids that were started, in their order.
    QStringList started() const { return m_started; }

    static Steps connecting() { return {{1, 0}, {2, 0}, {3, 0}, {4, 0}}; }
    static Steps connected() { return connecting() + Steps{{5, 1}}; }
    static Steps failed(uint reason) { return {{1, 0}, {3, 0}, {6, reason}}; }

private:
    QString idOf(const QString &profile) const { return m_profiles.key(profile); }
    static QString activePath(const QString &id);
    QString activate(const QString &profile);
    QDBusMessage activateConnection(const QDBusMessage &message);
    QDBusMessage deactivateConnection(const QDBusMessage &message);
    void play(const QString &id, Steps steps);
    void end(const QString &id);

    FakeNetworkManager *m_daemon;
    FakeObjects::Method m_activateOthers;
    QMap<QString, QString> m_profiles;   ///< paths by id
    QMap<QString, QString> m_interfaces; ///< of WireGuard, by id
    QStringList m_active;
    QStringList m_started;
    Steps m_steps = connected();
    bool m_refuses = false;
};
