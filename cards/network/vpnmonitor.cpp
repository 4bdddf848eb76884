#include "cards/network/vpnmonitor.h"

#include "controls/combobox.h"
#include "panel/nic.h"
#include "shell/base/globalinfo.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>

#include <array>
#include <utility>

namespace QSP {

namespace {

constexpr int interval = 3000;
// By HMI::SystemSet::VPNServer.
constexpr std::array<const char *, 2> g_servers = {"Asia", "Europe"};

std::pair<const char *, QRgb> statusOf(int state)
{
    switch (state) {
    case 0:
        return {"Not connected", StatusText::normal};
    case 1:
        return {"Connecting...", StatusText::normal};
    case 2:
        return {"HMI not authorized", StatusText::error};
    case 3:
        return {"SSL Error", StatusText::error};
    case 4:
        return {"Certificate Error", StatusText::error};
    case 5:
        return {"VPN connected", StatusText::good};
    default:
        return {"Unknown Status", StatusText::error};
    }
}

} // namespace

VpnMonitor::VpnMonitor(QObject *card) : m_timer(card, interval) {}

void VpnMonitor::setServerBox(ComboBox *box)
{
    m_servers = box;
    translateServers();
    showServer();
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, this, &VpnMonitor::translateServers);
    connect(box, &ComboBox::currentIndexChanged, this, [this] {
        const int server = m_servers->currentIndex();
        if (!m_showing && server >= 0)
            emit serverChosen(server);
    });
}

void VpnMonitor::translateServers()
{
    if (!m_servers)
        return;
    QStringList names;
    for (const char *server : g_servers)
        names.append(QCoreApplication::translate("CardNetwork", server));
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        m_servers->setStringListModel(names);
    }
    if (m_servers->currentIndex() < 0)
        showServer();
}

void VpnMonitor::showServer()
{
    if (!m_servers)
        return;
    const QScopedValueRollback<bool> showing(m_showing, true);
    const int server = systemSet().getVPNServer();
    const bool known = server >= 0 && server < static_cast<int>(g_servers.size());
    m_servers->setCurrentIndex(known ? server : -1);
}

void VpnMonitor::setFontPixelSize(int size)
{
    if (m_servers)
        m_servers->setFontPixelSize(size);
}

void VpnMonitor::setServerEnabled(bool enabled)
{
    if (m_servers)
        m_servers->setEnabled(enabled);
}

void VpnMonitor::start()
{
    m_timer.ensure(this, [this] { update(); });
    m_timer.start();
    update();
}

void VpnMonitor::setPaused(bool paused)
{
    if (paused)
        m_timer.pause();
    else if (m_timer.resume())
        update();
}

void VpnMonitor::update()
{
    if (!m_state.hasItem())
        return;
    const int state = systemSet().getVPNServerState(systemSet().getVPNServer());
    const bool enabled = systemSet().isNicEnabled(HMI::SystemSet::VPN);
    // A tunnel that is switched off keeps telling its last state.
    const auto [source, color] = statusOf(enabled ? state : 0);
    m_state.show(source, color);
}

void VpnMonitor::refreshIfWatched()
{
    if (m_timer.isRunning())
        update();
}

} // namespace QSP
