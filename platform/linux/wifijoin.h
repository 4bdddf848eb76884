#pragma once

#include "linux/secret.h"
#include "linux/wifireading.h"

#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

namespace HmiLinux {

/// What is to be joined, and how.
struct WifiTarget {
    WifiNetwork network; ///< without an access point where none is heard
    QString device;      ///< path
    QString interface;
    bool isOwn = false; ///< the profile of the network is the panel's own
    ProfileValues values;
    SharedSecret password; ///< as the operator typed it
};

/// One attempt to join a network, from the request to its end.
///
/// A known network is joined by its profile. A new one, or another password than the one that is kept, gets a profile
/// that the daemon drops by itself unless the attempt succeeds: what was refused is never stored. As with any
/// activation, what the device says before it prepares anew belongs to the activation before.
class WifiJoin : public QObject
{
    Q_OBJECT

public:
    /// Whether the network is heard at this moment.
    using IsHeard = std::function<bool(const QByteArray &name)>;

    WifiJoin(QDBusConnection bus, WifiTarget target, IsHeard isHeard, QObject *parent = nullptr);

    void start();
    /// Leaves it: another one takes its place, or the networks are forgotten.
    void abandon();
    void deviceChanged(const QString &device, uint state, uint reason);

    /// Deletes itself, once it has ended and nothing is left to clean up.
    void retire();

    const QByteArray &name() const { return m_target.network.name; }

signals:
    void ended(HMI::SystemSet::StateWifi state);

private:
    void compare(const QDBusMessage &secrets);
    void activate();
    void add();
    void added(const QDBusMessage &answer);
    void failed(uint reason);
    void succeeded();
    void store(const QDBusMessage &answer);
    void drop(const QString &profile);
    void end(HMI::SystemSet::StateWifi state, const QString &why = {});
    void whenAnswered(const QDBusMessage &question, void (WifiJoin::*take)(const QDBusMessage &));

    QDBusConnection m_bus;
    WifiTarget m_target;
    IsHeard m_isHeard;
    QTimer m_limit;
    QString m_profile;
    bool m_isNew = false;      ///< the profile was made for this attempt
    bool m_isAdding = false;   ///< the profile is asked for
    bool m_isAnswered = false; ///< the daemon has heard of it
    bool m_prepared = false;   ///< the device is at work for this attempt
    bool m_wasRefused = false; ///< the network has refused the password once
    bool m_isUp = false;
    bool m_hasEnded = false;
};

} // namespace HmiLinux
