#include "tests/classes/joinscene.h"

#include <QtGui/QGuiApplication>

using QSP::JoinAttempt;
using State = JoinAttempt::State;
using Report = JoinAttempt::Report;

/// An attempt to join as a panel reports it: late, twice, in another order or not at all. No window.
class TestJoinAttemptReports : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void reportsOfTheService_data();
    void reportsOfTheService();
    void asksTheServiceToJoin();
    void asksForALeaseOnce();
    void asksForNoLease_data();
    void asksForNoLease();
    void nameThatComesLater();
    void limitOfEachWaiting_data();
    void limitOfEachWaiting();
    void anotherAttemptIsHeardAlone();
    void anotherAttemptStaysUnderWay();
    void attemptBegunInASlot();
    void reportAfterTheLinkIsGone();
    void refusals();
};

void TestJoinAttemptReports::init()
{
    beginWatch();
    JoinScene::init();
}

void TestJoinAttemptReports::reportsOfTheService_data()
{
    QTest::addColumn<QVector<int>>("reports");
    QTest::addColumn<State>("state");
    QTest::newRow("nothing") << QVector<int>{} << State::Asked;
    QTest::newRow("connecting") << QVector<int>{1} << State::Connecting;
    QTest::newRow("connecting twice") << QVector<int>{1, 1} << State::Connecting;
    QTest::newRow("unknown") << QVector<int>{5, -1, 255} << State::Asked;
    QTest::newRow("unknown between") << QVector<int>{1, 7, 1} << State::Connecting;
    QTest::newRow("offline") << QVector<int>{0} << State::Offline;
    QTest::newRow("timed out") << QVector<int>{1, 3} << State::TimedOut;
    QTest::newRow("refused") << QVector<int>{1, 4, 4} << State::WrongPassword;
    QTest::newRow("connected") << QVector<int>{1, 2} << State::AwaitingLease;
    QTest::newRow("connecting after the end") << QVector<int>{3, 1} << State::TimedOut;
    QTest::newRow("connecting after joining") << QVector<int>{2, 1, 2} << State::AwaitingLease;
    QTest::newRow("another failure") << QVector<int>{3, 1, 4} << State::WrongPassword;
    QTest::newRow("joined after all") << QVector<int>{3, 4, 2} << State::AwaitingLease;
    QTest::newRow("lost again") << QVector<int>{2, 0} << State::Offline;
}

void TestJoinAttemptReports::reportsOfTheService()
{
    QFETCH(QVector<int>, reports);
    QFETCH(State, state);
    JoinScene::scriptReports({reports.begin(), reports.end()});
    JoinScene scene;
    scene.begin();
    for (int i = 0; i < reports.size(); ++i)
        QVERIFY(JoinScene::report("connectWifi"));
    QCOMPARE(nameOf(scene.state()), nameOf(state));
    QVERIFY(Journal::calls("setDHCP").size() <= 1);
}

void TestJoinAttemptReports::asksTheServiceToJoin()
{
    JoinScene scene;
    HMI::SSID full;
    full.fill('W');
    scene.attempt().begin(full, QStringLiteral("pässword"));
    QCOMPARE(Journal::calls(),
             QStringList(QStringLiteral("connectWifi(\"%1\", ****)").arg(QString(32, QLatin1Char('W')))));
    QCOMPARE(scene.attempt().ssid().back(), '\0');
}

void TestJoinAttemptReports::asksForALeaseOnce()
{
    JoinScene::scriptReports({2, 2, 1, 2});
    JoinScene scene;
    QSignalSpy joined(&scene.attempt(), &JoinAttempt::joined);
    scene.begin();
    while (JoinScene::report("connectWifi")) {
    }
    scene.link.read();
    QCOMPARE(Journal::calls("setDHCP"), QStringList(QStringLiteral("setDHCP(WIFI, true, persist)")));
    QCOMPARE(joined.size(), 0);
    HmiSimulator::setDelivery(HmiSimulator::Operation::Dhcp, HmiSimulator::Delivery::Twice);
    while (JoinScene::report("setDHCP")) {
    }
    QCOMPARE(nameOf(scene.state()), nameOf(State::Joined));
    QCOMPARE(joined.size(), 1);
}

void TestJoinAttemptReports::asksForNoLease_data()
{
    QTest::addColumn<bool>("hasAddress");
    QTest::addColumn<bool>("isNearby");
    QTest::newRow("it has an address") << true << true;
    QTest::newRow("not in the list") << false << false;
}

void TestJoinAttemptReports::asksForNoLease()
{
    QFETCH(bool, hasAddress);
    QFETCH(bool, isNearby);
    JoinScene scene;
    HMI::SSID asked{};
    scene.attempt().setNearby([&asked, isNearby](const HMI::SSID &ssid) {
        asked = ssid;
        return isNearby;
    });
    QSignalSpy joined(&scene.attempt(), &JoinAttempt::joined);
    scene.begin();
    HmiSimulator::joinNetwork("Plant");
    JoinScene::setAddress(hasAddress ? 0xC0A80102 : 0);
    scene.deliver(Report::Connected);
    QCOMPARE(nameOf(scene.state()), nameOf(State::Joined));
    QCOMPARE(asked, ssidOf("Plant"));
    QCOMPARE(joined.size(), 1);
    QCOMPARE(Journal::calls("setDHCP"), QStringList());
}

void TestJoinAttemptReports::nameThatComesLater()
{
    JoinScene scene;
    scene.reach(State::AwaitingName);
    scene.link.read();
    QCOMPARE(nameOf(scene.state()), nameOf(State::AwaitingName));
    HmiSimulator::joinNetwork("Plant");
    scene.link.read();
    QCOMPARE(nameOf(scene.state()), nameOf(State::AwaitingLease));
    QVERIFY(JoinScene::report("setDHCP"));
    QCOMPARE(nameOf(scene.state()), nameOf(State::Joined));
}

void TestJoinAttemptReports::limitOfEachWaiting_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<State>("next");
    QTest::newRow("first word") << State::Asked << State::Overdue;
    QTest::newRow("last word") << State::Connecting << State::Overdue;
    QTest::newRow("name") << State::AwaitingName << State::Joined;
    QTest::newRow("lease") << State::AwaitingLease << State::Joined;
}

void TestJoinAttemptReports::limitOfEachWaiting()
{
    QFETCH(State, state);
    QFETCH(State, next);
    JoinScene scene;
    scene.reach(state);
    QCOMPARE(scene.limit()->interval(), 60000);
    scene.limit()->start(0);
    QTRY_COMPARE(nameOf(scene.state()), nameOf(next));
    QVERIFY(!scene.limit()->isActive());
    // What comes now comes too late.
    while (JoinScene::report("setDHCP")) {
    }
    QCOMPARE(nameOf(scene.state()), nameOf(next));
}

void TestJoinAttemptReports::anotherAttemptIsHeardAlone()
{
    JoinScene::scriptReports({4});
    JoinScene scene;
    scene.begin("first");
    JoinScene::scriptReports({1});
    scene.begin("second");
    QVERIFY(JoinScene::report("connectWifi(\"first"));
    QCOMPARE(nameOf(scene.state()), nameOf(State::Asked));
    QVERIFY(JoinScene::report("connectWifi(\"second"));
    QCOMPARE(nameOf(scene.state()), nameOf(State::Connecting));

    // Nor does a lease of the one before end the next.
    scene.deliver(Report::Connected);
    HmiSimulator::joinNetwork("second");
    scene.link.read();
    QCOMPARE(nameOf(scene.state()), nameOf(State::AwaitingLease));
    JoinScene::scriptReports({2});
    scene.begin("third");
    QVERIFY(JoinScene::report("connectWifi"));
    QVERIFY(JoinScene::report("setDHCP"));
    QCOMPARE(nameOf(scene.state()), nameOf(State::AwaitingLease));
    QVERIFY(JoinScene::report("setDHCP"));
    QCOMPARE(nameOf(scene.state()), nameOf(State::Joined));
}

void TestJoinAttemptReports::anotherAttemptStaysUnderWay()
{
    JoinScene scene;
    QSignalSpy underWay(&scene.attempt(), &JoinAttempt::underWayChanged);
    scene.begin("first");
    scene.begin("second");
    QCOMPARE(underWay.size(), 1);
    QCOMPARE(scene.attempt().ssid(), ssidOf("second"));
}

void TestJoinAttemptReports::attemptBegunInASlot()
{
    JoinScene scene;
    QVector<bool> told;
    connect(&scene.attempt(), &JoinAttempt::underWayChanged, this, [&told](bool on) { told << on; });
    connect(&scene.attempt(), &JoinAttempt::stateChanged, this, [&scene](State state) {
        if (state == State::Offline)
            scene.begin("second");
    });
    scene.begin("first");
    scene.deliver(Report::Offline);
    QVERIFY(scene.attempt().isUnderWay());
    QCOMPARE(told.last(), true);
}

void TestJoinAttemptReports::reportAfterTheLinkIsGone()
{
    JoinScene::scriptReports({1, 2});
    {
        JoinScene scene;
        scene.begin();
    }
    HmiSimulator::clearJournal();
    QVERIFY(JoinScene::report("connectWifi"));
    QVERIFY(JoinScene::report("connectWifi"));
    QCOMPARE(Journal::calls(), QStringList());
}

void TestJoinAttemptReports::refusals()
{
    JoinScene scene;
    const HMI::SSID plant = ssidOf("Plant");
    const auto isRefused = [&](const char *password) {
        return scene.attempt().refusals().contains(plant, QLatin1String(password));
    };
    scene.begin("Plant", QStringLiteral("old"));
    scene.deliver(Report::TimedOut);
    QVERIFY(!isRefused("old"));
    scene.deliver(Report::WrongPassword);
    QVERIFY(isRefused("old"));
    QVERIFY(!isRefused("new"));
    // Taken after all.
    scene.deliver(Report::Connected);
    QVERIFY(!isRefused("old"));

    scene.begin("Plant", QStringLiteral("old"));
    scene.deliver(Report::WrongPassword);
    scene.begin("Plant", QStringLiteral("new"));
    scene.deliver(Report::Connected);
    QVERIFY(isRefused("old"));
    scene.deliver(Report::Reset);
    QVERIFY(!isRefused("old"));
}

PANEL_TEST_MAIN(TestJoinAttemptReports)

#include "test_joinattempt_reports.moc"
