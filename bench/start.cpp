// Time from the start of the process, and memory, to the first painted frame of the
// General page, beside three floors: the same host with an empty page, which
// imports Qt Quick, as the screen does, or its controls too, as most hosts do, or
// with forty texts on that. Each start is a process of its own; they take turns.
//
// The times judge nothing: they differ by half on a machine that does something else.
// bench/instructions counts what repeats.

#include "bench/benchhost.h"

#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

constexpr int rounds = 15;
constexpr qint64 memoryBudget = 1228; // KiB

struct Start {
    qint64 nanoseconds;
    qint64 kibibytes;
};

const QHash<QString, BenchHost::Floor> &floors()
{
    static const QHash<QString, BenchHost::Floor> all{
        {QStringLiteral("quick"), BenchHost::Floor::Quick},
        {QStringLiteral("controls"), BenchHost::Floor::Controls},
        {QStringLiteral("texts"), BenchHost::Floor::Texts}};
    return all;
}

/// Of a clock that all processes share.
qint64 now()
{
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

int runOnce(const QString &mode)
{
    BenchHost host;
    if (floors().contains(mode)) {
        host.showFloor(floors().value(mode));
    } else {
        host.loadScreen();
        host.open();
    }
    std::printf("%lld %lld\n", static_cast<long long>(now()),
                static_cast<long long>(BenchHost::privateMemory()));
    return 0;
}

Start measure(const QString &mode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const qint64 begin = now();
    process.start(QCoreApplication::applicationFilePath(), {mode});
    process.waitForFinished();
    const QList<QByteArray> figures = process.readAllStandardOutput().split(' ');
    return {figures.value(0).toLongLong() - begin, figures.value(1).trimmed().toLongLong()};
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

    const QStringList modes{QStringLiteral("quick"), QStringLiteral("controls"), QStringLiteral("texts"),
                            QStringLiteral("screen")};
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
                      {"texts_ms", milliseconds("texts")},
                      {"screen_ms", milliseconds("screen")},
                      {"dirty_over_quick_kib", kibibytes("screen") - kibibytes("quick")},
                      {"dirty_over_controls_kib", memory},
                      {"dirty_budget_kib", memoryBudget}});
    return memory <= memoryBudget ? 0 : 1;
}
