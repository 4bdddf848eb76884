#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtGui/QGuiApplication>

namespace {

struct Idle {
    int frames = 0;
    int wakeUps = 0;
};

/// What happens until @p loop ends.
Idle watch(QQuickWindow *window, QEventLoop &loop)
{
    Idle idle;
    QObject context;
    QObject::connect(window, &QQuickWindow::frameSwapped, &context, [idle = &idle] { ++idle->frames; });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &context,
                     [idle = &idle] { ++idle->wakeUps; });
    loop.exec();
    return idle;
}

Idle watch(QQuickWindow *window, int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    return watch(window, loop);
}

/// What happens from one change of the clock on the glass to the next. In a given time a busy machine would see
/// a change more or less.
Idle watchUntilTick(QQuickWindow *window, QQuickItem *clock)
{
    QEventLoop loop;
    QObject::connect(clock, SIGNAL(currentDateTimeChanged()), &loop, SLOT(quit()));
    return watch(window, loop);
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
    QQuickItem *clock = fixture.card("QSP::CardTime");
    QVERIFY(clock);
    watchUntilTick(fixture.window(), clock);
    for (int second = 0; second < 4; ++second) {
        // The change itself is painted, once, and then nothing until the next one.
        const Idle idle = watchUntilTick(fixture.window(), clock);
        QCOMPARE(idle.frames, 1);
        // The loop wakes for the timer, and once or twice for the frame that it asks for.
        QVERIFY2(idle.wakeUps <= 5, qPrintable(QString::number(idle.wakeUps)));
    }
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
