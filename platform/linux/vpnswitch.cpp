#include "linux/vpnswitch.h"

#include "linux/config.h"
#include "linux/log.h"

namespace HmiLinux {

using HMI::SystemSet;

VpnSwitch::VpnSwitch(Root root, const Config &config, Published<Snapshot> *state, Later later)
    : m_root(std::move(root))
    , m_stateFile(config.stateDirectory + QStringLiteral("/vpn"))
    , m_state(state)
    , m_later(std::move(later))
{
    const QList<QByteArray> words = m_root.read(m_stateFile).value_or(QByteArray()).simplified().split(' ');
    m_kept.isOn = words.constFirst() == "on";
    m_kept.server = words.constLast() == "europe" ? SystemSet::EUROPE : SystemSet::ASIA;
    m_state->change([this](Snapshot &snapshot) { snapshot.vpn = m_kept; });
}

void VpnSwitch::setOn(bool on, bool persist)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_state->change([on](Snapshot &snapshot) { snapshot.vpn.isOn = on; });
    if (!persist || m_kept.isOn == on)
        return;
    m_kept.isOn = on;
    keep();
}

void VpnSwitch::setServer(SystemSet::VPNServer server)
{
    if (server != SystemSet::ASIA && server != SystemSet::EUROPE)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_state->change([server](Snapshot &snapshot) { snapshot.vpn.server = server; });
    if (m_kept.server == server)
        return;
    m_kept.server = server;
    keep();
}

void VpnSwitch::keep()
{
    QByteArray contents = m_kept.isOn ? "on" : "off";
    contents += m_kept.server == SystemSet::EUROPE ? " europe\n" : " asia\n";
    m_later([this, contents] {
        if (!m_root.replace(m_stateFile, contents))
            qCWarning(vpnLog, "the choice of the tunnel cannot be kept in %s",
                      qPrintable(m_root.path(m_stateFile)));
    });
}

} // namespace HmiLinux
