#include "tests/screen/networkpage.h"

/// A closed screen asks the panel nothing.
class TestNetworkPausing : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void closedScreenIsNotRefreshed_data();
    void closedScreenIsNotRefreshed();
    void whatDoesNotRunStaysStopped();
    void attemptThatEndsBehindAClosedScreen();
    void selectedBehindAClosedScreen();
};

namespace {

constexpr int statusInterval = 2000;
constexpr int vpnInterval = 3000;

} // namespace

void TestNetworkPausing::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    HmiSimulator::setManual(true);
    HmiSimulator::joinNetwork("Plant");
}

void TestNetworkPausing::closedScreenIsNotRefreshed_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<int>("interval");
    QTest::addColumn<QByteArray>("getter");
    QTest::newRow("4G") << "4G" << statusInterval << QByteArray("get4GState");
    QTest::newRow("VPN") << "VPN" << vpnInterval << QByteArray("getVPNServerState");
    QTest::newRow("Wi-Fi") << "Wi-Fi" << statusInterval << QByteArray("currentWifiSsid");
}

void TestNetworkPausing::closedScreenIsNotRefreshed()
{
    QFETCH(QString, adapter);
    QFETCH(int, interval);
    QFETCH(QByteArray, getter);
    NetworkPage page;
    page.select(adapter);
    QVERIFY(page.isWatching(interval));
    page.screen().close();
    QVERIFY(!page.isWatching(interval));
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    page.screen().open();
    QVERIFY(page.isWatching(interval));
    QCOMPARE(Journal::calls(getter.constData()).size(), 1);
}

void TestNetworkPausing::whatDoesNotRunStaysStopped()
{
    NetworkPage page;
    page.select("4G");
    page.select("VPN");
    page.select("LAN0");
    page.screen().close();
    page.screen().open();
    QVERIFY(!page.isWatching(statusInterval));
    QVERIFY(!page.isWatching(vpnInterval));
}

void TestNetworkPausing::attemptThatEndsBehindAClosedScreen()
{
    NetworkPage page;
    page.select("Wi-Fi");
    QVERIFY(QMetaObject::invokeMethod(page.network(), "setWifiConnecting", Q_ARG(bool, true)));
    page.screen().close();
    HmiSimulator::leaveNetwork();
    QVERIFY(QMetaObject::invokeMethod(page.network(), "setWifiConnecting", Q_ARG(bool, false)));
    QVERIFY(!page.isWatching(statusInterval));
    page.screen().open();
    QVERIFY(page.isWatching(statusInterval));
    page.screen().tapMenu("Network");
    QCOMPARE(Operator::visibleTexts(page.row("Wi-Fi Settings")).value(0), QString("Offline"));
}

void TestNetworkPausing::selectedBehindAClosedScreen()
{
    NetworkPage page;
    page.screen().close();
    QVERIFY(QMetaObject::invokeMethod(page.network(), "changeNIC",
                                      Q_ARG(HMI::SystemSet::NIC, HMI::SystemSet::VPN),
                                      Q_ARG(HMI::SystemSet::NIC, HMI::SystemSet::LAN0)));
    QVERIFY(!page.isWatching(vpnInterval));
    page.screen().open();
    QVERIFY(page.isWatching(vpnInterval));
}

PANEL_TEST_MAIN(TestNetworkPausing)

#include "test_network_pausing.moc"
