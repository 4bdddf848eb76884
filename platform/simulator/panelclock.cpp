#include "simulator/panelclock.h"

#include <algorithm>
#include <atomic>
#include <ctime>
#include <limits>

#include <sys/time.h>

namespace HmiSimulator {

namespace {

/// Beyond this no panel's clock can be set, whichever way; nearer the sum with the machine's time cannot overflow.
constexpr long long LargestOffset = 0xFFFFFFFFLL;

/// Constant-initialised: the time may be asked for before this library's initialisers have run.
std::atomic<long long> offset{0};

timespec machineTime()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

} // namespace

long long PanelClock::machineSeconds()
{
    return machineTime().tv_sec;
}

void PanelClock::setOffset(long long seconds)
{
    offset.store(std::clamp(seconds, -LargestOffset, LargestOffset), std::memory_order_relaxed);
}

} // namespace HmiSimulator

extern "C" HMI_EXPORT int gettimeofday(timeval *tv, void *tz) noexcept
{
    using Seconds = std::numeric_limits<time_t>;
    const timespec now = HmiSimulator::machineTime();
    const long long seconds = now.tv_sec + HmiSimulator::offset.load(std::memory_order_relaxed);
    tv->tv_sec = static_cast<time_t>(std::clamp<long long>(seconds, Seconds::min(), Seconds::max()));
    tv->tv_usec = static_cast<suseconds_t>(now.tv_nsec / 1000);
    if (tz != nullptr)
        *static_cast<struct timezone *>(tz) = {};
    return 0;
}
