#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>

using QSP::CardWifi;

namespace {

bool isRed(const QQuickItem *text)
{
    return text->property("color").value<QColor>() == QColor(Qt::red);
}

/// Joins a network on an adapter with DHCP, up to the request for a lease.
void joinUntilTheLease(const WifiScene &scene)
{
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
}

} // namespace

/// Joining a network: what is sent, and what each report does.
class TestCardWifiJoin : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void openNetworkIsJoinedAtOnce();
    void knownPasswordIsSentAtOnce();
    void unknownPasswordIsAskedFor();
    void flagWithAStoredPassword();
    void sameBytesAreSent();
    void failures_data();
    void failures();
    void unknownReportsAreIgnored();
    void offlineScansAgain();
    void connectedClosesTheDialog();
    void connectedAsksForALease();
    void leaseThatNeverComes();
    void connectedToAnUnlistedNetwork();
    void networkThatVanished();
    void listRebuiltUnderTheDialog();
    void networkCardIsTold();
    void leavingThePageClosesTheDialog();
};

void TestCardWifiJoin::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiJoin::openNetworkIsJoinedAtOnce()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::clearJournal();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QCOMPARE(Journal::callsButBeeps(),
             QStringList(QStringLiteral(R"(connectWifi("Works Hall Guests", ""))")));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connecting);
    QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));
    QVERIFY(Operator::items(scene.dialogBody(), [](QQuickItem *item) {
                return item == WifiScene::part("scaning") && item->isVisible();
            }).size() == 1);
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connecting);
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connected);
}

void TestCardWifiJoin::knownPasswordIsSentAtOnce()
{
    HmiSimulator::setNetworks({{"known", "secret-1", 70, 0, "secret-1"}});
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("known")));
    QCOMPARE(Journal::calls("connectWifi"), QStringList(QStringLiteral(R"(connectWifi("known", ****))")));
}

void TestCardWifiJoin::unknownPasswordIsAskedFor()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(Journal::calls("connectWifi"), QStringList());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(scene.dialogTexts(), QStringList({"Maintenance", "Enter password", "Show Password", "Connect"}));
    QCOMPARE(Operator::byText(scene.dialogBody(), QStringLiteral("Enter password"))
                 ->property("color")
                 .value<QColor>(),
             QColor(Qt::black));
    scene.typePassword(QStringLiteral("torque55Nm"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList(QStringLiteral(R"(connectWifi("Maintenance", ****))")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(QString::fromStdString(HmiSimulator::panel().wifi.joined), QStringLiteral("Maintenance"));
}

void TestCardWifiJoin::flagWithAStoredPassword()
{
    // The flag asks for a password, and there is one.
    HmiSimulator::Network asks{"asks", "pw", 70, 0, "pw"};
    asks.needsPassword = 7;
    // The flag does not, though nothing is stored.
    HmiSimulator::Network open{"open", "pw", 70};
    open.needsPassword = 0;
    HmiSimulator::setNetworks({asks, open});
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("asks")));
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("open")));
    QCOMPARE(Journal::calls("connectWifi"), QStringList({QStringLiteral(R"(connectWifi("asks", ****))"),
                                                         QStringLiteral(R"(connectWifi("open", ""))")}));
}

void TestCardWifiJoin::sameBytesAreSent()
{
    HmiSimulator::setNetworks(
        {{"\xD7\xB0\xC5\xE4\xCF\xDF", "", 90}, {std::string(32, 'W'), "", 80}, {"", "", 70}});
    const WifiScene scene;
    scene.scan();
    for (const int row : {0, 1, 2}) {
        Operator::tap(WifiScene::wifi()->networks()[row].item);
        if (scene.dialogBody())
            scene.closeDialog();
    }
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList({QStringLiteral("connectWifi(\"\u05F0\\xC5\\xE4\\xCF\\xDF\", \"\")"),
                          QStringLiteral("connectWifi(\"%1\", \"\")").arg(QString(32, QLatin1Char('W'))),
                          QStringLiteral(R"(connectWifi("", ""))")}));
}

void TestCardWifiJoin::failures_data()
{
    QTest::addColumn<int>("report");
    QTest::addColumn<QString>("text");
    QTest::newRow("offline") << 0 << "Wi-Fi Offline";
    QTest::newRow("timeout") << 3 << "Time out";
    QTest::newRow("wrong password") << 4 << "Wrong password";
}

void TestCardWifiJoin::failures()
{
    QFETCH(int, report);
    QFETCH(QString, text);
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({1, report});
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("abc"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(scene.dialogTexts(), QStringList({"Maintenance", "Connecting"}));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), report == 0 ? CardWifi::Scanning : CardWifi::Idle);
    QStringList texts = scene.dialogTexts();
    texts.removeAll(scene.input()->property("displayText").toString());
    texts.removeAll(QStringLiteral("abc"));
    QCOMPARE(texts, QStringList({"Maintenance", text, "Show Password", "Connect"}));
    QVERIFY(isRed(Operator::byText(scene.dialogBody(), text)));
    // The way on: another try from the same dialog.
    HmiSimulator::clearJournal();
    scene.tapInDialog(QStringLiteral("Connect"));
    QCOMPARE(Journal::calls("connectWifi").size(), 1);
}

void TestCardWifiJoin::unknownReportsAreIgnored()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({1, 7, 5, -1, 255});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    for (int i = 0; i < 5; ++i) {
        QVERIFY(WifiScene::report("connectWifi"));
        QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connecting);
        QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));
    }
}

void TestCardWifiJoin::offlineScansAgain()
{
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({0});
    HmiSimulator::clearJournal();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(Journal::calls("scanWifi").size(), 1);
    // The network that was joined before is joined no more.
    QVERIFY(WifiScene::current().isNull());
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::listed().size(), 9);
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Wi-Fi Offline")));
}

void TestCardWifiJoin::connectedClosesTheDialog()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, 0xC0A80102, 0xFFFFFF00, 0xC0A80101);
    QSignalSpy connected(WifiScene::wifi(), &CardWifi::connectedChanged);
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    // An address is there already, from whatever source.
    QVERIFY(WifiScene::report("connectWifi"));
    HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, 0xC0A80102, 0xFFFFFF00, 0xC0A80101);
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(Journal::calls("setDHCP"), QStringList());
    QCOMPARE(connected.size(), 1);
    QCOMPARE(connected[0][0].toBool(), true);
    QTRY_VERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
    QVERIFY(WifiScene::listed().contains(QStringLiteral("Works Hall")));
    QVERIFY(!WifiScene::listed().contains(QStringLiteral("Works Hall Guests")));
}

void TestCardWifiJoin::connectedAsksForALease()
{
    const WifiScene scene;
    joinUntilTheLease(scene);
    QCOMPARE(Journal::calls("setDHCP"), QStringList(QStringLiteral("setDHCP(WIFI, true, persist)")));
    // The dialog waits for the lease.
    QVERIFY(scene.dialogBody());
    QVERIFY(WifiScene::report("setDHCP"));
    QTRY_VERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
}

void TestCardWifiJoin::leaseThatNeverComes()
{
    const WifiScene scene;
    joinUntilTheLease(scene);
    scene.closeDialog();
    QVERIFY(!scene.dialogBody());
    // A lease of the last attempt must not close the dialog of the next one.
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("x"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("setDHCP"));
    QCOMPARE(scene.dialogTexts(), QStringList({"Maintenance", "Connecting"}));
}

void TestCardWifiJoin::connectedToAnUnlistedNetwork()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    // The list is lost while the panel joins.
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.nullList = true; });
    scene.closeDialog();
    Operator::tap(WifiScene::scanButton());
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(WifiScene::wifi()->networks().isEmpty());
    QVERIFY(WifiScene::report("connectWifi"));
    QTRY_VERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
}

void TestCardWifiJoin::networkThatVanished()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("torque55Nm"));
    HmiSimulator::setNetworks({{"other", "", 50}});
    WifiScene::wifi()->onClickScanWifi();
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(scene.dialogBody());
    HmiSimulator::clearJournal();
    scene.tapInDialog(QStringLiteral("Connect"));
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList(QStringLiteral(R"(connectWifi("Maintenance", ****))")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Time out")));
}

void TestCardWifiJoin::listRebuiltUnderTheDialog()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    // The same networks in another order.
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        std::reverse(panel.wifi.networks.begin(), panel.wifi.networks.end());
    });
    WifiScene::wifi()->onClickScanWifi();
    QVERIFY(WifiScene::report("scanWifi"));
    scene.typePassword(QStringLiteral("torque55Nm"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(QString::fromStdString(HmiSimulator::panel().wifi.joined), QStringLiteral("Maintenance"));
}

void TestCardWifiJoin::networkCardIsTold()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    QSignalSpy status(WifiScene::network(), &QSP::CardNetwork::wifiStatusChanged);
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    // While the attempt goes on the network card says nothing.
    WifiScene::network()->updateWifiStatus();
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(status.size(), 0);
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(status.size(), 1);
    QCOMPARE(status[0][0].toBool(), true);
    QCOMPARE(status[0][1].toString(), QStringLiteral("Works Hall Guests"));

    for (const int report : {0, 3, 4}) {
        WifiScene::scriptReports({report});
        status.clear();
        WifiScene::wifi()->connectWifi(WifiScene::wifi()->networks()[1].ssid, QString());
        QVERIFY(WifiScene::report("connectWifi"));
        QCOMPARE(status.size(), 1);
        QCOMPARE(status[0][0].toBool(), false);
    }
    // A reset ends an attempt as well.
    WifiScene::wifi()->connectWifi(WifiScene::wifi()->networks().value(1).ssid, QString());
    status.clear();
    WifiScene::wifi()->onWifiReset();
    QCOMPARE(status.size(), 1);
}

void TestCardWifiJoin::leavingThePageClosesTheDialog()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QVERIFY(scene.dialogBody());
    WifiScene::root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Version);
    QTRY_VERIFY(!scene.dialogBody());

    WifiScene::root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Wifi);
    Operator::settle(20);
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QVERIFY(scene.dialogBody());
    WifiScene::root()->close();
    QTRY_VERIFY(!scene.dialogBody());
}

PANEL_TEST_MAIN(TestCardWifiJoin)

#include "test_cardwifi_join.moc"
