#include "simulatortest.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>

#include <atomic>
#include <chrono>
#include <limits>
#include <thread>

/// The panel's wall clock is that of the whole program: what Qt calls the present follows it.
class TestSimulatorClock : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        beginWatch();
    }
    void cleanup()
    {
        HmiSimulator::reset();
        endWatch();
    }

    void runsOnFromWhatWasSet();
    void refusedTimeChangesNothing();
    void resetPutsItBack();
    void scenarioSetsIt();
    void standsWhereItIsTold();
    void hardwareClockIsAnother();
    void otherClocksAreLeftAlone();
    void reportsComeInTheirTime();
    void farAway_data();
    void farAway();
    void readWhileItIsSet();
};

namespace {

constexpr long FarAhead = 1925000000; // 2031-01-01 02:13:20 UTC
constexpr long long Tolerance = 5;    // seconds that a busy machine may let pass between two lines of a test

long long panelSeconds()
{
    return QDateTime::currentSecsSinceEpoch();
}

long long machineSeconds()
{
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

long long ahead()
{
    return panelSeconds() - machineSeconds();
}

bool isAhead(long long seconds)
{
    return qAbs(ahead() - seconds) <= 1;
}

} // namespace

void TestSimulatorClock::runsOnFromWhatWasSet()
{
    QVERIFY(isAhead(0));
    QVERIFY(service().setSystemTime(FarAhead));
    const long long first = panelSeconds();
    QVERIFY(first >= FarAhead && first <= FarAhead + Tolerance);
    QCOMPARE(QDateTime::currentDateTimeUtc().date().year(), 2031);
    QCOMPARE(QDate::currentDate().year(), QDateTime::currentDateTime().date().year());
    QTRY_VERIFY(panelSeconds() > first);
    QVERIFY(panelSeconds() <= first + Tolerance);
}

void TestSimulatorClock::refusedTimeChangesNothing()
{
    QVERIFY(!service().setSystemTime(-1));
    QVERIFY(isAhead(0));
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.clockRefused = true; });
    QVERIFY(!service().setSystemTime(FarAhead));
    QVERIFY(isAhead(0));
}

void TestSimulatorClock::resetPutsItBack()
{
    QVERIFY(service().setSystemTime(FarAhead));
    QVERIFY(!isAhead(0));
    HmiSimulator::reset();
    QVERIFY(isAhead(0));
}

void TestSimulatorClock::scenarioSetsIt()
{
    QVERIFY(HmiSimulator::loadScenarioText(R"({"clockOffset": -86400})"));
    QVERIFY(isAhead(-86400));
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.clockOffset += 3600; });
    QVERIFY(isAhead(3600 - 86400));
    QVERIFY(!HmiSimulator::loadScenarioText(R"({"clockOffset": 5, "brightness": 99})"));
    QVERIFY(isAhead(3600 - 86400));
    QVERIFY(HmiSimulator::loadScenarioText("{}"));
    QVERIFY(isAhead(0));
}

void TestSimulatorClock::standsWhereItIsTold()
{
    QVERIFY(HmiSimulator::loadScenarioText(R"({"clockStandsAt": 1773065107})"));
    const auto now = [] { return QDateTime::currentMSecsSinceEpoch(); };
    const long long begin = machineSeconds();
    QCOMPARE(now(), 1773065107000LL);
    QTRY_VERIFY(machineSeconds() > begin);
    QCOMPARE(now(), 1773065107000LL);
    QVERIFY(service().setSystemTime(FarAhead));
    QCOMPARE(now(), FarAhead * 1000LL);
    HmiSimulator::reset();
    QVERIFY(isAhead(0));
}

void TestSimulatorClock::hardwareClockIsAnother()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.hardwareClockOffset = 7200; });
    QVERIFY(isAhead(0));
    service().syncHwclock();
    QVERIFY(isAhead(0));
    QCOMPARE(HmiSimulator::panel().hardwareClockOffset, 0LL);
}

void TestSimulatorClock::otherClocksAreLeftAlone()
{
    const long long before = machineSeconds();
    QElapsedTimer monotonic;
    monotonic.start();
    QVERIFY(service().setSystemTime(FarAhead));
    QVERIFY(machineSeconds() - before <= Tolerance);
    QVERIFY(std::time(nullptr) - before <= Tolerance);
    QVERIFY(monotonic.elapsed() < Tolerance * 1000);
}

void TestSimulatorClock::reportsComeInTheirTime()
{
    HmiSimulator::setDelays(300);
    const SharedReports reports = ping(SystemSet::LAN0);
    bool isOver = false;
    QTimer::singleShot(400, this, [&isOver] { isOver = true; });
    QVERIFY(service().setSystemTime(FarAhead)); // years ahead: nothing falls due by it
    QCOMPARE(reports->values().size(), 0);
    QVERIFY(!isOver);
    QVERIFY(service().setSystemTime(0)); // and back: nothing waits for years
    QTRY_COMPARE(reports->values().size(), 1);
    QTRY_VERIFY(isOver);
    QCOMPARE(lines(HmiSimulator::calls()),
             (QStringList{"pingTest(LAN0)", QStringLiteral("setSystemTime(%1)").arg(FarAhead),
                          "setSystemTime(0)"}));
}

void TestSimulatorClock::farAway_data()
{
    using Numbers = std::numeric_limits<long long>;
    QTest::addColumn<long long>("offset");
    QTest::newRow("ahead") << Numbers::max();
    QTest::newRow("behind") << Numbers::min();
    QTest::newRow("32 bits ahead") << 0x7FFFFFFFLL;
    QTest::newRow("32 bits behind") << -0x7FFFFFFFLL;
}

void TestSimulatorClock::farAway()
{
    QFETCH(const long long, offset);
    HmiSimulator::change([offset](HmiSimulator::Panel &panel) { panel.clockOffset = offset; });
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QVERIFY(now.isValid());
    QVERIFY(offset > 0 ? ahead() > 86400 : ahead() < -86400);
    QVERIFY(now.date().year() > 1800 && now.date().year() < 2200);
}

void TestSimulatorClock::readWhileItIsSet()
{
    std::atomic<bool> isDone{false};
    std::atomic<int> strange{0};
    std::thread reader([&] {
        while (!isDone) {
            const int year = QDateTime::currentDateTimeUtc().date().year();
            if (year < 2020 || year > 2039)
                ++strange;
        }
    });
    for (int i = 0; i < 1000; ++i) {
        service().setSystemTime(FarAhead + i * 100000L);
        if (i % 100 == 0)
            HmiSimulator::reset();
    }
    isDone = true;
    reader.join();
    QCOMPARE(strange.load(), 0);
}

PANEL_TEST_MAIN(TestSimulatorClock)
#include "test_simulator_clock.moc"
