// Time and memory from loading the plug-in to the first painted frame of the
// General page, beside the floor: the same host with its empty page alone.
// Each start is a process of its own; floor and screen take turns.

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

int runOnce(bool withScreen)
{
    QElapsedTimer timer;
    timer.start();
    BenchHost host;
    if (withScreen) {
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

} // namespace

int main(int argc, char **argv)
{
    BenchHost::prepareEnvironment();
    QGuiApplication application(argc, argv);
    const QString mode = application.arguments().value(1);
    if (mode == QLatin1String("floor") || mode == QLatin1String("screen"))
        return runOnce(mode == QLatin1String("screen"));

    std::vector<Start> floors;
    std::vector<Start> screens;
    for (int i = 0; i < rounds; ++i) {
        floors.push_back(measure(QStringLiteral("floor")));
        screens.push_back(measure(QStringLiteral("screen")));
    }
    const qint64 floorTime = median(floors, &Start::nanoseconds);
    const qint64 screenTime = median(screens, &Start::nanoseconds);
    const qint64 memory = median(screens, &Start::kibibytes) - median(floors, &Start::kibibytes);
    const double ratio = double(screenTime) / double(floorTime);
    BenchHost::print({{"bench", "start"},
                      {"floor_ms", floorTime / 1e6},
                      {"screen_ms", screenTime / 1e6},
                      {"ratio", ratio},
                      {"ratio_budget", ratioBudget},
                      {"memory_over_floor_kib", memory},
                      {"memory_budget_kib", memoryBudget}});
    return ratio <= ratioBudget && memory <= memoryBudget ? 0 : 1;
}
