#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

/// NetworkManager's names on the bus, and its numbers.
namespace HmiLinux::Nm {

inline QString service()
{
    return QStringLiteral("org.freedesktop.NetworkManager");
}

inline QString objects()
{
    return QStringLiteral("/org/freedesktop");
}

inline QString path()
{
    return QStringLiteral("/org/freedesktop/NetworkManager");
}

inline QString settingsPath()
{
    return QStringLiteral("/org/freedesktop/NetworkManager/Settings");
}

inline QString settings()
{
    return QStringLiteral("org.freedesktop.NetworkManager.Settings");
}

inline QString profile()
{
    return QStringLiteral("org.freedesktop.NetworkManager.Settings.Connection");
}

inline QString device()
{
    return QStringLiteral("org.freedesktop.NetworkManager.Device");
}

inline QString wired()
{
    return QStringLiteral("org.freedesktop.NetworkManager.Device.Wired");
}

inline QString wireless()
{
    return QStringLiteral("org.freedesktop.NetworkManager.Device.Wireless");
}

inline QString accessPoint()
{
    return QStringLiteral("org.freedesktop.NetworkManager.AccessPoint");
}

inline QString active()
{
    return QStringLiteral("org.freedesktop.NetworkManager.Connection.Active");
}

inline QString ip4()
{
    return QStringLiteral("org.freedesktop.NetworkManager.IP4Config");
}

inline QDBusMessage call(const QString &path, const QString &interface, const char *method)
{
    return QDBusMessage::createMethodCall(service(), path, interface, QLatin1String(method));
}

/// The question that sets a property.
inline QDBusMessage set(const QString &path, const QString &interface, const char *property,
                        const QVariant &value)
{
    QDBusMessage question = call(path, QStringLiteral("org.freedesktop.DBus.Properties"), "Set");
    question << interface << QString::fromLatin1(property) << QVariant::fromValue(QDBusVariant(value));
    return question;
}

/// States of a device.
enum DeviceState : uint {
    Unmanaged = 10,
    Unavailable = 20, ///< no cable
    Disconnected = 30,
    Preparing = 40,
    NeedsSecrets = 60,
    Activated = 100,
    Deactivating = 110,
    Failed = 120,
};

/// Why a device has got into a state.
enum DeviceReason : uint {
    NoLease = 5,
    NoSecrets = 7,
    RefusedByNetwork = 8,
    ProfileRemoved = 38, ///< a step from one activation to the next, not an end
    NoSuchNetwork = 53,
    NewActivation = 60, ///< also a step
};

/// How a profile is stored.
enum StoreFlag : uint {
    ToDisk = 0x1,
    InMemory = 0x2,
    BlockAutoconnect = 0x20, ///< until it is activated by somebody
};

} // namespace HmiLinux::Nm
