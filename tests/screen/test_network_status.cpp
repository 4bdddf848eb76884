#include "tests/screen/networkpage.h"

namespace {

constexpr int statusInterval = 2000;
constexpr int vpnInterval = 3000;
const QColor normal(0x1D, 0x21, 0x29);
const QColor error(0xFF, 0x4D, 0x4F);
const QColor good(0x00, 0xBC, 0x79);

QUrl signalIcon(const NetworkPage &page)
{
    return Operator::byClass(page.row("Signal"), "QQuickImage")->property("source").toUrl();
}

} // namespace

/// The rows that tell the state of 4G, VPN and Wi-Fi.
class TestNetworkStatus : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void mobileSignal_data();
    void mobileSignal();
    void mobileState_data();
    void mobileState();
    void mobileSwitchedOffIsNotAsked();
    void vpnState_data();
    void vpnState();
    void switchedOffVpnShowsNoOldState();
    void mobileSwitchedOnShowsItsStateAtOnce();
    void vpnIsWatchedWhileSelected();
    void wifiTileLeadsToItsPage();
    void wifiTileFollowsTheLink();
    void wifiAttemptKeepsTheTile();
    void disabledWifiIsOfflineWhateverIsAttempted_data();
    void disabledWifiIsOfflineWhateverIsAttempted();
    void wifiTickDoesNotOverwriteAnEdit();
    void wifiResetClears();
    void wifiFoundDisabledStopsTheWatch();
    void pageShownAgainRefreshesWifi();

private:
    static void tick(const NetworkPage &page, int interval);
};

void TestNetworkStatus::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestNetworkStatus::tick(const NetworkPage &page, int interval)
{
    QVERIFY(page.isWatching(interval));
    NetworkPage::expire(page.timer(interval));
}

void TestNetworkStatus::mobileSignal_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("bars");
    const QVector<QPair<int, int>> table{{-1, 0}, {0, 0},   {1, 1},    {20, 1},    {21, 2},
                                         {40, 2}, {41, 3},  {60, 3},   {61, 4},    {80, 4},
                                         {81, 5}, {100, 5}, {101, -1}, {-1000, 0}, {2000000000, -1}};
    for (const auto &[value, bars] : table)
        QTest::newRow(qPrintable(QString::number(value))) << value << bars;
}

void TestNetworkStatus::mobileSignal()
{
    QFETCH(int, value);
    QFETCH(int, bars);
    NetworkPage page;
    page.select("4G");
    HmiSimulator::setMobile(2, value);
    tick(page, statusInterval);
    const QUrl icon(QString("qrc:/setting/icons/singal4G_%1.png").arg(bars));
    QCOMPARE(signalIcon(page), bars < 0 ? QUrl() : icon);
}

void TestNetworkStatus::mobileState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "Not connected";
    QTest::newRow("1") << 1 << "Connecting...";
    QTest::newRow("2") << 2 << "Connection successful";
    QTest::newRow("9") << 9 << "Unknown";
    QTest::newRow("-1") << -1 << "Unknown";
}

void TestNetworkStatus::mobileState()
{
    QFETCH(int, state);
    NetworkPage page;
    page.select("4G");
    HmiSimulator::setMobile(state, 50);
    tick(page, statusInterval);
    QTEST(page.status("Connection Status"), "text");
    QCOMPARE(page.statusColor("Connection Status"), normal);
}

void TestNetworkStatus::mobileSwitchedOffIsNotAsked()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::MOBILE_4G, false);
    HmiSimulator::setMobile(2, 90);
    NetworkPage page;
    page.select("4G");
    QVERIFY(!page.isWatching(statusInterval));
    QCOMPARE(page.status("Connection Status"), QString("Not connected"));
    QCOMPARE(signalIcon(page), QUrl("qrc:/setting/icons/singal4G_0.png"));
}

void TestNetworkStatus::vpnState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("0") << 0 << "Not connected" << normal;
    QTest::newRow("1") << 1 << "Connecting..." << normal;
    QTest::newRow("2") << 2 << "HMI not authorized" << error;
    QTest::newRow("3") << 3 << "SSL Error" << error;
    QTest::newRow("4") << 4 << "Certificate Error" << error;
    QTest::newRow("5") << 5 << "VPN connected" << good;
    QTest::newRow("9") << 9 << "Unknown Status" << error;
    QTest::newRow("-1") << -1 << "Unknown Status" << error;
}

void TestNetworkStatus::vpnState()
{
    QFETCH(int, state);
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    NetworkPage page;
    page.select("VPN");
    HmiSimulator::setVpnState(state);
    tick(page, vpnInterval);
    QTEST(page.status("Connection Status"), "text");
    QTEST(page.statusColor("Connection Status"), "color");
}

void TestNetworkStatus::switchedOffVpnShowsNoOldState()
{
    HmiSimulator::setVpnState(5);
    NetworkPage page;
    page.select("VPN");
    QCOMPARE(page.status("Connection Status"), QString("Not connected"));
    QCOMPARE(page.statusColor("Connection Status"), normal);
}

void TestNetworkStatus::mobileSwitchedOnShowsItsStateAtOnce()
{
    HmiSimulator::setDelays(600000);
    HmiSimulator::setNicEnabled(HMI::SystemSet::MOBILE_4G, false);
    NetworkPage page;
    page.select("4G");
    QCOMPARE(page.status("Connection Status"), QString("Not connected"));
    page.tapToggle("4G");
    QCOMPARE(page.status("Connection Status"), QString("Connecting..."));
}

void TestNetworkStatus::vpnIsWatchedWhileSelected()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    HmiSimulator::setVpnState(1);
    NetworkPage page;
    page.select("VPN");
    QCOMPARE(page.status("Connection Status"), QString("Connecting..."));
    QVERIFY(page.isWatching(vpnInterval));
    QTimer *timer = page.timer(vpnInterval);
    page.select("LAN0");
    QVERIFY(!timer->isActive());
    HmiSimulator::setVpnState(5);
    page.select("VPN");
    QCOMPARE(page.timer(vpnInterval), timer);
    QCOMPARE(page.status("Connection Status"), QString("VPN connected"));
}

void TestNetworkStatus::wifiTileLeadsToItsPage()
{
    NetworkPage page;
    page.select("Wi-Fi");
    page.tap(page.row("Wi-Fi Settings"));
    QCOMPARE(page.screen().title(), QString("Wi-Fi"));
    QVERIFY(!page.network()->isVisible());
}

void TestNetworkStatus::wifiTileFollowsTheLink()
{
    HmiSimulator::leaveNetwork();
    NetworkPage page;
    page.select("Wi-Fi");
    QQuickItem *tile = page.row("Wi-Fi Settings");
    QSignalSpy status(page.network(), SIGNAL(wifiStatusChanged(bool, QString)));
    QCOMPARE(Operator::visibleTexts(tile).value(0), QString("Offline"));
    HmiSimulator::joinNetwork("Plant \xE5\x8E\x82");
    tick(page, statusInterval);
    QCOMPARE(Operator::visibleTexts(tile).value(0), QString("Online"));
    QCOMPARE(status.takeLast(), QVariantList({true, QString::fromUtf8("Plant \xE5\x8E\x82")}));
    HmiSimulator::leaveNetwork();
    tick(page, statusInterval);
    QCOMPARE(Operator::visibleTexts(tile).value(0), QString("Offline"));
    QCOMPARE(status.takeLast(), QVariantList({false, QString()}));
    QVERIFY(page.isWatching(statusInterval));
}

void TestNetworkStatus::wifiAttemptKeepsTheTile()
{
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    QQuickItem *tile = page.row("Wi-Fi Settings");
    QVERIFY(QMetaObject::invokeMethod(page.network(), "setWifiConnecting", Q_ARG(bool, true)));
    HmiSimulator::leaveNetwork();
    tick(page, statusInterval);
    QCOMPARE(Operator::visibleTexts(tile).value(0), QString("Online"));
    QVERIFY(QMetaObject::invokeMethod(page.network(), "setWifiConnecting", Q_ARG(bool, false)));
    QCOMPARE(Operator::visibleTexts(tile).value(0), QString("Offline"));
}

void TestNetworkStatus::disabledWifiIsOfflineWhateverIsAttempted_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"tapped", "found by a tick", "found on opening"})
        QTest::newRow(how) << how;
}

void TestNetworkStatus::disabledWifiIsOfflineWhateverIsAttempted()
{
    QFETCH(QString, how);
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    QCOMPARE(Operator::visibleTexts(page.row("Wi-Fi Settings")).value(0), QString("Online"));
    // An attempt that the service never reports.
    QVERIFY(QMetaObject::invokeMethod(page.network(), "setWifiConnecting", Q_ARG(bool, true)));
    if (how == "tapped") {
        page.tapToggle("Disable Network");
    } else if (how == "found by a tick") {
        HmiSimulator::setNicEnabled(HMI::SystemSet::WIFI, false);
        tick(page, statusInterval);
    } else {
        page.screen().close();
        HmiSimulator::setNicEnabled(HMI::SystemSet::WIFI, false);
        page.screen().open();
        page.screen().tapMenu("Network");
    }
    QCOMPARE(Operator::visibleTexts(page.row("Wi-Fi Settings")).value(0), QString("Offline"));
    QVERIFY(!page.isWatching(statusInterval));
}

void TestNetworkStatus::wifiTickDoesNotOverwriteAnEdit()
{
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, false);
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    page.edit(page.addressOf("Subnet Mask"), 3, "8");
    HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, 0x0A010203, 0xFFFF0000, 0x0A010001);
    tick(page, statusInterval);
    QCOMPARE(page.address("IP Address"), QString("10.1.2.3"));
    QCOMPARE(NetworkPage::octet(page.addressOf("Subnet Mask"), 3)->property("text").toString(), QString("8"));
    QCOMPARE(page.address("Subnet Mask"), QString("255.255.255.0"));
}

void TestNetworkStatus::wifiResetClears()
{
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, false);
    NetworkPage page;
    page.select("Wi-Fi");
    HmiSimulator::clearJournal();
    QVERIFY(QMetaObject::invokeMethod(page.network(), "wifiReset"));
    QVERIFY(!page.isOn("Static IP"));
    for (const char *label : {"IP Address", "Subnet Mask", "Default Gateway"}) {
        QCOMPARE(page.address(label), QString());
        QVERIFY(!page.isEditable(label));
    }
    QCOMPARE(Journal::callsButBeeps(), QStringList("setDHCP(WIFI, true, persist)"));
    QVERIFY(QMetaObject::invokeMethod(page.network(), "wifiReset"));
    QCOMPARE(Journal::callsButBeeps().size(), 1);
}

void TestNetworkStatus::wifiFoundDisabledStopsTheWatch()
{
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    QSignalSpy status(page.network(), SIGNAL(wifiStatusChanged(bool, QString)));
    HmiSimulator::setNicEnabled(HMI::SystemSet::WIFI, false);
    tick(page, statusInterval);
    QVERIFY(!page.isWatching(statusInterval));
    QCOMPARE(Operator::visibleTexts(page.row("Wi-Fi Settings")).value(0), QString("Offline"));
    QCOMPARE(status.count(), 0);
}

void TestNetworkStatus::pageShownAgainRefreshesWifi()
{
    HmiSimulator::setAdapters(4);
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    QVERIFY(page.isWatching(statusInterval));
    page.screen().tapMenu("Version");
    HmiSimulator::leaveNetwork();
    page.screen().tapMenu("Network");
    QCOMPARE(Operator::visibleTexts(page.row("Wi-Fi Settings")).value(0), QString("Offline"));
}

PANEL_TEST_MAIN(TestNetworkStatus)

#include "test_network_status.moc"
