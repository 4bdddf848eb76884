#include "hmi/systemset.h"

#include "keeping.h"
#include "mutants.h"
#include "original.h"
#include "pastime.h"
#include "simulator/simulator.h"

#include <cstdlib>
#include <iostream>
#include <thread>

using namespace Mutants;

namespace HMI {

namespace {

constexpr int QuickMilliseconds = 5;

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
    const bool isKept = is(Mutant::BrightCrash) || is(Mutant::BrightHang);
    if (const std::optional<int> level = isKept ? keptLevel() : std::nullopt)
        HmiSimulator::setBright(*level);
}

} // namespace

SystemSet::SystemSet()
{
    if (is(Mutant::SlowStart))
        Pastime::sleep(150);
    if (is(Mutant::StartCrash))
        std::abort();
    original<void(SystemSet *)>("SystemSet")(this);
    prepare();
}

SystemSet::~SystemSet()
{
    writeState();
    if (is(Mutant::EndCrash))
        std::abort();
    while (is(Mutant::EndHang))
        Pastime::sleep(1000);
    original<void(SystemSet *)>("~SystemSet")(this);
    if (is(Mutant::ReportAfterEnd)) {
        // More than once: on a busy machine the first may come before the destructor has returned.
        std::thread([] {
            for (int i = 0; i < 40; ++i) {
                Pastime::sleep(5);
                lastPing()(false);
            }
        }).detach();
    }
}

} // namespace HMI
