#include "panel/tunnel.h"

#include "panel/adapter.h"
#include "shell/base/logging.h"

namespace QSP {

Tunnel::Tunnel(Adapter &adapter, QObject *parent) : QObject(parent)
{
    connect(&adapter, &Adapter::enabling, this, [this](bool enabled) {
        if (!enabled)
            endAddress();
    });
    connect(&adapter, &Adapter::enabledChanged, this, &Tunnel::forget);
}

Tunnel::Server Tunnel::server() const
{
    return m_server.get([] { return callService<&HMI::SystemSet::getVPNServer>(); });
}

int Tunnel::state() const
{
    return m_state.get([this] { return callService<&HMI::SystemSet::getVPNServerState>(server()); });
}

void Tunnel::endAddress()
{
    callService<&HMI::SystemSet::resetVPNIp>(server());
    forget();
}

void Tunnel::choose(Server server)
{
    qCDebug(logNetwork, "VPN: server %d chosen", static_cast<int>(server));
    callService<&HMI::SystemSet::setVPNServer>(server);
    callService<&HMI::SystemSet::resetVPNIp>(server);
    forget();
    emit serverChanged();
}

void Tunnel::forget()
{
    m_server.forget();
    m_state.forget();
}

} // namespace QSP
