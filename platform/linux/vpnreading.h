#pragma once

#include "linux/vpnstate.h"

#include <QtCore/QString>

namespace HmiLinux {

class ObjectMirror;
class ProfileBook;
class Root;
struct Profile;

/// What the daemon says of tunnels, by the id of their stored connection.
class VpnReading
{
public:
    VpnReading(const ObjectMirror *mirror, const ProfileBook *book);

    /// Whether all is known that it says.
    bool isComplete() const;
    /// Whether there is a network for a tunnel to go over.
    bool isOnline() const;
    /// Null where there is no tunnel with that id.
    const Profile *connection(const QString &id) const;
    /// The path of the connection in force; empty while there is none.
    QString active(const QString &id) const;
    bool isThere(const QString &active) const;
    /// Whether it is WireGuard's, which is up whoever is at the other end.
    bool isWireGuard(const QString &active) const;
    /// The interface of WireGuard's; empty for a plug-in's, of which the daemon does not tell it.
    QString interface(const QString &active) const;
    /// How far a connection in force is. @p hasHeard is of WireGuard, @p failure of one that has failed.
    VpnLink link(const QString &active, bool hasHeard, VpnLink failure) const;
    /// Whether anything was received over the interface of a connection in force.
    bool hasReceived(const QString &active, const Root &root) const;
    /// Whether a file that the connection needs is not there. One that only the daemon may see is.
    bool lacksCertificate(const QString &id, const Root &root) const;

private:
    const ObjectMirror *m_mirror;
    const ProfileBook *m_book;
};

} // namespace HmiLinux
