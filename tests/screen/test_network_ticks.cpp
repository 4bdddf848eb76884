#include "tests/screen/networkpage.h"

/// Years of status ticks: nothing is repainted, nothing is added.
class TestNetworkTicks : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void ticks_data();
    void ticks();
    void aLostLinkIsReadOnce();
};

void TestNetworkTicks::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestNetworkTicks::ticks_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<int>("interval");
    QTest::newRow("4G") << "4G" << 2000;
    QTest::newRow("VPN") << "VPN" << 3000;
    QTest::newRow("Wi-Fi") << "Wi-Fi" << 2000;
    QTest::newRow("Wi-Fi offline") << "Wi-Fi" << 2000;
}

void TestNetworkTicks::ticks()
{
    QFETCH(QString, adapter);
    QFETCH(int, interval);
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    HmiSimulator::setVpnState(5);
    HmiSimulator::setMobile(2, 55);
    if (QByteArray(QTest::currentDataTag()) == "Wi-Fi offline")
        HmiSimulator::leaveNetwork();
    else
        HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select(adapter);
    QVERIFY(page.isWatching(interval));
    QTimer *timer = page.timer(interval);
    // By hand alone, so that a tick of the clock does not count.
    const auto stopAll = [&page] {
        const auto timers = page.screen().root()->findChildren<QTimer *>();
        for (QTimer *other : timers)
            other->stop();
    };
    stopAll();
    NetworkPage::expire(timer);
    stopAll();
    Operator::settle(300);

    const int objects = page.screen().root()->findChildren<QObject *>().size();
    HmiSimulator::clearJournal();
    QSignalSpy frames(page.window(), SIGNAL(afterRendering()));
    for (int i = 0; i < 10000; ++i)
        NetworkPage::expire(timer);
    Operator::settle(200);
    QCOMPARE(frames.count(), 0);
    QCOMPARE(page.screen().root()->findChildren<QObject *>().size(), objects);
    QCOMPARE(Journal::calls(), QStringList());

    // The counter does count: a tick that finds something new is painted.
    HmiSimulator::setMobile(1, 5);
    HmiSimulator::setVpnState(3);
    if (HmiSimulator::panel().wifi.connected)
        HmiSimulator::leaveNetwork();
    else
        HmiSimulator::joinNetwork("Plant");
    NetworkPage::expire(timer);
    QTRY_VERIFY(frames.count() > 0);
}

void TestNetworkTicks::aLostLinkIsReadOnce()
{
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    QTimer *timer = page.timer(2000);
    NetworkPage::expire(timer);
    HmiSimulator::leaveNetwork();

    const auto addressesRead = [timer] {
        HmiSimulator::clearJournal();
        NetworkPage::expire(timer);
        return Journal::calls().filter("FromEE(WIFI)").size();
    };
    HmiSimulator::setGettersRecorded(true);
    QCOMPARE(addressesRead(), 3);
    QCOMPARE(addressesRead(), 0);
    HmiSimulator::joinNetwork("Plant");
    QCOMPARE(addressesRead(), 0);
    HmiSimulator::leaveNetwork();
    QCOMPARE(addressesRead(), 3);
    HmiSimulator::setGettersRecorded(false);
}

PANEL_TEST_MAIN(TestNetworkTicks)

#include "test_network_ticks.moc"
