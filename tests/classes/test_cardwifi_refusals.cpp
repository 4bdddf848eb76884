#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>

using QSP::CardWifi;

/// What the page remembers of passwords that were refused.
class TestCardWifiRefusals : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void refusedPasswordIsForgotten();
    void refusedPasswordIsForgottenOverAScan();
    void newPasswordOfThePanelIsTried();
    void refusalOfATypedPasswordSparesTheStoredOne();
    void refusalOfNoPassword();
    void refusalOutlivesAnotherPassword();
    void resetForgetsRefusals();

private:
    static void store(const std::string &password)
    {
        HmiSimulator::change(
            [&password](HmiSimulator::Panel &panel) { panel.wifi.networks[0].stored = password; });
    }
    /// Taps the network and has it refused, with whatever password the page tries.
    static void tapAndRefuse(const WifiScene &scene, const QString &name);
    /// Scans and taps the network: the attempts that this alone makes.
    static QStringList scanAndTap(const WifiScene &scene, const QString &name);
};

void TestCardWifiRefusals::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiRefusals::tapAndRefuse(const WifiScene &scene, const QString &name)
{
    WifiScene::scriptReports({4});
    Operator::tap(scene.row(name));
    QVERIFY(WifiScene::report("connectWifi"));
}

QStringList TestCardWifiRefusals::scanAndTap(const WifiScene &scene, const QString &name)
{
    scene.scan();
    HmiSimulator::clearJournal();
    Operator::tap(scene.row(name));
    return Journal::calls("connectWifi");
}

void TestCardWifiRefusals::refusedPasswordIsForgotten()
{
    const WifiScene scene;
    scene.scan();
    // Its stored password is out of date.
    Operator::tap(scene.row(QStringLiteral("Pump Room 3")));
    QCOMPARE(Journal::calls("connectWifi").size(), 1);
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Wrong password")));
    scene.closeDialog();
    HmiSimulator::clearJournal();
    Operator::tap(scene.row(QStringLiteral("Pump Room 3")));
    QCOMPARE(Journal::calls("connectWifi"), QStringList());
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Enter password")));
    for (const CardWifi::WIFI_INFO &info : WifiScene::wifi()->networks())
        QVERIFY(info.item != scene.row(QStringLiteral("Pump Room 3")) || info.password.isEmpty());
}

void TestCardWifiRefusals::refusedPasswordIsForgottenOverAScan()
{
    // This panel goes on telling the password that it was refused with.
    HmiSimulator::setNetworks({{"stubborn", "right", 80, 0, "wrong"}});
    const WifiScene scene;
    scene.scan();
    tapAndRefuse(scene, QStringLiteral("stubborn"));
    scene.closeDialog();
    QCOMPARE(scanAndTap(scene, QStringLiteral("stubborn")), QStringList());
    // Joined with the right one, it is known again.
    WifiScene::scriptReports({});
    scene.typePassword(QStringLiteral("right"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    if (scene.dialogBody())
        scene.closeDialog();
    HmiSimulator::leaveNetwork();
    QCOMPARE(scanAndTap(scene, QStringLiteral("stubborn")).size(), 1);
}

void TestCardWifiRefusals::newPasswordOfThePanelIsTried()
{
    HmiSimulator::setNetworks({{"hall", "new", 80, 0, "old"}});
    const WifiScene scene;
    scene.scan();
    tapAndRefuse(scene, QStringLiteral("hall"));
    scene.closeDialog();
    // Somebody has corrected it elsewhere.
    store("new");
    WifiScene::scriptReports({});
    QCOMPARE(scanAndTap(scene, QStringLiteral("hall")),
             QStringList(QStringLiteral(R"(connectWifi("hall", ****))")));
}

void TestCardWifiRefusals::refusalOfATypedPasswordSparesTheStoredOne()
{
    HmiSimulator::Network hall{"hall", "right", 80};
    hall.needsPassword = 1;
    HmiSimulator::setNetworks({hall});
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({4});
    Operator::tap(scene.row(QStringLiteral("hall")));
    scene.typePassword(QStringLiteral("typo"));
    scene.tapInDialog(QStringLiteral("Connect"));
    // A list comes during the attempt, with a password that the panel got elsewhere.
    store("right");
    WifiScene::wifi()->connectWifi(WifiScene::wifi()->networks()[0].ssid, QStringLiteral("typo"));
    scene.closeDialog();
    scene.scan();
    HmiSimulator::clearJournal();
    while (WifiScene::report("connectWifi")) {
    }
    Operator::tap(scene.row(QStringLiteral("hall")));
    QCOMPARE(Journal::calls("connectWifi").size(), 1);
}

void TestCardWifiRefusals::refusalOfNoPassword()
{
    // The panel says that none is needed.
    HmiSimulator::Network hall{"hall", "right", 80};
    hall.needsPassword = 0;
    HmiSimulator::setNetworks({hall});
    const WifiScene scene;
    scene.scan();
    tapAndRefuse(scene, QStringLiteral("hall"));
    scene.closeDialog();
    QCOMPARE(scanAndTap(scene, QStringLiteral("hall")), QStringList());
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Enter password")));
}

void TestCardWifiRefusals::refusalOutlivesAnotherPassword()
{
    HmiSimulator::setNetworks({{"hall", "right", 80, 0, "old"}});
    const WifiScene scene;
    scene.scan();
    tapAndRefuse(scene, QStringLiteral("hall"));
    scene.typePassword(QStringLiteral("typo"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    scene.closeDialog();
    // The panel still tells the one that was refused first.
    QCOMPARE(scanAndTap(scene, QStringLiteral("hall")), QStringList());
}

void TestCardWifiRefusals::resetForgetsRefusals()
{
    HmiSimulator::setNetworks({{"hall", "right", 80, 0, "old"}});
    const WifiScene scene;
    scene.scan();
    tapAndRefuse(scene, QStringLiteral("hall"));
    scene.closeDialog();
    Operator::tap(scene.resetButton());
    QVERIFY(WifiScene::report("resetWifi"));
    store("old");
    QCOMPARE(scanAndTap(scene, QStringLiteral("hall")).size(), 1);
}

PANEL_TEST_MAIN(TestCardWifiRefusals)

#include "test_cardwifi_refusals.moc"
