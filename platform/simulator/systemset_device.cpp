#include "hmi/systemset.h"

#include "simulator/servicecall.h"

using namespace HmiSimulator;

namespace HMI {

namespace {

/// The end of 32-bit time: panels with an older kernel cannot go beyond.
constexpr long long LatestTime = 0x7FFFFFFF;

} // namespace

bool SystemSet::setSystemTime(long seconds)
{
    action("setSystemTime", {std::to_string(seconds)});
    return core().write([seconds](Panel &panel) {
        if (panel.faults.clockRefused || seconds < 0 || seconds > LatestTime)
            return false;
        if (panel.clockStandsAt >= 0)
            panel.clockStandsAt = seconds;
        panel.clockOffset = seconds - PanelClock::machineSeconds();
        return true;
    });
}

void SystemSet::syncHwclock()
{
    action("syncHwclock");
    core().write([](Panel &panel) { panel.hardwareClockOffset = panel.clockOffset; });
}

SystemSet::Bright SystemSet::bright() const
{
    return get("bright", [](const Panel &panel) { return static_cast<Bright>(panel.bright); });
}

void SystemSet::setBright(Bright level, bool save)
{
    action("setBright", {std::to_string(level), save ? "save" : "no save"});
    if (level < BRIGHT_MIN || level > BRIGHT_MAX)
        return;
    core().write([=](Panel &panel) {
        panel.bright = level;
        if (save)
            panel.savedBright = level;
    });
}

bool SystemSet::isBuzzerOn() const
{
    return get("isBuzzerOn", [](const Panel &panel) { return panel.buzzer; });
}

void SystemSet::setBuzzerOn(bool on)
{
    action("setBuzzerOn", {text(on)});
    const int delay = core().read([](const Panel &panel) { return panel.delays.buzzer; });
    std::this_thread::sleep_for(std::chrono::milliseconds(delay));
    core().write([on](Panel &panel) { panel.buzzer = on; });
}

void SystemSet::beep(bool on) const
{
    action("beep", {text(on)});
}

SystemSet::Language SystemSet::getLanguage() const
{
    return get("getLanguage", [](const Panel &panel) { return static_cast<Language>(panel.language); });
}

void SystemSet::setLanguage(Language language)
{
    action("setLanguage", {text(language)});
    if (language != CHINESE && language != ENGLISH)
        return;
    core().write([language](Panel &panel) { panel.language = language; });
}

std::string SystemSet::getSerialNumber() const
{
    return get("getSerialNumber", [](const Panel &panel) { return panel.serialNumber; });
}

void SystemSet::reboot()
{
    action("reboot");
}

} // namespace HMI
