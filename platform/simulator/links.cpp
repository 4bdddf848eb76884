#include "simulator/links.h"

#include "simulator/addressing.h"
#include "simulator/core.h"
#include "simulator/wifineighbourhood.h"

namespace HmiSimulator {

using HMI::SystemSet;

namespace {

constexpr int Connecting = 1;
constexpr int TearDownMilliseconds = 400;

/// After @p milliseconds, if the state is still what it is now.
void later(int milliseconds, std::function<void(Panel &)> step)
{
    Core::instance().thread().scheduleState(milliseconds,
                                            [step = std::move(step)] { Core::instance().write(step); });
}

} // namespace

void followMobile(bool on)
{
    const int delay = Core::instance().write([on](Panel &panel) {
        panel.mobile.state = on ? Connecting : 0;
        return panel.delays.mobile;
    });
    if (!on)
        return;
    later(delay, [](Panel &panel) {
        const Adapter *modem = panel.find(SystemSet::MOBILE_4G);
        if (modem == nullptr || !modem->enabled || panel.mobile.state != Connecting)
            return;
        panel.mobile.state = panel.mobile.settles;
        takeLease(panel, SystemSet::MOBILE_4G);
    });
}

void followVpn(bool on)
{
    const int delay = Core::instance().write([on](Panel &panel) {
        if (on)
            panel.vpn.state = Connecting;
        return on ? panel.delays.vpn : TearDownMilliseconds;
    });
    later(delay, [on](Panel &panel) {
        const Adapter *tunnel = panel.find(SystemSet::VPN);
        if (tunnel == nullptr || tunnel->enabled != on)
            return;
        if (!on) {
            panel.vpn.state = 0;
        } else if (panel.vpn.state == Connecting) {
            const bool europe = panel.vpn.server == SystemSet::EUROPE;
            panel.vpn.state = panel.vpn.settles[europe ? 1 : 0];
            takeLease(panel, SystemSet::VPN);
        }
    });
}

void rejoinWifi()
{
    const int delay = Core::instance().read([](const Panel &panel) { return panel.delays.connect; });
    const std::uint64_t attempt = Core::instance().beginAttempt();
    later(delay, [attempt](Panel &panel) {
        const Adapter *wifi = panel.find(SystemSet::WIFI);
        if (wifi == nullptr || !wifi->enabled || panel.wifi.connected ||
            !Core::instance().isAttempt(attempt)) {
            return;
        }
        const Network *known = knownNetwork(panel.wifi);
        if (known == nullptr)
            return;
        enter(panel.wifi, known->name);
        settleDhcp(panel, SystemSet::WIFI);
    });
}

} // namespace HmiSimulator
