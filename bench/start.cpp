// Time and memory of a start to the first painted frame of the General page,
// beside the floor: the same host with its empty page alone. Each start is a
// process of its own; floor and screen take turns.
//
// The host sets and loads its font as the demo host does. The same without that,
// where the screen has to pay for the first text of the process, is told as well.

#include "bench/benchhost.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int rounds = 15;
constexpr double ratioBudget = 1.6;
constexpr qint64 memoryBudget = 8192; // KiB

struct Start {
    qint64 nanoseconds;
    qint64 kibibytes;
};

int runOnce(const QString &mode)
{
    QElapsedTimer timer;
    timer.start();
    if (!mode.startsWith(QLatin1String("bare-")))
        BenchHost::prepareFont();
    BenchHost host;
    if (mode.endsWith(QLatin1String("screen"))) {
        host.loadScreen();
        host.open();
    } else {
        host.showEmpty();
    }
    std::printf("%lld %lld\n", static_cast<long long>(timer.nsecsElapsed()),
                static_cast<long long>(BenchHost::privateMemory()));
    return 0;
}

Start measure(const QString &mode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {mode});
    process.waitForFinished();
    const QList<QByteArray> figures = process.readAllStandardOutput().split(' ');
    return {figures.value(0).toLongLong(), figures.value(1).trimmed().toLongLong()};
}

template <class Figure> qint64 median(std::vector<Start> starts, Figure figure)
{
    std::sort(starts.begin(), starts.end(),
              [figure](const Start &a, const Start &b) { return a.*figure < b.*figure; });
    return starts[starts.size() / 2].*figure;
}

struct Comparison {
    qint64 floorTime;
    qint64 screenTime;
    qint64 memory;

    double ratio() const { return double(screenTime) / double(floorTime); }
};

Comparison compare(const QString &host)
{
    std::vector<Start> floors;
    std::vector<Start> screens;
    for (int i = 0; i < rounds; ++i) {
        floors.push_back(measure(host + QStringLiteral("floor")));
        screens.push_back(measure(host + QStringLiteral("screen")));
    }
    return {median(floors, &Start::nanoseconds), median(screens, &Start::nanoseconds),
            median(screens, &Start::kibibytes) - median(floors, &Start::kibibytes)};
}

} // namespace

int main(int argc, char **argv)
{
    BenchHost::prepareEnvironment();
    QGuiApplication application(argc, argv);
    const QString mode = application.arguments().value(1);
    if (!mode.isEmpty())
        return runOnce(mode);

    const Comparison start = compare({});
    const Comparison bare = compare(QStringLiteral("bare-"));
    BenchHost::print({{"bench", "start"},
                      {"floor_ms", start.floorTime / 1e6},
                      {"screen_ms", start.screenTime / 1e6},
                      {"ratio", start.ratio()},
                      {"ratio_budget", ratioBudget},
                      {"bare_floor_ms", bare.floorTime / 1e6},
                      {"bare_screen_ms", bare.screenTime / 1e6},
                      {"bare_ratio", bare.ratio()},
                      {"memory_over_floor_kib", start.memory},
                      {"bare_memory_over_floor_kib", bare.memory},
                      {"memory_budget_kib", memoryBudget}});
    return start.ratio() <= ratioBudget && bare.memory <= memoryBudget ? 0 : 1;
}
