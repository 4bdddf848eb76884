#include "tests/linux/wifiscene.h"

#include <QtCore/QSemaphore>

using namespace HmiLinux;
using HMI::SystemSet;

using Steps = FakeNetworkManager::Steps;

/// Joining a network, and everything that it can come to.
class TestLinuxWifiJoin : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void newNetworkIsStoredOnceItIsJoined();
    void wrongPasswordLeavesNothing();
    void outcomes_data();
    void outcomes();
    void stepsOfTheActivationBefore();
    void passwordThatNoNetworkCanHave();
    void refusedRequest();
    void refusedStoring();
    void attemptThatTakesTooLong();
    void newAttemptReplacesTheOldOne();
    void successOfTheAttemptBefore();
    void attemptThatIsNotFollowed();
    void networkThatGoesInMidJoin();
    void deviceIsPulledOutInMidJoin();
    void daemonGoesInMidJoin();
    void switchedOffInMidJoin();
    void whatCannotBeJoined();
    void passwordsReachNoLog();

private:
    std::unique_ptr<WifiScene> m_scene;
};

void TestLinuxWifiJoin::init()
{
    beginWatch();
    m_scene = std::make_unique<WifiScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxWifiJoin::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxWifiJoin::newNetworkIsStoredOnceItIsJoined()
{
    WifiScene &scene = *m_scene;
    const QByteArray name("\xff\xfe Hall", 7);
    scene.wifi.appear(name, 80);
    scene.daemon.setSteps(WifiScene::joins());
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined(name, "gr\xc3\xbcn und blau"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(scene.reports().at(0), int(SystemSet::WIFI_CONNECTING));
    // Who is told may ask at once.
    QVERIFY(scene.link().isJoined);
    QCOMPARE(bytesOf(scene.link().ssid), name);
    QCOMPARE(scene.link().strength, 80);
    QVERIFY(scene.adapter().live.ip != 0);

    QCOMPARE(scene.daemon.profiles().size(), 1);
    const QString profile = scene.daemon.profiles().constFirst();
    QVERIFY(scene.wifi.isStored(profile));
    QCOMPARE(scene.wifi.password(profile), QStringLiteral("gr\u00fcn und blau"));
    const Sections settings = scene.daemon.profile(profile);
    QCOMPARE(settings.value(wifiType()).value(QStringLiteral("ssid")).toByteArray(), name);
    QCOMPARE(settings.value(wifiSecuritySection()).value(QStringLiteral("key-mgmt")).toString(),
             QStringLiteral("wpa-psk"));
    const QVariantMap connection = settings.value(QStringLiteral("connection"));
    QCOMPARE(connection.value(QStringLiteral("interface-name")).toString(), FakeWifi::interface());
    QVERIFY(!connection.contains(QStringLiteral("auth-retries")));
    QTRY_COMPARE(scene.adapter().profile, profile);
}

void TestLinuxWifiJoin::wrongPasswordLeavesNothing()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.setSteps(WifiScene::refuses());
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "not this one"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QTRY_VERIFY(scene.daemon.profiles().isEmpty());
    QVERIFY(!scene.daemon.calls().contains(QStringLiteral("Update2"))); // it never was stored
    QVERIFY(!scene.link().isJoined);
    const WifiActs::Records *list = scene.scanned();
    QVERIFY(list != nullptr);
    QCOMPARE(int(list->front().needsPassword), 1);
}

void TestLinuxWifiJoin::outcomes_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<uint>("security");
    QTest::addColumn<bool>("isHeard");
    QTest::addColumn<int>("outcome");
    const int wrong = SystemSet::WIFI_WRONG_PASSWORD;
    const int timeout = SystemSet::WIFI_TIMEOUT;
    const int offline = SystemSet::WIFI_OFFLINE;
    const int connected = SystemSet::WIFI_CONNECTED;
    const uint psk = FakeWifi::Psk;
    QTest::newRow("refused") << WifiScene::refuses() << psk << true << wrong;
    QTest::newRow("seven characters") << Steps{{40, 0}, {50, 0}, {120, 7}} << psk << true << wrong;
    QTest::newRow("absent") << WifiScene::isAbsent() << psk << false << timeout;
    QTest::newRow("gone silent") << WifiScene::isAbsent() << psk << true << timeout;
    QTest::newRow("refused by WPA3") << WifiScene::isAbsent() << uint(FakeWifi::Sae) << true << wrong;
    QTest::newRow("refused by WPA2 and WPA3")
        << WifiScene::isAbsent() << uint(FakeWifi::Both) << true << wrong;
    QTest::newRow("absent, open") << WifiScene::isAbsent() << uint(FakeWifi::Open) << true << timeout;
    QTest::newRow("refused, then silent")
        << Steps{{40, 0}, {50, 0}, {60, 8}, {50, 0}, {120, 53}} << psk << true << wrong;
    QTest::newRow("no lease") << Steps{{40, 0}, {50, 0}, {70, 0}, {120, 5}} << psk << true << offline;
    QTest::newRow("ended by somebody")
        << Steps{{40, 0}, {50, 0}, {110, 39}, {30, 39}} << psk << true << offline;
    QTest::newRow("joined after a removed profile")
        << Steps{{40, 0}, {110, 38}, {40, 0}, {100, 0}} << psk << true << connected;
    QTest::newRow("WPA3") << WifiScene::joins() << uint(FakeWifi::Sae) << true << connected;
    QTest::newRow("open") << WifiScene::joins() << uint(FakeWifi::Open) << true << connected;
    QTest::newRow("WEP") << WifiScene::joins() << uint(FakeWifi::Wep) << true << connected;
    QTest::newRow("not heard") << WifiScene::joins() << psk << false << connected;
}

void TestLinuxWifiJoin::outcomes()
{
    QFETCH(Steps, steps);
    QFETCH(uint, security);
    QFETCH(bool, isHeard);
    QFETCH(int, outcome);
    WifiScene &scene = *m_scene;
    if (isHeard)
        scene.wifi.appear("Hall", 80, FakeWifi::Security(security));
    scene.daemon.setSteps(steps);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), outcome);
    QCOMPARE(scene.reports().size(), 2);
    const int stored = outcome == SystemSet::WIFI_CONNECTED ? 1 : 0;
    QTRY_COMPARE(scene.daemon.profiles().size(), stored);
    QCOMPARE(scene.link().isJoined, stored == 1);
}

void TestLinuxWifiJoin::stepsOfTheActivationBefore()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.appear("Office", 70);
    scene.daemon.activate(scene.wifi.know("Office", QStringLiteral("its password")), FakeWifi::interface());
    Steps steps = {{110, 60}, {30, 60}, {120, 7}, {100, 0}};
    steps += WifiScene::joins();
    scene.daemon.setSteps(steps);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(bytesOf(scene.link().ssid), QByteArray("Hall"));
}

void TestLinuxWifiJoin::passwordThatNoNetworkCanHave()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.refuseNew(QStringLiteral("org.freedesktop.NetworkManager.Settings.Connection.InvalidProperty"),
                         QStringLiteral("802-11-wireless-security.psk: property is invalid"));
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "short"), int(SystemSet::WIFI_WRONG_PASSWORD));
}

void TestLinuxWifiJoin::refusedRequest()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.refuseNew(QStringLiteral("org.freedesktop.NetworkManager.PermissionDenied"),
                         QStringLiteral("Not authorized"));
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_OFFLINE));
}

void TestLinuxWifiJoin::refusedStoring()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.onCall(QStringLiteral("Update2"), [&scene](const QDBusMessage &message) {
        // A slow one: nothing is told any more after it.
        static_cast<void>(QTest::qWaitFor([&scene] { return scene.link().isJoined; }, WifiScene::Patience));
        return scene.daemon.refusal(message);
    });
    QVERIFY(scene.startWithWifi());
    expectMessage(QStringLiteral("the network is joined and not kept"));
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(!scene.wifi.isStored(scene.daemon.profiles().constFirst()));
}

void TestLinuxWifiJoin::attemptThatTakesTooLong()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.appear("Office", 70);
    scene.wifi.know("Office", QStringLiteral("its password"));
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    scene.endLimit(QStringLiteral("joinLimit"));
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_TIMEOUT));
    QTRY_COMPARE(scene.daemon.profiles().size(), 1);

    scene.forgetReports();
    scene.daemon.forgetCalls();
    scene.join("Office", "");
    QTRY_COMPARE(scene.daemon.calls(), QStringList{QStringLiteral("ActivateConnection")});
    scene.endLimit(QStringLiteral("joinLimit"));
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_TIMEOUT));
    QCOMPARE(scene.daemon.profiles().size(), 1); // it may have been away only
    QCOMPARE(scene.daemon.calls(), QStringList{QStringLiteral("ActivateConnection")}); // nor is it ended
}

void TestLinuxWifiJoin::newAttemptReplacesTheOldOne()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.appear("Office", 70);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    scene.join("Hall", "another one"); // replaced before the daemon has answered
    scene.daemon.setSteps(WifiScene::joins());
    scene.join("Office", "its password");
    QVERIFY(scene.waitForReports(6));
    const QVector<int> expected = {SystemSet::WIFI_CONNECTING, SystemSet::WIFI_OFFLINE,
                                   SystemSet::WIFI_CONNECTING, SystemSet::WIFI_OFFLINE,
                                   SystemSet::WIFI_CONNECTING, SystemSet::WIFI_CONNECTED};
    QCOMPARE(scene.reports(), expected);
    QCOMPARE(bytesOf(scene.link().ssid), QByteArray("Office"));
    QTRY_COMPARE(scene.daemon.profiles().size(), 1);
}

void TestLinuxWifiJoin::successOfTheAttemptBefore()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.appear("Office", 70);
    scene.wifi.know("Office", QStringLiteral("its password"));
    scene.daemon.setSteps({});
    QVERIFY(scene.startWithWifi());
    scene.join("Office", "");
    QTRY_VERIFY(!scene.daemon.calls().isEmpty());
    scene.daemon.setSteps(WifiScene::isAbsent());
    scene.join("Hall", "a password");
    QSemaphore asked;
    scene.service->later([&asked] { asked.release(); });
    QVERIFY(asked.tryAcquire(1, WifiScene::Patience));
    // The daemon has not heard of the new attempt yet.
    for (const uint state : {40U, 50U, 70U, 100U})
        scene.daemon.setState(FakeWifi::interface(), state);
    QVERIFY(scene.waitForReports(4));
    QCOMPARE(scene.reports().at(3), int(SystemSet::WIFI_TIMEOUT));
    QTRY_COMPARE(scene.daemon.profiles().size(), 1);
}

void TestLinuxWifiJoin::attemptThatIsNotFollowed()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    scene.join({}, ""); // takes its place, and cannot be joined
    QVERIFY(scene.waitForReports(4));
    QTRY_COMPARE(scene.daemon.calls().count(QStringLiteral("Delete")), 1);
    QVERIFY(scene.daemon.profiles().isEmpty());
}

void TestLinuxWifiJoin::networkThatGoesInMidJoin()
{
    WifiScene &scene = *m_scene;
    const QString point = scene.wifi.appear("Hall", 80, FakeWifi::Sae);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    const WifiActs::Records *list = scene.scanned();
    QVERIFY(list != nullptr);
    QCOMPARE(int(list->front().needsPassword), 1); // it is not known before it is joined
    QVERIFY(list->front().password.empty());
    scene.wifi.vanish(point);
    scene.daemon.setState(FakeWifi::interface(), Nm::Failed, Nm::NoSuchNetwork);
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_TIMEOUT));
}

void TestLinuxWifiJoin::deviceIsPulledOutInMidJoin()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    QVERIFY(!scene.wifi.isStored(scene.daemon.profiles().constFirst())); // whatever comes, it goes by itself
    scene.wifi.pullOut();
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_OFFLINE));
    QTRY_VERIFY(!scene.adapter().known);
    QTRY_VERIFY(scene.daemon.profiles().isEmpty());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_OFFLINE));
}

void TestLinuxWifiJoin::daemonGoesInMidJoin()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    scene.daemon.vanish();
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_OFFLINE));
}

void TestLinuxWifiJoin::switchedOffInMidJoin()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    scene.daemon.setState(FakeWifi::interface(), Nm::Unavailable);
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_OFFLINE));
}

void TestLinuxWifiJoin::whatCannotBeJoined()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70, FakeWifi::Business);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Office", "a password"), int(SystemSet::WIFI_OFFLINE));
    QCOMPARE(scene.joined({}, "a password"), int(SystemSet::WIFI_OFFLINE));
    QSemaphore unheard;
    scene.act([&unheard](Wifi *wifi) {
        wifi->join({}, std::make_shared<const Secret>(""), {}); // of which nobody wants to hear
        unheard.release();
    });
    QVERIFY(unheard.tryAcquire(1, WifiScene::Patience));
    QVERIFY(scene.daemon.calls().isEmpty());
}

void TestLinuxWifiJoin::passwordsReachNoLog()
{
    static std::mutex guard;
    static QStringList told;
    static QtMessageHandler before = nullptr;
    QLoggingCategory::setFilterRules(QStringLiteral("panelsettings.linux.*=true"));
    before =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            {
                const std::lock_guard<std::mutex> lock(guard);
                told.append(message);
            }
            before(type, context, message);
        });
    {
        const auto owner = std::make_unique<WifiScene>();
        WifiScene &scene = *owner;
        scene.wifi.appear("Hall", 80);
        scene.daemon.setSteps(WifiScene::refuses());
        QVERIFY(scene.startWithWifi());
        QCOMPARE(scene.joined("Hall", "Xylophone-1"), int(SystemSet::WIFI_WRONG_PASSWORD));
        scene.wifi.refuseNew(
            QStringLiteral("org.freedesktop.NetworkManager.Settings.Connection.InvalidProperty"),
            QStringLiteral("802-11-wireless-security.psk: 'Xylophone-2' is invalid"));
        QCOMPARE(scene.joined("Hall", "Xylophone-2"), int(SystemSet::WIFI_WRONG_PASSWORD));
        scene.wifi.refuseNew({}, {});
        scene.daemon.setSteps(WifiScene::joins());
        QCOMPARE(scene.joined("Hall", "Xylophone-3"), int(SystemSet::WIFI_CONNECTED));
        QVERIFY(scene.scanned() != nullptr);
    }
    qInstallMessageHandler(before);
    QLoggingCategory::setFilterRules(QString());
    QVERIFY(!told.isEmpty());
    QVERIFY(told.filter(QStringLiteral("Xylophone")).isEmpty());
}

PANEL_TEST_MAIN(TestLinuxWifiJoin)
#include "test_linux_wifi_join.moc"
