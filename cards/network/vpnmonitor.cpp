#include "cards/network/vpnmonitor.h"

#include "controls/combobox.h"
#include "panel/panel.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>

#include <array>
#include <utility>

namespace QSP {

namespace {

constexpr int interval = 3000;
// By HMI::SystemSet::VPNServer.
constexpr std::array<const char *, 2> g_servers = {QT_TRANSLATE_NOOP("CardNetwork", "Asia"),
                                                   QT_TRANSLATE_NOOP("CardNetwork", "Europe")};

std::pair<const char *, QColor> statusOf(int state)
{
    const Palette &palette = Palette::instance();
    switch (state) {
    case 0:
        // Without an entry in the catalogues, as makers of them have it.
        return {"Not connected", palette.text};
    case 1:
        return {QT_TRANSLATE_NOOP("CardNetwork", "Connecting..."), palette.text};
    case 2:
        return {QT_TRANSLATE_NOOP("CardNetwork", "HMI not authorized"), palette.failure};
    case 3:
        return {QT_TRANSLATE_NOOP("CardNetwork", "SSL Error"), palette.failure};
    case 4:
        return {QT_TRANSLATE_NOOP("CardNetwork", "Certificate Error"), palette.failure};
    case 5:
        return {QT_TRANSLATE_NOOP("CardNetwork", "VPN connected"), palette.success};
    default:
        return {QT_TRANSLATE_NOOP("CardNetwork", "Unknown Status"), palette.failure};
    }
}

} // namespace

VpnMonitor::VpnMonitor(QObject *timerOwner, Panel &panel) : m_panel(panel), m_timer(timerOwner, interval)
{
    const Adapter &adapter = panel.adapter(HMI::SystemSet::VPN);
    connect(&adapter, &Adapter::enabling, this, [this](bool enabled) {
        if (m_servers)
            m_servers->setEnabled(!enabled);
        update();
    });
    // Before this the service still told the old state.
    connect(&adapter, &Adapter::enabledChanged, this, &VpnMonitor::update);
    connect(&panel, &Panel::wasRead, this, &VpnMonitor::showServer);
    connect(&panel.tunnel(), &Tunnel::serverChanged, this, [this] {
        if (m_timer.isRunning())
            update();
    });
}

void VpnMonitor::setServerBox(ComboBox *box)
{
    m_servers = box;
    translateServers();
    showServer();
    box->setEnabled(!m_panel.adapter(HMI::SystemSet::VPN).isUp());
    followLanguage(this, [this] { translateServers(); });
    connect(box, &ComboBox::currentIndexChanged, this, &VpnMonitor::chooseServer);
}

void VpnMonitor::chooseServer()
{
    const int server = m_servers->currentIndex();
    if (!m_showing && server >= 0)
        m_panel.tunnel().choose(static_cast<Tunnel::Server>(server));
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
    if (m_servers->currentIndex() >= 0)
        return;
    m_panel.tunnel().forget();
    showServer();
}

void VpnMonitor::showServer()
{
    if (!m_servers)
        return;
    const QScopedValueRollback<bool> showing(m_showing, true);
    const int server = m_panel.tunnel().server();
    const bool known = server >= 0 && server < static_cast<int>(g_servers.size());
    m_servers->setCurrentIndex(known ? server : -1);
}

void VpnMonitor::start()
{
    m_timer.ensure(this, [this] { refresh(); });
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
    const int state = m_panel.tunnel().state();
    // A tunnel that is switched off keeps telling its last state.
    const auto [source, color] = statusOf(m_panel.adapter(HMI::SystemSet::VPN).isUp() ? state : 0);
    m_state.show(source, color);
}

void VpnMonitor::refresh()
{
    m_panel.adapter(HMI::SystemSet::VPN).forget();
    m_panel.tunnel().forget();
    update();
}

} // namespace QSP
