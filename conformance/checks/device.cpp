#include "conformance/checks/calllimits.h"
#include "conformance/checks/check.h"
#include "conformance/checks/cost.h"
#include "conformance/checks/functions.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <ctime>
#include <thread>

using HMI::SystemSet;

namespace Conformance {

namespace {

int level()
{
    return service().bright();
}

/// Waits for the thread also when something is thrown beside it.
class JoinedThread
{
public:
    explicit JoinedThread(std::function<void()> work) : m_thread(std::move(work)) {}
    ~JoinedThread() { m_thread.join(); }
    JoinedThread(const JoinedThread &) = delete;
    JoinedThread &operator=(const JoinedThread &) = delete;

private:
    std::thread m_thread;
};

} // namespace

void Checks::brightnessValue(Check &check)
{
    check.expectRange("bright", level(), SystemSet::BRIGHT_MIN, SystemSet::BRIGHT_MAX);
}

void Checks::brightnessLevels(Check &check)
{
    constexpr int SaveEvery = 8; // saving may write to flash
    for (int wanted = SystemSet::BRIGHT_MIN; wanted <= SystemSet::BRIGHT_MAX; ++wanted) {
        const int before = level();
        service().setBright(static_cast<SystemSet::Bright>(wanted), wanted % SaveEvery == 0);
        if (!check.takes<int>("setBright", "bright", level, before, wanted, Check::When::AtCall))
            return;
    }
}

void Checks::brightnessLimits(Check &check)
{
    const int before = level();
    for (const int outside : {0, 33, 99, -1}) {
        service().setBright(static_cast<SystemSet::Bright>(outside), true);
        check.expect("setBright", level(), before);
    }
}

void Checks::buzzerBeep(Check &check)
{
    constexpr std::size_t Beeps = 5;
    if (!service().isBuzzerOn())
        return check.skipped("the buzzer is off");
    std::array<double, Beeps> costs{};
    for (double &cost : costs)
        cost = costOf([] { service().beep(true); });
    std::sort(costs.begin(), costs.end());
    const double median = costs[Beeps / 2];
    if (median > BeepLimit)
        check.failed("beep", "back within " + milliseconds(BeepLimit), milliseconds(median));
}

void Checks::buzzerSwitching(Check &check)
{
    const auto isOn = [] { return service().isBuzzerOn(); };
    const bool before = isOn();
    for (const bool wanted : {!before, before}) {
        // From another thread, as the screen does.
        {
            const JoinedThread thread([wanted] { service().setBuzzerOn(wanted); });
        }
        if (!check.takes<bool>("setBuzzerOn", "isBuzzerOn", isOn, !wanted, wanted, Check::When::AtCall))
            return;
    }
}

void Checks::buzzerThreads(Check &check)
{
    constexpr int Times = 50;
    const SystemSet &panel = service();
    const int bright = panel.bright();
    const int mask = panel.getAllNIC();
    const std::string serial = panel.getSerialNumber();
    std::atomic<bool> isDone{false};
    const JoinedThread writer([&isDone] {
        for (int i = 0; i < Times; ++i)
            service().setBuzzerOn(i % 2 == 0);
        isDone = true;
    });
    bool isSame = true;
    do {
        panel.isBuzzerOn();
        isSame = isSame && check.expect("bright", static_cast<int>(panel.bright()), bright) &&
                 check.expect("getAllNIC", panel.getAllNIC(), mask);
        if (isSame && panel.getSerialNumber() != serial) {
            check.failed("getSerialNumber", "the same as before", "another");
            isSame = false;
        }
    } while (!isDone);
}

void Checks::languageValue(Check &check)
{
    check.expectRange("getLanguage", service().getLanguage(), SystemSet::CHINESE, SystemSet::ENGLISH);
}

void Checks::languageSwitching(Check &check)
{
    const auto language = [] { return static_cast<int>(service().getLanguage()); };
    for (const SystemSet::Language wanted : {SystemSet::CHINESE, SystemSet::ENGLISH, SystemSet::CHINESE}) {
        const int before = language();
        service().setLanguage(wanted);
        if (!check.takes<int>("setLanguage", "getLanguage", language, before, wanted, Check::When::AtCall))
            return;
    }
}

void Checks::identitySerial(Check &check)
{
    const std::string serial = service().getSerialNumber();
    check.expectUtf8("getSerialNumber", serial);
    if (service().getSerialNumber() != serial)
        check.failed("getSerialNumber", "the same at every look", "another");
    if (serial.empty())
        check.note("the serial number is not known");
}

void Checks::clockSet(Check &check)
{
    if (service().setSystemTime(static_cast<long>(std::time(nullptr))))
        service().syncHwclock();
    else
        check.refused("setSystemTime", "true", "false");
}

void Checks::clockLimits(Check &check)
{
    using Clock = std::chrono::steady_clock; // goes on while the other is wrong
    const long time = static_cast<long>(std::time(nullptr));
    const Clock::time_point begin = Clock::now();
    if (!service().setSystemTime(-1))
        return;
    check.failed("setSystemTime", "false for a second before 1970", "true");
    const auto passed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin);
    service().setSystemTime(time + static_cast<long>(passed.count()));
}

} // namespace Conformance
