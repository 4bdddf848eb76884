#include "linux/systemset_p.h"

#include "linux/log.h"
#include "linux/worker.h"

#include <atomic>
#include <chrono>
#include <future>

using namespace HmiLinux;

namespace HMI {

namespace {

// The operator waits for it, and timedated may have to be started first.
constexpr std::chrono::milliseconds g_clockLimit{1000};

// What was asked cannot be taken back: once it is, its answer is waited for.
constexpr std::chrono::milliseconds g_answerLimit{4000};

struct ClockWait {
    enum State { Starting, Asked, Ended };

    /// Whether the time may still be asked for.
    bool ask()
    {
        State before = Starting;
        return state.compare_exchange_strong(before, Asked) || before == Asked;
    }
    /// Whether nothing was asked, and nothing will be.
    bool giveUp()
    {
        State before = Starting;
        return state.compare_exchange_strong(before, Ended);
    }

    std::promise<bool> outcome;
    std::atomic<State> state{Starting};
};

} // namespace

bool SystemSet::setSystemTime(long seconds)
{
    if (!Clock::canHold(seconds) ||
        d->onlyTells(QStringLiteral("set the clock to %1 s since 1970").arg(seconds)))
        return false;
    const auto waiting = std::make_shared<ClockWait>();
    std::future<bool> set = waiting->outcome.get_future();
    d->service.later([this, seconds, waiting] {
        d->service.worker().clock().set(
            seconds, [waiting](bool succeeded) { waiting->outcome.set_value(succeeded); },
            [waiting] { return waiting->ask(); });
    });
    if (set.wait_for(g_clockLimit) == std::future_status::ready)
        return set.get();
    if (!waiting->giveUp() && set.wait_for(g_answerLimit) == std::future_status::ready)
        return set.get();
    waiting->state = ClockWait::Ended;
    qCWarning(clockLog, "timedated does not answer in time");
    return false;
}

void SystemSet::syncHwclock()
{
    // timedated has done so together with the system clock.
}

SystemSet::Bright SystemSet::bright() const
{
    return static_cast<Bright>(d->service.brightness().level());
}

void SystemSet::setBright(Bright level, bool save)
{
    if (!d->onlyTells(QStringLiteral("set the brightness to %1").arg(level)))
        d->service.brightness().setLevel(level, save);
}

bool SystemSet::isBuzzerOn() const
{
    return d->service.buzzer().isOn();
}

void SystemSet::setBuzzerOn(bool on)
{
    const QString state = on ? QStringLiteral("beep") : QStringLiteral("be silent");
    if (!d->onlyTells(QStringLiteral("let keys ") + state))
        d->service.buzzer().setOn(on);
}

void SystemSet::beep(bool on) const
{
    if (on && !d->service.isReadOnly())
        d->service.later([this] { d->service.worker().beeper().beep(); });
}

SystemSet::Language SystemSet::getLanguage() const
{
    return d->service.language().language();
}

void SystemSet::setLanguage(Language language)
{
    const QString name = language == CHINESE ? QStringLiteral("Chinese") : QStringLiteral("English");
    if (!d->onlyTells(QStringLiteral("make the language ") + name))
        d->service.language().setLanguage(language);
}

std::string SystemSet::getSerialNumber() const
{
    return d->service.serialNumber();
}

void SystemSet::reboot()
{
    if (!d->onlyTells(QStringLiteral("restart the device")))
        d->service.later([this] { d->service.worker().power().reboot(); });
}

} // namespace HMI
