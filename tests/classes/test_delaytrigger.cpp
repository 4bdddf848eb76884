#include "controls/delaytrigger.h"

#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

namespace {

/// Lets the timer expire now.
void expire(DelayTrigger &trigger)
{
    QTimerEvent event(trigger.timerId());
    QCoreApplication::sendEvent(&trigger, &event);
}

} // namespace

class TestDelayTrigger : public PanelTest
{
    Q_OBJECT

private slots:
    void idleAtFirst();
    void everyCallPushesTheExpiryBack();
    void burstGivesOneCall();
    void goesOnUntilStopped();
    void nothingToCall();
    void callbackIsReplaced();
    void callbackMayReplaceItself();
};

void TestDelayTrigger::idleAtFirst()
{
    QObject parent;
    const auto *trigger = new DelayTrigger(5, &parent);
    QCOMPARE(trigger->parent(), &parent);
    QVERIFY(!trigger->isActive());
    QVERIFY(!trigger->isSingleShot());
}

void TestDelayTrigger::everyCallPushesTheExpiryBack()
{
    DelayTrigger trigger(5, nullptr);
    trigger.doWork();
    QCOMPARE(trigger.interval(), DelayTrigger::quietPeriod);
    QTest::qSleep(60);
    QVERIFY(trigger.remainingTime() <= DelayTrigger::quietPeriod - 50);
    QElapsedTimer sinceLast;
    sinceLast.start();
    trigger.doWork();
    // However long a busy machine takes from there to here.
    QVERIFY(trigger.remainingTime() + sinceLast.elapsed() > DelayTrigger::quietPeriod - 50);
}

void TestDelayTrigger::burstGivesOneCall()
{
    DelayTrigger trigger(5, nullptr);
    int calls = 0;
    trigger.setCallback([&] {
        ++calls;
        trigger.stop();
    });
    QElapsedTimer sinceLast;
    for (int i = 0; i < 3; ++i) {
        // Without the event loop, in which a busy machine could make one burst into two.
        QTest::qSleep(40);
        sinceLast.start();
        trigger.doWork();
    }
    QCOMPARE(calls, 0);
    QTRY_COMPARE(calls, 1);
    // A coarse timer may be early or late by a twentieth.
    QVERIFY2(sinceLast.elapsed() >= DelayTrigger::quietPeriod * 19 / 20,
             qPrintable(QString::number(sinceLast.elapsed())));
}

void TestDelayTrigger::goesOnUntilStopped()
{
    DelayTrigger trigger(5, nullptr);
    int calls = 0;
    trigger.setCallback([&calls] { ++calls; });
    trigger.doWork();
    expire(trigger);
    expire(trigger);
    QCOMPARE(calls, 2);
    QVERIFY(trigger.isActive());
    trigger.stop();
    QVERIFY(!trigger.isActive());
}

void TestDelayTrigger::nothingToCall()
{
    DelayTrigger trigger(5, nullptr);
    trigger.doWork();
    expire(trigger);
    trigger.setCallback({});
    expire(trigger);
    QVERIFY(trigger.isActive());
}

void TestDelayTrigger::callbackIsReplaced()
{
    DelayTrigger trigger(5, nullptr);
    int first = 0;
    int second = 0;
    const auto token = std::make_shared<int>(0);
    trigger.setCallback([&first, token] { ++first; });
    QCOMPARE(token.use_count(), 2L);
    trigger.setCallback([&second] { ++second; });
    QCOMPARE(token.use_count(), 1L);
    trigger.onTimeout();
    QCOMPARE(first, 0);
    QCOMPARE(second, 1);
}

void TestDelayTrigger::callbackMayReplaceItself()
{
    DelayTrigger trigger(5, nullptr);
    const auto kept = std::make_shared<int>(7);
    int seen = 0;
    trigger.setCallback([&trigger, &seen, kept] {
        trigger.setCallback({});
        seen = *kept;
    });
    trigger.onTimeout();
    trigger.onTimeout();
    QCOMPARE(seen, 7);
    QCOMPARE(kept.use_count(), 1L);
}

PANEL_TEST_MAIN(TestDelayTrigger)

#include "test_delaytrigger.moc"
