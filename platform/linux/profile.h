#pragma once

#include "linux/addressrules.h"
#include "linux/dbustypes.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace HmiLinux {

/// What an operator sets on a wired adapter.
struct ProfileValues {
    bool enabled = true;
    bool dhcp = true;
    Addresses stored; ///< the static ones; kept while a lease is in force
    Dns dns;          ///< own servers; 0 where those of the lease serve
    bool isDefault = false;

    friend bool operator==(const ProfileValues &a, const ProfileValues &b)
    {
        return a.enabled == b.enabled && a.dhcp == b.dhcp && a.stored == b.stored && a.dns == b.dns &&
               a.isDefault == b.isDefault;
    }
    friend bool operator!=(const ProfileValues &a, const ProfileValues &b) { return !(a == b); }
};

/// A stored connection of the daemon, as far as this service looks into it. Secrets are never part of it.
struct Profile {
    QString path;
    QString uuid;
    QString id; ///< the name that people call it by
    QString type;
    QString interface; ///< empty for one of any device
    ProfileValues values;
    // Of a network alone.
    QByteArray wifiName;    ///< empty for all else
    bool isOwnWifi = false; ///< the panel has made it
    qulonglong lastUsed = 0;
    QStringList certificates; ///< files that a tunnel needs
};

/// What the settings of the profile at @p path say.
Profile readProfile(const QString &path, const Sections &settings);

/// Settings with @p values in place of what they said; all else in them stays.
Sections withValues(Sections settings, const ProfileValues &values);

/// What the settings of each new profile of this panel have in common.
Sections newSettings(const QString &adapter, const QString &type);
/// The same for an adapter of one interface, which takes leases.
Sections newSettings(const QString &adapter, const QString &type, const QString &interface);
QString wifiType();

/// The settings of a new profile for a wired adapter of this panel.
Sections newWiredSettings(const QString &adapter, const QString &interface);

/// The same on each start, so that an adapter never has two profiles of ours.
QString profileUuid(const QString &adapter);

} // namespace HmiLinux
