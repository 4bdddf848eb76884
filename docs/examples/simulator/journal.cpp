#include "meyersingleton.h"
#include "simulator/simulator.h"

#include <algorithm>
#include <cstdio>

namespace {

/// In a test of the screen these come from taps on it.
void operatorTaps()
{
    HMI::SystemSet &service = MeyerSingleton<HMI::SystemSet>::instance();
    service.setDHCP(HMI::SystemSet::LAN0, true, {}, true);
    service.setIp(HMI::SystemSet::LAN0, 0xC0A8010A, true);
    service.setDefaultNIC(HMI::SystemSet::LAN1, false);
    service.setBright(static_cast<HMI::SystemSet::Bright>(17), false);

    HMI::SSID name{};
    const std::string letters = "Works Hall";
    std::copy(letters.begin(), letters.end(), name.begin());
    service.connectWifi(name, "not in the journal", {});
}

} // namespace

int main()
{
    HmiSimulator::reset();         // default panel, no faults, journal empty
    HmiSimulator::setManual(true); // no report comes by itself
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].dhcp = true;
        panel.bright = 99; // values that the service should never answer are fine
        panel.faults.of(HmiSimulator::Operation::Ping).delivery = HmiSimulator::Delivery::Twice;
    });

    operatorTaps();

    for (const std::string &call : HmiSimulator::calls()) // what was called, in order
        std::puts(call.c_str());
    if (HmiSimulator::pending().front() != "setDHCP(LAN0)") // which reports wait, oldest first
        return 1;
    return HmiSimulator::fireNext("setDHCP") ? 0 : 1; // makes it, on the simulator's thread
}
