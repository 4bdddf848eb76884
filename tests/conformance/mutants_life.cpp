#include "hmi/systemset.h"

#include "keeping.h"
#include "mutants.h"
#include "original.h"
#include "simulator/simulator.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <thread>

using namespace Mutants;

namespace HMI {

namespace {

constexpr int QuickMilliseconds = 5;

void sleep(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

/// The panel that PANEL_SCENARIO names, or the simulator's own; in any case a quick one.
void prepare()
{
    const char *scenario = std::getenv("PANEL_SCENARIO");
    std::string error;
    if (scenario != nullptr && !HmiSimulator::loadScenario(scenario, &error)) {
        std::cerr << error << '\n';
        std::abort();
    }
    HmiSimulator::setDelays(QuickMilliseconds);
    if (const std::optional<int> level = is(Mutant::BrightCrash) ? keptLevel() : std::nullopt)
        HmiSimulator::setBright(*level);
}

/// Everything that checks must put back, as the panel really is, as one line in the file that PANEL_STATE names.
void writeState()
{
    const char *name = std::getenv("PANEL_STATE");
    if (name == nullptr)
        return;
    const HmiSimulator::Panel panel = HmiSimulator::panel();
    std::ofstream file(name, std::ios::app);
    for (const auto &[nic, adapter] : panel.adapters) {
        file << nic << ' ' << adapter.enabled << ' ' << adapter.dhcp << ' ' << adapter.live.ip << ' '
             << adapter.stored.ip << ' ' << adapter.stored.mask << ' ' << adapter.stored.gateway << ' '
             << adapter.dns.first << ' ' << adapter.dns.second << ", ";
    }
    file << panel.defaultNic << ' ' << panel.vpn.server << ' ' << panel.bright << ' ' << panel.savedBright
         << ' ' << panel.buzzer << ' ' << panel.language << ' ' << panel.wifi.connected << ' '
         << panel.wifi.joined << '\n';
}

} // namespace

SystemSet::SystemSet()
{
    if (is(Mutant::SlowStart))
        sleep(150);
    if (is(Mutant::StartCrash))
        std::abort();
    original<void(SystemSet *)>("SystemSet")(this);
    prepare();
    writeState();
}

SystemSet::~SystemSet()
{
    writeState();
    if (is(Mutant::EndCrash))
        std::abort();
    while (is(Mutant::EndHang))
        sleep(1000);
    original<void(SystemSet *)>("~SystemSet")(this);
    if (is(Mutant::ReportAfterEnd)) {
        std::thread([] {
            sleep(50);
            lastPing()(false);
        }).detach();
    }
}

} // namespace HMI
