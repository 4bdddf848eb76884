#include "panel/panel.h"
#include "simulator/simulator.h"
#include "tests/support/journal.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using QSP::DefaultAdapter;
using QSP::NIC;
using QSP::Panel;

namespace {

constexpr NIC lan0 = HMI::SystemSet::LAN0;
constexpr NIC lan1 = HMI::SystemSet::LAN1;
constexpr NIC vpn = HMI::SystemSet::VPN;

} // namespace

/// The adapter of the default route, and its test. No window.
class TestDefaultAdapterRules : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void possibleOnes_data();
    void possibleOnes();
    void askedOnce();
    void choiceIsWrittenAndReadBack();
    void switchingAnAdapterIsAReasonToLookAgain();
    void outcome_data();
    void outcome();
    void firstReportCounts();
    void newestTestCounts();
    void silenceIsAFailure();
    void outcomeOfAFormerDefaultIsDropped_data();
    void outcomeOfAFormerDefaultIsDropped();
    void reportAfterTheEnd();

private:
    DefaultAdapter &adapter() { return m_panel->defaultAdapter(); }
    QTimer *limit() { return adapter().findChild<QTimer *>("pingLimit"); }
    static void report()
    {
        QVERIFY(HmiSimulator::fireNext("pingTest"));
        QCoreApplication::processEvents();
    }

    std::unique_ptr<Panel> m_panel;
};

void TestDefaultAdapterRules::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setManual(true);
    m_panel = std::make_unique<Panel>();
}

void TestDefaultAdapterRules::cleanup()
{
    m_panel.reset();
    HmiSimulator::setGettersRecorded(false);
    endWatch();
}

void TestDefaultAdapterRules::possibleOnes_data()
{
    QTest::addColumn<int>("present");
    QTest::addColumn<int>("off");
    QTest::addColumn<QVector<int>>("possible");
    QTest::newRow("all") << 87 << 0 << QVector<int>{1, 2, 4, 16};
    QTest::newRow("one is off") << 87 << 2 << QVector<int>{1, 4, 16};
    QTest::newRow("none") << 0 << 0 << QVector<int>();
    QTest::newRow("VPN alone") << 64 << 0 << QVector<int>();
    QTest::newRow("unknown ones") << (8 | 32 | 16) << 0 << QVector<int>{16};
}

void TestDefaultAdapterRules::possibleOnes()
{
    QFETCH(int, present);
    QFETCH(int, off);
    HmiSimulator::setAdapters(present);
    for (const NIC nic : QSP::g_adapters)
        HmiSimulator::setNicEnabled(nic, nic != off);
    QVector<int> possible;
    const QVector<NIC> found = adapter().possible();
    for (const NIC nic : found)
        possible << nic;
    QTEST(possible, "possible");
}

void TestDefaultAdapterRules::askedOnce()
{
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    for (int i = 0; i < 3; ++i) {
        adapter().possible();
        adapter().current();
    }
    QStringList calls = Journal::calls();
    QVERIFY(calls.size() > 1);
    QCOMPARE(calls.removeDuplicates(), 0);
    HmiSimulator::clearJournal();
    adapter().current();
    QCOMPARE(Journal::calls(), QStringList());
    adapter().forget();
    adapter().current();
    QCOMPARE(Journal::calls(), QStringList("getDefaultNIC()"));
}

void TestDefaultAdapterRules::choiceIsWrittenAndReadBack()
{
    QSignalSpy changed(&adapter(), &DefaultAdapter::changed);
    QCOMPARE(adapter().current(), lan0);
    adapter().choose(lan1);
    QCOMPARE(Journal::calls(), QStringList("setDefaultNIC(LAN1, no restart)"));
    QCOMPARE(adapter().current(), lan1);
    QCOMPARE(changed.count(), 1);
    // One that has vanished is refused.
    HmiSimulator::setAdapters(1 | 2);
    adapter().choose(HMI::SystemSet::WIFI);
    QCOMPARE(adapter().current(), lan1);
    QCOMPARE(adapter().possible(), QVector<NIC>({lan0, lan1}));
    QCOMPARE(changed.count(), 2);
}

void TestDefaultAdapterRules::switchingAnAdapterIsAReasonToLookAgain()
{
    QSignalSpy changed(&adapter(), &DefaultAdapter::changed);
    QVERIFY(adapter().possible().contains(lan1));
    m_panel->adapter(lan1).setEnabled(false);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!adapter().possible().contains(lan1));
    m_panel->adapter(vpn).setEnabled(true);
    QVERIFY(!adapter().possible().contains(vpn));
}

void TestDefaultAdapterRules::outcome_data()
{
    QTest::addColumn<bool>("answers");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestDefaultAdapterRules::outcome()
{
    QFETCH(bool, answers);
    HmiSimulator::change([answers](HmiSimulator::Panel &panel) { panel.faults.ping = answers; });
    QSignalSpy testing(&adapter(), &DefaultAdapter::testingChanged);
    QSignalSpy tested(&adapter(), &DefaultAdapter::tested);
    // What was read before does not matter.
    QCOMPARE(adapter().current(), lan0);
    HmiSimulator::setDefaultNic(lan1);
    adapter().startTest();
    QVERIFY(adapter().isTesting() && limit()->isActive());
    QCOMPARE(Journal::calls(), QStringList("pingTest(LAN1)"));
    report();
    QVERIFY(!adapter().isTesting() && !limit()->isActive());
    QCOMPARE(tested, QList<QVariantList>({{answers}}));
    QCOMPARE(testing, QList<QVariantList>({{true}, {false}}));
}

void TestDefaultAdapterRules::firstReportCounts()
{
    HmiSimulator::setDelivery(HmiSimulator::Operation::Ping, HmiSimulator::Delivery::Twice);
    QSignalSpy tested(&adapter(), &DefaultAdapter::tested);
    adapter().startTest();
    HmiSimulator::fireAll();
    QCoreApplication::processEvents();
    QCOMPARE(tested.count(), 1);
}

void TestDefaultAdapterRules::newestTestCounts()
{
    QSignalSpy tested(&adapter(), &DefaultAdapter::tested);
    adapter().startTest();
    adapter().startTest();
    report();
    QCOMPARE(tested.count(), 0);
    QVERIFY(adapter().isTesting());
    report();
    QCOMPARE(tested.count(), 1);
}

void TestDefaultAdapterRules::silenceIsAFailure()
{
    QSignalSpy tested(&adapter(), &DefaultAdapter::tested);
    QCOMPARE(limit()->interval(), 15000);
    adapter().startTest();
    limit()->start(0);
    QTRY_COMPARE(tested, QList<QVariantList>({{false}}));
    // The answer that comes after all is none any more.
    report();
    QCOMPARE(tested.count(), 1);
}

void TestDefaultAdapterRules::outcomeOfAFormerDefaultIsDropped_data()
{
    QTest::addColumn<bool>("byTheOperator");
    QTest::newRow("chosen here") << true;
    QTest::newRow("changed elsewhere") << false;
}

void TestDefaultAdapterRules::outcomeOfAFormerDefaultIsDropped()
{
    QFETCH(bool, byTheOperator);
    QSignalSpy tested(&adapter(), &DefaultAdapter::tested);
    adapter().startTest();
    if (byTheOperator) {
        adapter().choose(lan1);
        QVERIFY(!adapter().isTesting());
    } else {
        HmiSimulator::setDefaultNic(lan1);
    }
    report();
    QVERIFY(!adapter().isTesting() && !limit()->isActive());
    QCOMPARE(tested.count(), 0);
}

void TestDefaultAdapterRules::reportAfterTheEnd()
{
    adapter().startTest();
    m_panel.reset();
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    report();
    QCOMPARE(Journal::calls(), QStringList());
}

PANEL_TEST_MAIN(TestDefaultAdapterRules)

#include "test_defaultadapter_rules.moc"
