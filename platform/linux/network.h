#pragma once

#include "linux/adapterwriter.h"
#include "linux/interfaces.h"
#include "linux/modem.h"
#include "linux/objectmirror.h"
#include "linux/profilebook.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <vector>

namespace HmiLinux {

struct Config;
class Root;
class VpnTunnel;
class Wifi;

/// The daemon's side of the panel's adapters: reads what it says into snapshots, and hands it what the operator
/// wishes. Lives on the thread of the service, whose event loop it needs.
class Network : public QObject
{
    Q_OBJECT

public:
    Network(const Root &root, const Config &config, const Interfaces &interfaces, Published<Snapshot> *state,
            QObject *parent = nullptr);

    void attach(const QDBusConnection &bus);
    void detach();

    /// The writer of an adapter; null for one that cannot be set.
    AdapterWriter *writer(std::size_t place) { return m_writers.at(place); }
    /// The networks of the wireless adapter; null on a panel without one.
    Wifi *wifi() { return m_wifi; }

    /// Null on a panel without a tunnel.
    VpnTunnel *vpn() { return m_vpn; }

    /// Writes at once what is gathered.
    void finish();
    /// Whether anything that was asked for is not stored yet.
    bool isWriting() const;

signals:
    /// There is a new snapshot.
    void published();

private slots:
    void deviceStateChanged(const QDBusMessage &signal);

private:
    void mirrorChanged();
    void note();
    /// For what others than the daemon tell.
    void noteBesides();
    void publish();
    /// What the daemon has put in force by itself on adapters that were switched off goes out of it.
    void holdOff();
    /// What the daemon calls the interface of an adapter; empty on a panel without.
    QString daemonName(std::size_t place) const;

    Interfaces m_interfaces;
    Published<Snapshot> *m_state;
    ObjectMirror m_mirror;
    ProfileBook m_book;
    std::unique_ptr<Modem> m_modem; ///< null on a panel without
    VpnTunnel *m_vpn = nullptr;
    std::array<AdapterWriter *, Adapters.size()> m_writers = {};
    std::array<quint64, Adapters.size()> m_settled = {};
    Wifi *m_wifi = nullptr;
    std::vector<NetworkPiece *> m_pieces; ///< writers, radio, Wi-Fi and tunnel
    QTimer m_quiet;
    QElapsedTimer m_unpublished; ///< since the first change that is not published
    bool m_wasComplete = false;
    bool m_isReadOnly;
};

} // namespace HmiLinux
