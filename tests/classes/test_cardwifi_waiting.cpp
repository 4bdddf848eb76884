#include "tests/classes/wifiscene.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

using QSP::CardWifi;

namespace {

/// Joins a network of which the panel reports that it has joined, while it does not know yet what.
void joinWithoutName(const WifiScene &scene)
{
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    WifiScene::scriptReports({2});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(HmiSimulator::fireNext("connectWifi"));
    HmiSimulator::joinNetwork("");
    QCoreApplication::processEvents();
}

QTimer *timerOf(const char *limit)
{
    const QObject *attempt = &WifiScene::root()->panel().wifi().attempt();
    for (const QObject *owner : {static_cast<const QObject *>(WifiScene::wifi()), attempt}) {
        if (auto *timer = owner->findChild<QTimer *>(QLatin1String(limit)))
            return timer;
    }
    return nullptr;
}

/// Lets the page wait for an answer no longer.
void endPatience(const char *limit)
{
    auto *timer = timerOf(limit);
    QVERIFY(timer);
    QVERIFY(timer->isActive());
    const int interval = timer->interval();
    timer->start(0);
    QTRY_VERIFY(!timer->isActive());
    timer->setInterval(interval);
}

bool isWaiting(const char *limit)
{
    const auto *timer = timerOf(limit);
    return timer && timer->isActive();
}

} // namespace

/// What the page waits for, and that it does not wait for ever.
class TestCardWifiWaiting : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void limits();
    void joinThatNeverReports();
    void joinThatReportsTooLate();
    void joinThatReports_data();
    void joinThatReports();
    void scanThatNeverReports();
    void scanThatReportsTooLate();
    void resetThatNeverReports();
    void emptyListUnderAFinger();
    void joinedBeforeTheNameIsKnown();
    void nameComesWhileTheDialogIsClosed();
    void nameThatNeverComes();
    void nameAfterAnotherAttempt();
    void leaseThatNeverComes();
};

void TestCardWifiWaiting::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiWaiting::limits()
{
    const WifiScene scene;
    const auto seconds = [](const char *limit) {
        const auto *timer = timerOf(limit);
        return timer ? timer->interval() / 1000 : 0;
    };
    QCOMPARE(seconds("joinLimit"), 60);
    QCOMPARE(seconds("scanLimit"), 30);
}

void TestCardWifiWaiting::joinThatNeverReports()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::leaveNetwork();
    QSignalSpy status(WifiScene::network(), &QSP::CardNetwork::wifiStatusChanged);
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    // It is under way, and that is the last that is heard of it.
    QVERIFY(WifiScene::report("connectWifi"));
    HmiSimulator::dropPending();
    QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));
    status.clear();
    endPatience("joinLimit");
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Time out")));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Connect")));
    // The Network page follows the link again.
    QCOMPARE(status.size(), 1);
}

void TestCardWifiWaiting::joinThatReportsTooLate()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    WifiScene::scriptReports({4, 2});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    endPatience("joinLimit");
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Time out")));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QVERIFY(scene.dialogTexts().contains(QStringLiteral("Time out")));
    QCOMPARE(Journal::calls("setDHCP"), QStringList());
}

void TestCardWifiWaiting::joinThatReports_data()
{
    QTest::addColumn<int>("report");
    QTest::newRow("offline") << 0;
    QTest::newRow("connected") << 2;
    QTest::newRow("timeout") << 3;
    QTest::newRow("wrong password") << 4;
}

void TestCardWifiWaiting::joinThatReports()
{
    QFETCH(int, report);
    const WifiScene scene;
    scene.scan();
    WifiScene::scriptReports({1, report});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(isWaiting("joinLimit"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(isWaiting("joinLimit"));
    QVERIFY(WifiScene::report("connectWifi"));
    while (WifiScene::report("setDHCP")) {
    }
    QVERIFY(!isWaiting("joinLimit"));
}

void TestCardWifiWaiting::scanThatNeverReports()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(WifiScene::scanButton());
    HmiSimulator::dropPending();
    endPatience("scanLimit");
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(WifiScene::listed(), QStringList());
    QVERIFY(WifiScene::scanButton()->isEnabled());
    scene.scan();
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
    QVERIFY(!isWaiting("scanLimit"));
}

void TestCardWifiWaiting::scanThatReportsTooLate()
{
    const WifiScene scene;
    Operator::tap(WifiScene::scanButton());
    endPatience("scanLimit");
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::listed(), QStringList());
}

void TestCardWifiWaiting::resetThatNeverReports()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.resetButton());
    HmiSimulator::dropPending();
    endPatience("scanLimit");
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QVERIFY(scene.resetButton()->isEnabled());
}

void TestCardWifiWaiting::emptyListUnderAFinger()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(WifiScene::scanButton());
    HmiSimulator::dropPending();
    const QStringList before = WifiScene::listed();
    QTest::mousePress(scene.window(), Qt::LeftButton, {}, {600, 595});
    endPatience("scanLimit");
    QCOMPARE(WifiScene::listed(), before);
    QTest::mouseRelease(scene.window(), Qt::LeftButton, {}, {600, 595});
    QTRY_COMPARE(WifiScene::listed(), QStringList());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
}

void TestCardWifiWaiting::joinedBeforeTheNameIsKnown()
{
    const WifiScene scene;
    joinWithoutName(scene);
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Connected);
    QCOMPARE(Journal::calls("setDHCP"), QStringList());
    QCOMPARE(scene.dialogTexts(), QStringList({"Works Hall Guests", "Connecting"}));

    HmiSimulator::joinNetwork("Works Hall Guests");
    WifiScene::network()->updateWifiStatus();
    QCOMPARE(Journal::calls("setDHCP"), QStringList(QStringLiteral("setDHCP(WIFI, true, persist)")));
    // Once, however often the panel is looked at.
    WifiScene::network()->updateWifiStatus();
    QCOMPARE(Journal::calls("setDHCP").size(), 1);
    QVERIFY(WifiScene::report("setDHCP"));
    QTRY_VERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
}

void TestCardWifiWaiting::nameComesWhileTheDialogIsClosed()
{
    const WifiScene scene;
    joinWithoutName(scene);
    scene.closeDialog();
    // A password for another network is being typed when the name comes.
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    const QStringList before = scene.dialogTexts();
    HmiSimulator::joinNetwork("Works Hall Guests");
    WifiScene::network()->updateWifiStatus();
    QCOMPARE(Journal::calls("setDHCP").size(), 1);
    QVERIFY(WifiScene::report("setDHCP"));
    Operator::settle(20);
    QCOMPARE(scene.dialogTexts(), before);
}

void TestCardWifiWaiting::nameThatNeverComes()
{
    const WifiScene scene;
    joinWithoutName(scene);
    endPatience("joinLimit");
    QTRY_VERIFY(!scene.dialogBody());
    HmiSimulator::joinNetwork("Works Hall Guests");
    WifiScene::network()->updateWifiStatus();
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
}

void TestCardWifiWaiting::nameAfterAnotherAttempt()
{
    const WifiScene scene;
    joinWithoutName(scene);
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("torque55Nm"));
    scene.tapInDialog(QStringLiteral("Connect"));
    HmiSimulator::joinNetwork("Works Hall Guests");
    WifiScene::wifi()->updateCurrentWifi();
    QCOMPARE(Journal::calls("setDHCP"), QStringList());
    QCOMPARE(scene.dialogTexts(), QStringList({"Maintenance", "Connecting"}));
}

void TestCardWifiWaiting::leaseThatNeverComes()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    WifiScene::scriptReports({2});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(scene.dialogBody());
    HmiSimulator::dropPending();
    // The network is joined all the same; the operator is not left in front of "Connecting".
    endPatience("joinLimit");
    Operator::settle(20);
    QVERIFY(!scene.dialogBody());
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall Guests"));
}

PANEL_TEST_MAIN(TestCardWifiWaiting)

#include "test_cardwifi_waiting.moc"
