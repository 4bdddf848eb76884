#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>

using QSP::CardWifi;

/// When a scan is asked for, and which of its results counts.
class TestCardWifiScan : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void secondScanIsIgnored();
    void secondScanIsIgnoredWhileHidden();
    void buttonsWhileScanning();
    void scanIsIgnoredWhileTheIndicatorTurnsForAJoin();
    void resultAfterResult();
    void lateResultOfAnOlderScan();
    void everyScanLooksAtTheJoinedNetwork();
};

void TestCardWifiScan::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiScan::secondScanIsIgnored()
{
    const WifiScene scene;
    WifiScene::wifi()->onClickScanWifi();
    WifiScene::wifi()->onClickScanWifi();
    Operator::tap(WifiScene::scanButton());
    QCOMPARE(Journal::calls("scanWifi").size(), 1);
}

void TestCardWifiScan::secondScanIsIgnoredWhileHidden()
{
    const WifiScene scene;
    WifiScene::wifi()->onClickScanWifi();
    WifiScene::root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Network);
    QVERIFY(!WifiScene::part("scaning")->isVisible());
    WifiScene::wifi()->onClickScanWifi();
    QCOMPARE(Journal::calls("scanWifi").size(), 1);
    // The result is there when the operator comes back.
    QVERIFY(WifiScene::report("scanWifi"));
    WifiScene::root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Wifi);
    Operator::settle();
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
}

void TestCardWifiScan::buttonsWhileScanning()
{
    const WifiScene scene;
    QQuickItem *reset = scene.resetButton();
    Operator::press(WifiScene::scanButton());
    QCOMPARE(WifiScene::part("scanButtonImage")->opacity(), 0.6);
    Operator::release(WifiScene::scanButton());
    for (const QQuickItem *button : {static_cast<QQuickItem *>(WifiScene::scanButton()), reset}) {
        QVERIFY(!button->isEnabled());
        QCOMPARE(button->opacity(), 0.4);
    }
    QCOMPARE(WifiScene::part("scanButtonImage")->opacity(), 0.4);
    QVERIFY(WifiScene::part("scaning")->isVisible());
    QVERIFY(WifiScene::report("scanWifi"));
    for (const QQuickItem *button : {static_cast<QQuickItem *>(WifiScene::scanButton()), reset}) {
        QVERIFY(button->isEnabled());
        QCOMPARE(button->opacity(), 1.0);
    }
    QVERIFY(!WifiScene::part("scaning")->isVisible());
    Operator::press(reset);
    // The page waits whether it becomes a scroll.
    QTRY_COMPARE(reset->opacity(), 0.6);
    Operator::release(reset);
    QCOMPARE(reset->opacity(), 0.4);
}

void TestCardWifiScan::scanIsIgnoredWhileTheIndicatorTurnsForAJoin()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::part("scaning")->isVisible());
    HmiSimulator::clearJournal();
    WifiScene::wifi()->onClickScanWifi();
    QCOMPARE(Journal::calls("scanWifi"), QStringList());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connecting);
    // It turns no longer: its dialog is closed.
    scene.closeDialog();
    Operator::tap(WifiScene::scanButton());
    QCOMPARE(Journal::calls("scanWifi").size(), 1);
}

void TestCardWifiScan::resultAfterResult()
{
    const WifiScene scene;
    HmiSimulator::setManual(false);
    HmiSimulator::setDelays(0);
    HmiSimulator::setDelivery(HmiSimulator::Operation::Scan, HmiSimulator::Delivery::Twice);
    QSignalSpy states(WifiScene::wifi(), &CardWifi::cardStateChanged);
    Operator::tap(WifiScene::scanButton());
    QVERIFY(HmiSimulator::waitIdle());
    Operator::settle();
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
    QCOMPARE(states.size(), 2);

    HmiSimulator::setDelivery(HmiSimulator::Operation::Scan, HmiSimulator::Delivery::Synchronous);
    Operator::tap(WifiScene::scanButton());
    Operator::settle();
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
}

void TestCardWifiScan::lateResultOfAnOlderScan()
{
    const WifiScene scene;
    HmiSimulator::setNetworks({{"first", "", 50}});
    WifiScene::wifi()->onClickScanWifi();
    // Joining ends the state of scanning, so that a second scan can be asked for.
    WifiScene::wifi()->connectWifi(HMI::SSID{'x'}, QString());
    WifiScene::wifi()->onClickScanWifi();
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QCOMPARE(WifiScene::listed(), QStringList());
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(WifiScene::listed(), QStringList(QStringLiteral("first")));
}

void TestCardWifiScan::everyScanLooksAtTheJoinedNetwork()
{
    const WifiScene scene;
    scene.scan();
    // Left during the scan.
    Operator::tap(WifiScene::scanButton());
    HmiSimulator::leaveNetwork();
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(WifiScene::current().isNull());
    QCOMPARE(WifiScene::listed().size(), 9);
    // Joined during a scan that finds nothing.
    Operator::tap(WifiScene::scanButton());
    HmiSimulator::joinNetwork("Warehouse");
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.nullList = true; });
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::current(), QStringLiteral("Warehouse"));
}

PANEL_TEST_MAIN(TestCardWifiScan)

#include "test_cardwifi_scan.moc"
