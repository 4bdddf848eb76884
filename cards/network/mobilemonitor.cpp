#include "cards/network/mobilemonitor.h"

#include "panel/panel.h"

#include <QtCore/QUrl>
#include <QtQuick/private/qquickimage_p.h>

namespace QSP {

namespace {

constexpr int interval = 2000;
constexpr int strongest = 100;
constexpr int percentPerBar = 20;

// A strength above the scale is no strength: the image stays empty.
QUrl signalIcon(int strength)
{
    if (strength > strongest)
        return {};
    const int bars = strength < 1 ? 0 : (strength + percentPerBar - 1) / percentPerBar;
    return QUrl(QStringLiteral("qrc:/setting/icons/singal4G_%1.png").arg(bars));
}

const char *stateSource(int state)
{
    switch (state) {
    case 0:
        // Without an entry in the catalogues, as makers of them have it.
        return "Not connected";
    case 1:
        return QT_TRANSLATE_NOOP("CardNetwork", "Connecting...");
    case 2:
        return QT_TRANSLATE_NOOP("CardNetwork", "Connection successful");
    default:
        return QT_TRANSLATE_NOOP("CardNetwork", "Unknown");
    }
}

} // namespace

MobileMonitor::MobileMonitor(QObject *timerOwner, Panel &panel)
    : m_panel(panel), m_timer(timerOwner, interval)
{
    constexpr NIC nic = HMI::SystemSet::MOBILE_4G;
    const Adapter &adapter = panel.adapter(nic);
    connect(&adapter, &Adapter::enabling, this, [this](bool enabled) {
        // Only the selected adapter is watched; selecting it later starts the refreshing.
        if (!enabled || m_panel.selected() == nic)
            setup(enabled);
    });
    // Before this the service still told the old state.
    connect(&adapter, &Adapter::enabledChanged, this, [this](bool enabled) {
        if (enabled)
            update();
    });
}

void MobileMonitor::setup(bool enable)
{
    if (!enable) {
        m_timer.stop();
        clear();
        return;
    }
    if (m_timer.ensure(this, [this] { refresh(); }))
        clear();
    if (m_timer.start())
        update();
}

void MobileMonitor::clear()
{
    if (m_signal)
        m_signal->setSource(signalIcon(0));
    m_state.show(stateSource(0));
}

void MobileMonitor::setPaused(bool paused)
{
    if (paused)
        m_timer.pause();
    else if (m_timer.resume())
        update();
}

void MobileMonitor::update()
{
    const Modem &modem = m_panel.modem();
    if (m_signal)
        m_signal->setSource(signalIcon(modem.signalStrength()));
    if (m_state.hasItem())
        m_state.show(stateSource(modem.state()));
}

void MobileMonitor::refresh()
{
    m_panel.modem().forget();
    update();
}

} // namespace QSP
