#pragma once

#include "linux/networkpiece.h"
#include "linux/published.h"
#include "linux/root.h"
#include "linux/snapshot.h"
#include "linux/vpnreading.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <memory>

namespace HmiLinux {

struct Config;

/// The tunnel to the server that the operator chose: connected while it is switched on and there is a network, tried
/// again when it fails or is lost. Its connections are those that the configuration names; they are never written.
class VpnTunnel : public QObject, public NetworkPiece
{
    Q_OBJECT

public:
    VpnTunnel(Root root, const Config &config, const Published<Snapshot> *state, const ObjectMirror *mirror,
              const ProfileBook *book, QObject *parent = nullptr);

    void attach(const QDBusConnection &bus) override;
    void interrupt() override;

    /// The operator chose otherwise: ends what is not wanted any more, and starts what is.
    void choose();
    /// Ends the tunnel to a server, and its address with it.
    void drop(HMI::SystemSet::VPNServer server);
    /// What the daemon has is otherwise than before.
    void follow();
    /// Looks whether a tunnel that is up has received anything by now: nobody tells of it.
    void look();

    VpnLinks links() const;
    /// The path of the connection in force to the chosen server; empty while there is none.
    QString active() const;

signals:
    void changed();

private slots:
    void stateChanged(const QDBusMessage &signal);

private:
    /// The tunnel to one server.
    struct End {
        QString id;      ///< of its connection; empty where there is none
        QString told;    ///< why it is not up, until it is or the operator acts
        QString dropped; ///< the connection in force that we ended ourselves
        VpnLink failure = VpnLink::NotConnected;
        bool wasUp = false;     ///< since it was last begun
        bool hasHeard = false;  ///< of WireGuard, which is up whoever is at the other end
        bool isMissing = false; ///< and this was told
    };

    VpnLink link(std::size_t place) const;
    QString activeOf(std::size_t place) const { return m_reading.active(m_ends.at(place).id); }
    void begin(std::size_t place);
    void deactivate(std::size_t place, const QString &active);
    void ended(std::size_t place, uint reason);
    void tellMissing(std::size_t place);
    bool isNews(std::size_t place, const QString &what);

    Root m_root;
    const Published<Snapshot> *m_state;
    VpnReading m_reading;
    QDBusConnection m_bus;
    std::array<End, 2> m_ends;
    std::optional<std::size_t> m_begun;  ///< asked for, not answered
    std::unique_ptr<QObject> m_requests; ///< answers die with it
    QTimer m_pause;                      ///< before it is tried again
    bool m_wasOnline = false;
};

} // namespace HmiLinux
