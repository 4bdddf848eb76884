#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>

using QSP::CardWifi;

/// Reports that come late, twice, in another order or not at all.
class TestCardWifiAttempts : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void reportsOutOfOrder();
    void reportsAfterTheDialogWasClosed();
    void reportsAfterAReset();
    void reportsOfAnOlderAttempt();
    void reportsThatNeverCome();
    void reportAfterTheScreenIsGone();
    void synchronousReports();
    void tapWhileConnecting();
    void titleWhileConnecting();
    void connectWhileScanning();
};

void TestCardWifiAttempts::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiAttempts::reportsOutOfOrder()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({3, 1, 4, 1, 2, 1});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Time out")));
    // "Connecting" after the end would leave the dialog without a way on.
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Connect")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Wrong password")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connected);
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connected);
}

void TestCardWifiAttempts::reportsAfterTheDialogWasClosed()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({1, 4});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    scene.closeDialog();
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    // The error was for then; the next dialog begins anew.
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Enter password")));
}

void TestCardWifiAttempts::reportsAfterAReset()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    emit WifiScene::wifi()->wifiReset();
    QTRY_VERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QVERIFY(WifiScene::report("resetWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
}

void TestCardWifiAttempts::reportsOfAnOlderAttempt()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    scene.closeDialog();
    // Its two reports wait; the second attempt replaces it.
    WifiScene::wifi()->connectWifi(WifiScene::wifi()->networks()[2].ssid, QStringLiteral("torque55Nm"));
    QVERIFY(WifiScene::report("connectWifi(\"Works Hall Guests"));
    QVERIFY(WifiScene::report("connectWifi(\"Works Hall Guests"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connecting);
    QCOMPARE(Journal::calls("scanWifi").size(), 1);
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connected);
}

void TestCardWifiAttempts::reportsThatNeverCome()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    HmiSimulator::dropPending();
    QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));
    scene.closeDialog();
    // The next attempt goes as if there had been none.
    Operator::tap(scene.row(QStringLiteral("Büro Süd")));
    QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));
    scene.closeDialog();
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Büro Süd")));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Enter password")));
}

void TestCardWifiAttempts::reportAfterTheScreenIsGone()
{
    {
        const WifiScene scene;
        scene.scan();
        Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    }
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(!WifiScene::root());
}

void TestCardWifiAttempts::synchronousReports()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setManual(false);
    HmiSimulator::setDelivery(HmiSimulator::Operation::Connect, HmiSimulator::Delivery::Synchronous);
    WifiScene::scriptReports({1, 4});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    Operator::settle();
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Wrong password")));
}

void TestCardWifiAttempts::tapWhileConnecting()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({1, 4});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    // It shows how the attempt goes, for the network that is being joined.
    QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Wrong password")));
    QCOMPARE(scene.dialogTexts().value(0), QStringLiteral("Works Hall Guests"));
    // A password typed now is for the network in the title, not for the one tapped last.
    HmiSimulator::clearJournal();
    scene.typePassword(QStringLiteral("abc"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList(QStringLiteral(R"(connectWifi("Works Hall Guests", ****))")));
}

void TestCardWifiAttempts::titleWhileConnecting()
{
    const WifiScene scene;
    HmiSimulator::leaveNetwork();
    scene.scan();
    // Its name is not in UTF-8.
    Operator::tap(scene.row(QStringLiteral("装配线")));
    if (scene.dialogTexts().contains(QStringLiteral("Connect"))) {
        scene.typePassword(QStringLiteral("abc"));
        scene.tapInDialog(QStringLiteral("Connect"));
    }
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(scene.dialogTexts(), QStringList({"装配线", "Connecting"}));
    // A network that is joined is named as in its own row.
    scene.closeDialog();
    HmiSimulator::joinNetwork("\xD7\xB0\xC5\xE4\xCF\xDF");
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(scene.dialogTexts(), QStringList({"\u05F0\uFFFD\uFFFD\uFFFD\uFFFD", "Connecting"}));
}

void TestCardWifiAttempts::connectWhileScanning()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(WifiScene::scanButton());
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connecting);
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(scene.dialogBody());
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connected);
}

PANEL_TEST_MAIN(TestCardWifiAttempts)

#include "test_cardwifi_attempts.moc"
