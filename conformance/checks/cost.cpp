#include "conformance/checks/cost.h"

#include "conformance/checks/calllimits.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

#include <sys/resource.h>

namespace Conformance {

namespace {

constexpr int Looks = 3;
constexpr std::size_t CallsALook = 100;
constexpr std::size_t FewestCalls = 5;
constexpr double LookMilliseconds = 300;
constexpr double Percentile = 0.95;

double now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// How often the thread has given up the processor of its own accord.
long timesSlept()
{
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

double look(const std::function<void()> &call)
{
    std::vector<double> costs;
    const double begin = now(CLOCK_MONOTONIC);
    while (costs.size() < CallsALook &&
           (costs.size() < FewestCalls || now(CLOCK_MONOTONIC) - begin < LookMilliseconds))
        costs.push_back(costOf(call));
    std::sort(costs.begin(), costs.end());
    return costs[static_cast<std::size_t>(static_cast<double>(costs.size() - 1) * Percentile)];
}

} // namespace

double costOf(const std::function<void()> &call)
{
    const long slept = timesSlept();
    const double wall = now(CLOCK_MONOTONIC);
    const double processor = now(CLOCK_THREAD_CPUTIME_ID);
    call();
    const double processorUsed = now(CLOCK_THREAD_CPUTIME_ID) - processor;
    const double wallPassed = now(CLOCK_MONOTONIC) - wall;
    return timesSlept() == slept ? processorUsed : wallPassed;
}

double usualCostOf(const std::function<void()> &call, const std::function<void()> &alive)
{
    double best = look(call);
    for (int i = 1; i < Looks && best > GetterWarning; ++i) {
        alive();
        best = std::min(best, look(call));
    }
    alive();
    return best;
}

} // namespace Conformance
