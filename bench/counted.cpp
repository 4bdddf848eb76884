// What the screen does by itself within some seconds, for callgrind to count: only what counted() does is. Started by
// bench/instructions, which knows what it may cost. Prints how often the Wi-Fi link was read meanwhile.

#include "bench/benchhost.h"
#include "host/glass/sight.h"

#include <QtCore/QDateTime>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <cstdio>

namespace {

constexpr int second = 1000;
constexpr int pollInterval = 2 * second;

void passTime(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The timer by which the Wi-Fi link is read while Wi-Fi is selected, which it is afterwards.
QTimer *pollTimer(BenchHost &host)
{
    host.tapText(host.menu(), QStringLiteral("Network"));
    QQuickItem *network = Sight::byClass(host.root(), "QSP::CardNetwork");
    host.tapText(network, QStringLiteral("Wi-Fi"));
    const QList<QTimer *> timers = network->findChildren<QTimer *>();
    for (QTimer *timer : timers) {
        if (timer->interval() == pollInterval && timer->isActive())
            return timer;
    }
    qFatal("Nothing reads the Wi-Fi link");
}

void waitForMiddleOfSecond()
{
    const auto past = static_cast<int>(QDateTime::currentMSecsSinceEpoch() % second);
    passTime((second + second / 2 - past) % second);
}

} // namespace

// A name that callgrind can be told, in a function that stays one.
extern "C" [[gnu::noinline]] void counted(int seconds)
{
    passTime(seconds * second);
}

// counted empty|general|wifi|closed SECONDS
int main(int argc, char **argv)
{
    BenchHost::prepareEnvironment();
    QGuiApplication application(argc, argv);
    BenchHost::prepareFont();
    const QString scene = application.arguments().value(1);
    BenchHost host;
    host.showFloor();
    int polls = 0;
    if (scene != QLatin1String("empty")) {
        host.loadScreen();
        host.open();
    }
    if (scene == QLatin1String("wifi"))
        QObject::connect(pollTimer(host), &QTimer::timeout, [&polls] { ++polls; });
    else if (scene == QLatin1String("closed"))
        host.screen()->close();
    // What the last action set going must not be counted, nor a tick be half in.
    passTime(3 * second);
    waitForMiddleOfSecond();
    polls = 0;
    counted(application.arguments().value(2).toInt());
    std::printf("%d\n", polls);
    return 0;
}
