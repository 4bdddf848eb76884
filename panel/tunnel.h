#pragma once

#include "panel/nic.h"
#include "panel/reading.h"

#include <QtCore/QObject>

namespace QSP {

class Adapter;

/// The VPN: which server it uses, and how far it has come. GUI thread only.
class Tunnel : public QObject
{
    Q_OBJECT

public:
    using Server = HMI::SystemSet::VPNServer;

    /// @p adapter is the VPN's. When it is switched off, the address that its server gave goes first.
    Tunnel(Adapter &adapter, QObject *parent);

    Server server() const;
    /// Of the server in use. A tunnel that is switched off keeps telling its last state.
    int state() const;
    /// Uses another server from now on.
    void choose(Server server);
    /// A new moment: what was read counts no more. Switching the adapter is one.
    void forget();

signals:
    void serverChanged();

private:
    void endAddress();

    Reading<Server> m_server;
    Reading<int> m_state;
};

} // namespace QSP
