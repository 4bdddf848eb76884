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
std::atomic<long long> standing{-1};

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
    standing.store(-1, std::memory_order_relaxed);
}

void PanelClock::standAt(long long seconds)
{
    standing.store(seconds, std::memory_order_relaxed);
}

} // namespace HmiSimulator

extern "C" HMI_EXPORT int gettimeofday(timeval *tv, void *tz) noexcept
{
    using Seconds = std::numeric_limits<time_t>;
    const timespec now = HmiSimulator::machineTime();
    const long long standing = HmiSimulator::standing.load(std::memory_order_relaxed);
    const long long seconds =
        standing < 0 ? now.tv_sec + HmiSimulator::offset.load(std::memory_order_relaxed) : standing;
    tv->tv_sec = static_cast<time_t>(std::clamp<long long>(seconds, Seconds::min(), Seconds::max()));
    tv->tv_usec = standing < 0 ? static_cast<suseconds_t>(now.tv_nsec / 1000) : 0;
    if (tz != nullptr)
        *static_cast<struct timezone *>(tz) = {};
    return 0;
}
