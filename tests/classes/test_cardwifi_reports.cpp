#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>

using QSP::CardWifi;

namespace {

bool isBusyIn(QQuickItem *dialogBody)
{
    return !Operator::items(dialogBody, [](QQuickItem *item) {
                return item == WifiScene::part("scaning") && item->isVisible();
            }).isEmpty();
}

} // namespace

/// Reports of a join that come while the operator is at something else, or more than once.
class TestCardWifiReports : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void entryOfAnotherNetworkIsLeftAlone_data();
    void entryOfAnotherNetworkIsLeftAlone();
    void entryOfTheSameNetworkFollows_data();
    void entryOfTheSameNetworkFollows();
    void leaseLeavesAnotherEntryOpen();
    void busyOverAScan();
    void titleOfTheReplacingAttempt();
    void connectedTwice();
    void offlineTwice();
    void leaseTwice();
    void reportsWaitForTheFinger();
    void listWaitsForATouch();
    void heldListOfAnOlderScan();
};

void TestCardWifiReports::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiReports::entryOfAnotherNetworkIsLeftAlone_data()
{
    QTest::addColumn<int>("report");
    QTest::newRow("offline") << 0;
    QTest::newRow("connecting") << 1;
    QTest::newRow("connected") << 2;
    QTest::newRow("timeout") << 3;
    QTest::newRow("wrong password") << 4;
}

void TestCardWifiReports::entryOfAnotherNetworkIsLeftAlone()
{
    QFETCH(int, report);
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({report});
    Operator::tap(WifiScene::scanButton());
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    // The list ends the state, so that another network can be chosen while the attempt goes on.
    QVERIFY(WifiScene::report("scanWifi"));
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("torque55Nm"));
    const QStringList before = scene.dialogTexts();
    QCOMPARE(before.value(0), QStringLiteral("Maintenance"));

    QVERIFY(WifiScene::report("connectWifi"));
    Operator::settle(20);
    QVERIFY(scene.dialogBody());
    QCOMPARE(scene.dialogTexts(), before);
    QVERIFY(!isBusyIn(scene.dialogBody()));
    WifiScene::scriptReports({});
    HmiSimulator::clearJournal();
    scene.tapInDialog(QStringLiteral("Connect"));
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList(QStringLiteral(R"(connectWifi("Maintenance", ****))")));
    QCOMPARE(scene.dialogTexts(), QStringList({"Maintenance", "Connecting"}));
    QVERIFY(isBusyIn(scene.dialogBody()));
}

void TestCardWifiReports::entryOfTheSameNetworkFollows_data()
{
    QTest::addColumn<int>("report");
    QTest::addColumn<QString>("status");
    QTest::newRow("connected") << 2 << QString();
    QTest::newRow("timeout") << 3 << "Time out";
}

void TestCardWifiReports::entryOfTheSameNetworkFollows()
{
    QFETCH(int, report);
    QFETCH(QString, status);
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({report});
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("torque55Nm"));
    scene.tapInDialog(QStringLiteral("Connect"));
    scene.closeDialog();
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QVERIFY(scene.dialogBody());
    QVERIFY(WifiScene::report("connectWifi"));
    while (WifiScene::report("setDHCP")) {
    }
    Operator::settle(20);
    QCOMPARE(scene.dialogBody() == nullptr, status.isEmpty());
    QVERIFY(status.isEmpty() || scene.dialogTexts().contains(status));
}

void TestCardWifiReports::leaseLeavesAnotherEntryOpen()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    WifiScene::scriptReports({2});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QVERIFY(WifiScene::report("setDHCP"));
    Operator::settle(20);
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Enter password")));
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
}

void TestCardWifiReports::busyOverAScan()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({4});
    Operator::tap(WifiScene::scanButton());
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(isBusyIn(scene.dialogBody()));
    const QQuickItem *busy = WifiScene::part("scaning");
    // Its centre, around which it turns.
    const QPointF centre(busy->width() / 2.0, busy->height() / 2.0);
    const qreal middle = busy->mapToItem(scene.dialogBody(), centre).x();
    QVERIFY(qAbs(middle - scene.dialogBody()->width() / 2.0) <= 0.51);
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(!isBusyIn(scene.dialogBody()));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Wrong password")));
}

void TestCardWifiReports::titleOfTheReplacingAttempt()
{
    HmiSimulator::setNetworks({{"first", "", 80}, {"second", "", 80}});
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("first")));
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("second")));
    QCOMPARE(Journal::calls("connectWifi").size(), 2);
    QCOMPARE(scene.dialogTexts(), QStringList({"second", "Connecting"}));
    // What becomes of the first is no longer asked.
    while (WifiScene::report("connectWifi(\"first"))
        QCOMPARE(scene.dialogTexts(), QStringList({"second", "Connecting"}));
}

void TestCardWifiReports::connectedTwice()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    WifiScene::scriptReports({2, 2});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(Journal::calls("setDHCP").size(), 1);
}

void TestCardWifiReports::offlineTwice()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({0, 0});
    HmiSimulator::clearJournal();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(Journal::calls("scanWifi").size(), 1);
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
}

void TestCardWifiReports::leaseTwice()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    WifiScene::scriptReports({2});
    HmiSimulator::setDelivery(HmiSimulator::Operation::Dhcp, HmiSimulator::Delivery::Twice);
    QSignalSpy connected(WifiScene::wifi(), &CardWifi::connectedChanged);
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    while (WifiScene::report("setDHCP")) {
    }
    QCOMPARE(connected.size(), 1);
}

void TestCardWifiReports::reportsWaitForTheFinger()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({2});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    scene.closeDialog();
    const QStringList before = WifiScene::listed();
    const QPoint place = Operator::centerOf(scene.row(QStringLiteral("Warehouse")));
    QTest::mousePress(scene.window(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(WifiScene::report("connectWifi"));
    while (WifiScene::report("setDHCP")) {
    }
    QCOMPARE(WifiScene::listed(), before);
    // Slid off, so that it is no tap.
    QTest::mouseRelease(scene.window(), Qt::LeftButton, Qt::NoModifier, {5, 5});
    QTRY_COMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
    QVERIFY(!WifiScene::listed().contains(QStringLiteral("Works Hall Guests")));
}

void TestCardWifiReports::listWaitsForATouch()
{
    const WifiScene scene;
    scene.scan();
    const QStringList before = WifiScene::listed();
    const QPoint place = Operator::centerOf(scene.row(QStringLiteral("Works Hall Guests")));
    WifiScene::wifi()->onClickScanWifi();
    HmiSimulator::setNetworks({{"Trap", "", 90}, {"Trap too", "", 90}});
    QTest::touchEvent(scene.window(), Operator::touchScreen()).press(0, place);
    QVERIFY(WifiScene::report("scanWifi"));
    Operator::settle(300);
    QCOMPARE(WifiScene::listed(), before);
    QTest::touchEvent(scene.window(), Operator::touchScreen()).release(0, place);
    Operator::settle();
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList(QStringLiteral(R"(connectWifi("Works Hall Guests", ""))")));
    QCOMPARE(WifiScene::wifi()->networks().size(), 2);
}

void TestCardWifiReports::heldListOfAnOlderScan()
{
    const WifiScene scene;
    Operator::tap(WifiScene::scanButton());
    QTest::mousePress(scene.window(), Qt::LeftButton, Qt::NoModifier, {600, 500});
    QVERIFY(WifiScene::report("scanWifi"));
    WifiScene::wifi()->connectWifi(HMI::SSID{'x'}, QString());
    emit WifiScene::wifi()->wifiReset();
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QTest::mouseRelease(scene.window(), Qt::LeftButton, Qt::NoModifier, {600, 500});
    Operator::settle(20);
    // Networks from before the reset are not shown, and the reset still goes on.
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QVERIFY(WifiScene::wifi()->networks().isEmpty());
    QVERIFY(WifiScene::report("resetWifi"));
    QCOMPARE(WifiScene::wifi()->networks().size(), 9);
}

PANEL_TEST_MAIN(TestCardWifiReports)

#include "test_cardwifi_reports.moc"
