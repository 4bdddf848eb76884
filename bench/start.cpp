// Time and memory from loading the plug-in to the first painted frame of the
// General page, beside two floors: the same host with an empty page alone, which
// imports Qt Quick, as the screen does, or its controls too, as most hosts do.
// Each start is a process of its own; they take turns.
//
// The times judge nothing: they differ by half on a machine that does something else.
// bench/instructions counts what repeats.

#include "bench/benchhost.h"

#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int rounds = 15;
constexpr qint64 memoryBudget = 1228; // KiB

struct Start {
    qint64 nanoseconds;
    qint64 kibibytes;
};

int runOnce(const QString &mode)
{
    QElapsedTimer timer;
    timer.start();
    BenchHost host;
    if (mode == QLatin1String("screen")) {
        host.loadScreen();
        host.open();
    } else {
        host.showEmpty(mode == QLatin1String("quick") ? BenchHost::Imports::Quick
                                                      : BenchHost::Imports::Controls);
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
    if (!mode.isEmpty())
        return runOnce(mode);

    const QStringList modes{QStringLiteral("quick"), QStringLiteral("controls"), QStringLiteral("screen")};
    QHash<QString, std::vector<Start>> starts;
    for (int i = 0; i < rounds; ++i) {
        for (const QString &each : modes)
            starts[each].push_back(measure(each));
    }
    const auto milliseconds = [&starts](const char *each) {
        return median(starts[QLatin1String(each)], &Start::nanoseconds) / 1e6;
    };
    const auto kibibytes = [&starts](const char *each) {
        return median(starts[QLatin1String(each)], &Start::kibibytes);
    };
    const qint64 memory = kibibytes("screen") - kibibytes("controls");
    BenchHost::print({{"bench", "start"},
                      {"quick_ms", milliseconds("quick")},
                      {"controls_ms", milliseconds("controls")},
                      {"screen_ms", milliseconds("screen")},
                      {"dirty_over_quick_kib", kibibytes("screen") - kibibytes("quick")},
                      {"dirty_over_controls_kib", memory},
                      {"dirty_budget_kib", memoryBudget}});
    return memory <= memoryBudget ? 0 : 1;
}
