#pragma once

#include "tests/linux/fakeobjects.h"

#include <QtCore/QPair>

/// As much of NetworkManager as wired adapters need, with what it does in the end told by the test.
class FakeNetworkManager : public FakeObjects
{
    Q_OBJECT

public:
    using Steps = QVector<QPair<uint, uint>>; ///< states of a device, each with its reason

    /// Of the property "Flags" of a profile that goes with what it is in force for.
    static constexpr uint Volatile = 0x4;

    FakeNetworkManager();

    bool publish(const QString &address);

    static QString devicePath(const QString &interface);
    /// A port with its cable in and nothing in force.
    void addPort(const QString &interface, const QString &mac);
    /// A profile that somebody stored; its path.
    QString addProfile(const HmiLinux::Sections &settings);
    void removeProfile(const QString &path);
    HmiLinux::Sections profile(const QString &path) const { return m_profiles.value(path); }
    QStringList profiles() const { return m_profiles.keys(); }
    /// What an activation of a port comes to.
    void setSteps(const Steps &steps) { m_steps = steps; }
    Steps steps() const { return m_steps; }
    void setLease(const QString &address) { m_lease = address; }
    /// Puts a port into a state, as a pulled cable does.
    void setState(const QString &interface, uint state, uint reason = 0);
    /// Pulls the cable, and what was in force with it.
    void unplug(const QString &interface);
    /// Puts a profile in force at once.
    void activate(const QString &profile, const QString &interface);
    /// Lets the next writes be refused.
    void refuseWrites(bool refuse) { m_refusesWrites = refuse; }

    /// Starts to put a profile in force, which comes to the steps that were set.
    QDBusMessage begin(const QDBusMessage &message, const QString &profile, const QString &interface);
    /// What else is to be done with a profile that comes in force; an empty one goes out of it.
    void onInForce(const std::function<void(const QString &interface, const QString &profile)> &act)
    {
        m_onInForce = act;
    }
    QDBusMessage refusal(const QDBusMessage &message) const;

    static HmiLinux::Sections wiredProfile(const QString &uuid, const QVariantMap &ipv4);

private:
    QDBusMessage addConnection(const QDBusMessage &message);
    QDBusMessage update(const QDBusMessage &message);
    QDBusMessage activateConnection(const QDBusMessage &message);
    QDBusMessage reapply(const QDBusMessage &message);
    void play(const QString &interface, const QString &profile, Steps steps, int round);
    void dropVolatile(const QString &but = {});
    void putInForce(const QString &interface, const QString &profile);
    void setActive(const QString &interface, const QString &profile);
    void clear(const QString &interface);

    QMap<QString, HmiLinux::Sections> m_profiles;
    Steps m_steps;
    QString m_lease = QStringLiteral("192.168.50.109");
    QMap<QString, int> m_rounds; ///< activations of a device so far
    std::function<void(const QString &, const QString &)> m_onInForce;
    int m_count = 0;
    bool m_refusesWrites = false;
};
