#pragma once

#include "linux/snapshot.h"
#include "linux/wifisettings.h"

#include <QtCore/QVector>

namespace HmiLinux {

class ObjectMirror;
class ProfileBook;

/// One network nearby, by its strongest access point.
struct WifiNetwork {
    QByteArray name;
    int strength = 0;
    WifiSecurity security = WifiSecurity::Open;
    bool offersSae = false;
    QString point;   ///< path
    QString profile; ///< path; empty for one that is not known
};

/// What the daemon says of the networks of a wireless device, from what is known of it at this moment.
class WifiReading
{
public:
    WifiReading(const ObjectMirror &mirror, const ProfileBook &book);

    WifiLink link(const AdapterState &adapter) const;
    /// Strongest first, each name once. Hidden ones are left out: nobody could tell them apart.
    QVector<WifiNetwork> networks(const QString &device, const QString &interface) const;
    /// The profile by which a network is joined, the panel's own before somebody else's; null for an unknown one.
    const Profile *known(const QByteArray &name, const QString &interface) const;
    /// The panel's own profile of the joined network; while none is joined, of the one that was joined last.
    const Profile *own(const AdapterState &adapter, const QString &interface) const;
    /// The panel's own profiles of all networks.
    QVector<const Profile *> owns(const QString &interface) const;
    /// The stored profiles of all networks of the device, whoever made them.
    QVector<const Profile *> stored(const QString &interface) const;

private:
    QStringList points(const QString &device) const;
    WifiNetwork network(const QString &point) const;
    QString activePoint(const QString &device) const;
    bool isStored(const Profile &profile) const;

    const ObjectMirror &m_mirror;
    const ProfileBook &m_book;
};

} // namespace HmiLinux
