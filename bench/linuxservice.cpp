// What the service on Linux costs a panel: from the start of a host to the first
// true answer of every getter, a getter, its memory over the simulator's, its
// threads while nothing happens, and a scan of a crowd. The daemons are the
// tests' own and run in this process; the hosts are processes of their own.

#include "tests/linux/furnishedpanel.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Figures = std::vector<long long>;

constexpr int g_rounds = 15;
constexpr int g_crowd = 200;
constexpr int g_patience = 60000;

constexpr double g_startBudget = 200;      // ms
constexpr long long g_memoryBudget = 6144; // KiB
constexpr long long g_wakeUpBudget = 0;
constexpr double g_scanBudget = 50; // ms

long long now()
{
    return std::chrono::steady_clock::now().time_since_epoch() / 1ns;
}

long long median(Figures figures)
{
    std::sort(figures.begin(), figures.end());
    return figures.at(figures.size() / 2);
}

/// Lets a host do one thing, while the daemons answer it.
Figures run(const char *host, const char *mode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QEventLoop loop;
    QObject::connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(g_patience, &process, &QProcess::kill);
    process.start(QString::fromLocal8Bit(host), {QString::fromLatin1(mode)});
    loop.exec();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s %s does not come to its end", host, mode);
    Figures figures;
    const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines) {
        if (!line.isEmpty())
            figures.push_back(line.toLongLong());
    }
    return figures;
}

/// From the start of a process, which loads the library, to the last of the first true answers.
long long startTime()
{
    Figures times;
    for (int i = 0; i < g_rounds; ++i) {
        const long long begun = now();
        times.push_back(run(PANEL_LINUX_HOST, "start").at(0) - begun);
    }
    return median(times);
}

/// In KiB, over the simulator's: resident memory, and the share of it.
std::pair<long long, long long> memoryOverSimulator()
{
    std::array<Figures, 2> over;
    for (int i = 0; i < g_rounds; ++i) {
        const Figures floor = run(PANEL_SIMULATOR_HOST, "memory");
        const Figures service = run(PANEL_LINUX_HOST, "memory");
        for (std::size_t place = 0; place < over.size(); ++place)
            over.at(place).push_back(service.at(place) - floor.at(place));
    }
    return {median(over[0]), median(over[1])};
}

/// Of scans of a crowd, from the daemon's signal that it has ended to the report: the median and the longest.
std::pair<long long, long long> scanTimes(FurnishedPanel *panel)
{
    FakeWifi &wifi = panel->wifi();
    for (int i = 0; i < g_crowd; ++i)
        wifi.appear("network " + QByteArray::number(i), 1 + i % 100);
    Figures signalled;
    const FakeObjects::Method scan = panel->network().method(QStringLiteral("RequestScan"));
    wifi.setScans(FakeWifi::Scans::Silent);
    panel->network().onCall(QStringLiteral("RequestScan"), [&](const QDBusMessage &message) {
        QTimer::singleShot(0, &panel->network(), [&wifi, &signalled] {
            signalled.push_back(now());
            wifi.endScan();
        });
        return scan(message);
    });
    const Figures reports = run(PANEL_LINUX_HOST, "scans");
    Figures times;
    for (std::size_t i = 0; i < signalled.size(); ++i) {
        if (reports.at(2 * i + 1) < g_crowd)
            qFatal("a scan found %lld networks alone", reports.at(2 * i + 1));
        times.push_back(reports.at(2 * i) - signalled.at(i));
    }
    return {median(times), *std::max_element(times.begin(), times.end())};
}

double milliseconds(long long nanoseconds)
{
    return double(nanoseconds) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    FurnishedPanel panel;
    if (!panel.start()) {
        std::fputs("bench: there is no message bus\n", stderr);
        return 2;
    }
    const double start = milliseconds(startTime());
    const Figures getters = run(PANEL_LINUX_HOST, "getters");
    const auto [resident, share] = memoryOverSimulator();
    const long long wakeUps = run(PANEL_LINUX_HOST, "idle").at(0);
    const auto [scan, longestScan] = scanTimes(&panel);
    const QJsonObject figures = {{QStringLiteral("bench"), QStringLiteral("linuxservice")},
                                 {QStringLiteral("start_ms"), start},
                                 {QStringLiteral("start_budget_ms"), g_startBudget},
                                 {QStringLiteral("slowest_getter_median_ns"), getters.at(0)},
                                 {QStringLiteral("slowest_getter_95th_ns"), getters.at(1)},
                                 {QStringLiteral("resident_over_simulator_kib"), resident},
                                 {QStringLiteral("share_over_simulator_kib"), share},
                                 {QStringLiteral("memory_budget_kib"), g_memoryBudget},
                                 {QStringLiteral("idle_wake_ups_in_5_s"), wakeUps},
                                 {QStringLiteral("idle_wake_ups_budget"), g_wakeUpBudget},
                                 {QStringLiteral("scan_of_200_ms"), milliseconds(scan)},
                                 {QStringLiteral("longest_scan_of_200_ms"), milliseconds(longestScan)},
                                 {QStringLiteral("scan_budget_ms"), g_scanBudget}};
    std::puts(QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    return start <= g_startBudget && resident <= g_memoryBudget && wakeUps <= g_wakeUpBudget &&
                   milliseconds(longestScan) <= g_scanBudget
               ? 0
               : 1;
}
