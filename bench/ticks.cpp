// What the screen does while nobody touches it: frames painted and wake-ups of the event loop.

#include "bench/benchhost.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

namespace {

constexpr int seconds = 4;

struct Idle {
    int frames = 0;
    int wakeUps = 0;
};

Idle watch(BenchHost &host)
{
    Idle idle;
    QEventLoop loop;
    // What the last action set going must not be counted as rest.
    QTimer::singleShot(700, &loop, &QEventLoop::quit);
    loop.exec();
    QObject context;
    QObject::connect(host.window(), &QQuickWindow::frameSwapped, &context, [&idle] { ++idle.frames; });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &context,
                     [&idle] { ++idle.wakeUps; });
    QTimer::singleShot(seconds * 1000, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return idle;
}

} // namespace

int main(int argc, char **argv)
{
    BenchHost::prepareEnvironment();
    QGuiApplication application(argc, argv);
    BenchHost::prepareFont();
    BenchHost host;
    host.showFloor();
    const Idle floor = watch(host);
    host.loadScreen();
    host.open();

    const Idle general = watch(host);
    host.tapText(host.menu(), QStringLiteral("Version"));
    const Idle version = watch(host);
    host.screen()->close();
    const Idle closed = watch(host);

    BenchHost::print({{"bench", "ticks"},
                      {"seconds", seconds},
                      {"floor_frames", floor.frames},
                      {"floor_wakeups", floor.wakeUps},
                      {"general_frames", general.frames},
                      {"general_wakeups", general.wakeUps},
                      {"version_frames", version.frames},
                      {"version_wakeups", version.wakeUps},
                      {"closed_frames", closed.frames},
                      {"closed_wakeups", closed.wakeUps}});
    return general.frames == seconds ? 0 : 1;
}
