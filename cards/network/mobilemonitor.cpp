#include "cards/network/mobilemonitor.h"

#include "panel/nic.h"

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
        return "Not connected";
    case 1:
        return "Connecting...";
    case 2:
        return "Connection successful";
    default:
        return "Unknown";
    }
}

} // namespace

MobileMonitor::MobileMonitor(QObject *card) : m_timer(card, interval) {}

void MobileMonitor::setup(bool enable)
{
    if (!enable) {
        m_timer.stop();
        clear();
        return;
    }
    if (m_timer.ensure(this, [this] { update(); }))
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
    if (m_signal)
        m_signal->setSource(signalIcon(systemSet().get4GSignal(HMI::SystemSet::MOBILE_4G)));
    if (m_state.hasItem())
        m_state.show(stateSource(systemSet().get4GState(HMI::SystemSet::MOBILE_4G)));
}

} // namespace QSP
