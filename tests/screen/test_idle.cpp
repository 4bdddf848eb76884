#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtGui/QGuiApplication>

namespace {

struct Idle {
    int frames = 0;
    int wakeUps = 0;
};

Idle watch(QQuickWindow *window, int milliseconds)
{
    Idle idle;
    QObject context;
    QObject::connect(window, &QQuickWindow::frameSwapped, &context, [idle = &idle] { ++idle->frames; });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &context,
                     [idle = &idle] { ++idle->wakeUps; });
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return idle;
}

} // namespace

/// A screen that nobody touches: the clock, once a second, and nothing else.
class TestIdle : public PanelTest
{
    Q_OBJECT

private slots:
    void generalPageRepaintsOnceASecond();
    void otherPagesDoNotRepaint();
};

void TestIdle::generalPageRepaintsOnceASecond()
{
    HmiSimulator::reset();
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    fixture.open();
    Operator::settle(500);
    const int seconds = 4;
    const Idle idle = watch(fixture.window(), seconds * 1000);
    QCOMPARE(idle.frames, seconds);
    // A tick wakes the loop once for the timer and once or twice for the frame it asks for.
    QVERIFY2(idle.wakeUps <= 4 * seconds + 4, qPrintable(QString::number(idle.wakeUps)));
}

void TestIdle::otherPagesDoNotRepaint()
{
    HmiSimulator::reset();
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    Operator::settle(500);
    QCOMPARE(watch(fixture.window(), 2200).frames, 0);
    fixture.close();
    Operator::settle(200);
    QCOMPARE(watch(fixture.window(), 2200).frames, 0);
}

PANEL_TEST_MAIN(TestIdle)

#include "test_idle.moc"
