#pragma once

#include <chrono>
#include <ctime>
#include <thread>

/// Ways to let time pass, in milliseconds.
namespace Pastime {

inline void sleep(double milliseconds)
{
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
}

/// What the calling thread has had of the processor.
inline double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Uses so much of the processor, however busy it is with others.
inline void work(double milliseconds)
{
    const double end = processorTime() + milliseconds;
    while (processorTime() < end) {
    }
}

} // namespace Pastime
