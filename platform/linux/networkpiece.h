#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusConnection>

namespace HmiLinux {

/// What takes part in the work with the daemon, and what all such have to be told.
class NetworkPiece
{
public:
    NetworkPiece() = default;
    NetworkPiece(const NetworkPiece &) = delete;
    NetworkPiece &operator=(const NetworkPiece &) = delete;
    virtual ~NetworkPiece() = default;

    /// The bus to talk on from now on; one without a name while there is none.
    virtual void attach(const QDBusConnection &bus) = 0;
    /// The daemon has gone: what is under way has failed.
    virtual void interrupt() = 0;
    /// A device says so of itself, by its path.
    virtual void deviceChanged(const QString &device, uint state, uint reason);
    /// The snapshot is a new one.
    virtual void published();
};

inline void NetworkPiece::deviceChanged(const QString & /*device*/, uint /*state*/, uint /*reason*/) {}

inline void NetworkPiece::published() {}

} // namespace HmiLinux
