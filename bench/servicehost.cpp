// A host that asks the service that it is linked with, and nothing else: what a
// service costs is told by two of them, one a service. Prints one figure a line.

#include "bench/answers.h"

#include "meyersingleton.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <future>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using HMI::SystemSet;

constexpr int g_calls = 5000;
constexpr int g_scans = 15;

SystemSet &panel()
{
    return MeyerSingleton<SystemSet>::instance();
}

void print(long long figure)
{
    std::printf("%lld\n", figure);
    std::fflush(stdout);
}

/// The same for all processes.
long long now()
{
    return std::chrono::steady_clock::now().time_since_epoch() / 1ns;
}

void waitForAnswers()
{
    const auto end = std::chrono::steady_clock::now() + 10s;
    for (const Answer &answer : answers()) {
        while (!answer.isTrue(panel())) {
            if (std::chrono::steady_clock::now() > end)
                qFatal("%s does not come to a true answer", answer.name);
            std::this_thread::sleep_for(100us);
        }
    }
}

/// The slowest getter's median and 95th percentile in nanoseconds, with the 30 or so of looking at the clock.
void getters()
{
    std::array<long long, 2> worst = {};
    for (const Answer &answer : answers()) {
        std::vector<long long> times;
        times.reserve(g_calls);
        for (int i = 0; i < g_calls; ++i) {
            const long long before = now();
            static_cast<void>(answer.isTrue(panel()));
            times.push_back(now() - before);
        }
        std::sort(times.begin(), times.end());
        worst[0] = std::max(worst[0], times[g_calls / 2]);
        worst[1] = std::max(worst[1], times[g_calls * 95 / 100]);
    }
    print(worst[0]);
    print(worst[1]);
}

long long field(const QString &file, const char *name)
{
    QFile status(file);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return 0;
}

/// In KiB, after all was asked for: resident, and the process's share of it.
void memory()
{
    for (int i = 0; i < 10; ++i) {
        for (const Answer &answer : answers())
            static_cast<void>(answer.isTrue(panel()));
        std::this_thread::sleep_for(100ms);
    }
    const QString file = QStringLiteral("/proc/self/smaps_rollup");
    print(field(file, "Rss:"));
    print(field(file, "Pss:"));
}

/// How often the threads of the service went to sleep again, which is how often they were woken.
long long wakeUps()
{
    const QDir tasks(QStringLiteral("/proc/self/task"));
    const QString own = QString::number(QCoreApplication::applicationPid());
    const QStringList threads = tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    long long sum = 0;
    for (const QString &thread : threads) {
        if (thread != own)
            sum += field(tasks.filePath(thread + QStringLiteral("/status")), "voluntary_ctxt_switches:");
    }
    return sum;
}

void idle(std::chrono::seconds time)
{
    std::this_thread::sleep_for(1s); // what the start left to do
    const long long before = wakeUps();
    std::this_thread::sleep_for(time);
    print(wakeUps() - before);
}

/// The moment of each report and the number of networks in it.
void scans()
{
    for (int i = 0; i < g_scans; ++i) {
        std::promise<std::size_t> count;
        long long moment = 0;
        panel().scanWifi([&count, &moment](SystemSet::WifiListCallback::argument_type list) {
            moment = now();
            count.set_value(list ? list->size() : 0);
        });
        const std::size_t found = count.get_future().get();
        print(moment);
        print(static_cast<long long>(found));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QByteArray mode = argc > 1 ? argv[1] : "";
    panel();
    // The simulator, whose memory alone is asked for, is another panel.
    if (mode != "memory")
        waitForAnswers();
    if (mode == "start") {
        print(now());
    } else if (mode == "getters") {
        getters();
    } else if (mode == "memory") {
        memory();
    } else if (mode == "idle") {
        idle(5s);
    } else if (mode == "scans") {
        scans();
    }
    return 0;
}
