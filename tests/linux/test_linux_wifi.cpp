#include "tests/linux/wifiscene.h"

#include "linux/secret.h"

using namespace HmiLinux;
using HMI::SystemSet;

/// The wireless adapter as it is: its link, its switch, its addresses, and forgetting its networks.
class TestLinuxWifi : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void joinedNetworkIsRead();
    void linkComesAndGoes();
    void nameBetweenTwoAccessPoints();
    void radioIsSwitched();
    void refusedSwitch();
    void radioAndAddressesTogether();
    void addressesBelongToTheJoinedNetwork();
    void addressesWithoutANetworkAreRefused();
    void leaseOfTheJoinedNetwork();
    void leaseWithoutANetwork();
    void newNetworkTakesTheAddressesOver();
    void resetForgetsEverything();
    void resetInMidJoin();
    void resetThatIsRefused();
    void resetWhileItIsOff();
    void networksOfOthersAreNotForgotten();
    void wipedTextIsWipedForAll();

private:
    std::unique_ptr<WifiScene> m_scene;
};

void TestLinuxWifi::init()
{
    beginWatch();
    m_scene = std::make_unique<WifiScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxWifi::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxWifi::joinedNetworkIsRead()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70);
    scene.daemon.activate(scene.wifi.know("Office", QStringLiteral("its password")), FakeWifi::interface());
    scene.startService();
    QVERIFY(!scene.link().isJoined); // nothing is known yet
    QVERIFY(scene.link().ssid == HMI::SSID{});
    QTRY_VERIFY(scene.link().isJoined);
    QCOMPARE(scene.service->adapters(), SystemSet::LAN0 | SystemSet::LAN1 | SystemSet::WIFI);
    QCOMPARE(bytesOf(scene.link().ssid), QByteArray("Office"));
    QCOMPARE(scene.link().strength, 70);
    const AdapterState adapter = scene.adapter();
    QVERIFY(adapter.values.enabled);
    QVERIFY(adapter.values.dhcp);
    QCOMPARE(dotted(adapter.live.ip), QStringLiteral("192.168.50.109"));
    const HMI::MAC mac = {2, 0, 0, 0, 0, 0x30};
    QVERIFY(adapter.mac == mac);
    QVERIFY(scene.daemon.calls().isEmpty()); // reading changes nothing
}

void TestLinuxWifi::linkComesAndGoes()
{
    WifiScene &scene = *m_scene;
    const QString point = scene.wifi.appear("Office", 70);
    const QString profile = scene.wifi.know("Office", QStringLiteral("its password"));
    QVERIFY(scene.startWithWifi());
    QVERIFY(!scene.link().isJoined);
    scene.daemon.activate(profile, FakeWifi::interface());
    QTRY_VERIFY(scene.link().isJoined);
    scene.daemon.set(point, Nm::accessPoint(),
                     {{QStringLiteral("Strength"), QVariant::fromValue(uchar(31))}});
    QTRY_COMPARE(scene.link().strength, 31);
    scene.daemon.setState(FakeWifi::interface(), Nm::Failed, 53);
    QTRY_VERIFY(!scene.link().isJoined);
    QVERIFY(scene.link().ssid == HMI::SSID{});
    QCOMPARE(scene.link().strength, 0);
}

void TestLinuxWifi::nameBetweenTwoAccessPoints()
{
    WifiScene &scene = *m_scene;
    const QString point = scene.wifi.appear("Office", 70);
    scene.daemon.activate(scene.wifi.know("Office", QStringLiteral("its password")), FakeWifi::interface());
    QVERIFY(scene.startWithWifi());
    QTRY_COMPARE(scene.link().strength, 70);
    scene.wifi.vanish(point);
    QTRY_COMPARE(scene.link().strength, 0);
    QVERIFY(scene.link().isJoined);
    QCOMPARE(bytesOf(scene.link().ssid), QByteArray("Office"));
}

void TestLinuxWifi::radioIsSwitched()
{
    WifiScene &scene = *m_scene;
    const QString profile = scene.wifi.know("Office", QStringLiteral("its password"));
    const Sections before = scene.daemon.profile(profile);
    QVERIFY(scene.startWithWifi());
    for (const bool on : {false, true, false}) {
        scene.enable(on, WifiActs::Place);
        QCOMPARE(scene.values(WifiActs::Place).enabled, on); // at once
        QTRY_VERIFY(!scene.hasWish(WifiActs::Place));
        QCOMPARE(scene.values(WifiActs::Place).enabled, on);
        QCOMPARE(scene.daemon.get(Nm::path(), Nm::service(), QStringLiteral("WirelessEnabled")).toBool(), on);
    }
    QVERIFY(scene.daemon.profile(profile) == before);
    QCOMPARE(scene.daemon.calls().count(QStringLiteral("Set")), 3);
    QCOMPARE(scene.daemon.calls().size(), 3); // nothing is joined by it
    // Somebody else switches it.
    scene.daemon.set(Nm::path(), Nm::service(), {{QStringLiteral("WirelessEnabled"), true}});
    QTRY_VERIFY(scene.values(WifiActs::Place).enabled);
}

void TestLinuxWifi::refusedSwitch()
{
    WifiScene &scene = *m_scene;
    QVERIFY(scene.startWithWifi());
    scene.daemon.refuseProperties(true);
    expectMessage(QStringLiteral("WIFI stays as it is"));
    scene.enable(false, WifiActs::Place);
    QTRY_VERIFY(!scene.hasWish(WifiActs::Place));
    QVERIFY(scene.values(WifiActs::Place).enabled);
}

void TestLinuxWifi::radioAndAddressesTogether()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_VERIFY(!scene.adapter().profile.isEmpty());
    const QString profile = scene.adapter().profile;
    scene.gather(WifiActs::Place, [](Wish &wish) { wish.dns = Dns{WifiScene::ip("9.9.9.9"), HMI::IP()}; });
    scene.enable(false, WifiActs::Place);
    QTRY_VERIFY(!scene.hasWish(WifiActs::Place));
    QVERIFY(!scene.values(WifiActs::Place).enabled);
    QCOMPARE(dotted(scene.values(WifiActs::Place).dns.first), QStringLiteral("9.9.9.9"));
    // The network is joined by itself again once the radio is back.
    QVERIFY(scene.daemon.profile(profile)
                .value(QStringLiteral("connection"))
                .value(QStringLiteral("autoconnect"))
                .toBool());
}

void TestLinuxWifi::addressesBelongToTheJoinedNetwork()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_VERIFY(!scene.adapter().profile.isEmpty());
    scene.forgetReports();
    scene.gather(WifiActs::Place, [](Wish &wish) {
        wish.ip = WifiScene::ip("10.1.2.3");
        wish.mask = maskOf(16);
        wish.gateway = WifiScene::ip("10.1.0.1");
    });
    scene.setDhcp(false, WifiActs::Place);
    QVERIFY(scene.waitForReports(1));
    QCOMPARE(scene.reports(), QVector<int>{SystemSet::DHCP_OK});
    QTRY_COMPARE(dotted(scene.adapter().live.ip), QStringLiteral("10.1.2.3"));
    QVERIFY(scene.link().isJoined);
    QCOMPARE(scene.wifi.password(scene.adapter().profile), QStringLiteral("a password"));
}

void TestLinuxWifi::addressesWithoutANetworkAreRefused()
{
    WifiScene &scene = *m_scene;
    QVERIFY(scene.startWithWifi());
    expectMessage(QStringLiteral("the panel keeps no network that they would be for"));
    scene.gather(WifiActs::Place, [](Wish &wish) { wish.dns = Dns{WifiScene::ip("9.9.9.9"), HMI::IP()}; });
    QTRY_VERIFY(!scene.hasWish(WifiActs::Place));
    QVERIFY(scene.daemon.profiles().isEmpty());
    QVERIFY(scene.values(WifiActs::Place).dns == Dns());
}

void TestLinuxWifi::leaseOfTheJoinedNetwork()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70);
    const QString profile = scene.wifi.know("Office", QStringLiteral("its password"));
    scene.daemon.activate(profile, FakeWifi::interface());
    QVERIFY(scene.startWithWifi());
    QTRY_VERIFY(scene.link().isJoined);
    scene.setDhcp(true, WifiActs::Place);
    QVERIFY(scene.waitForReports(1));
    QCOMPARE(scene.reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(scene.daemon.calls().contains(QStringLiteral("ActivateConnection")));
    QCOMPARE(scene.adapter().activeProfile, profile);
}

void TestLinuxWifi::leaseWithoutANetwork()
{
    WifiScene &scene = *m_scene;
    scene.wifi.know("Office", QStringLiteral("its password"));
    QVERIFY(scene.startWithWifi());
    scene.setDhcp(true, WifiActs::Place);
    QVERIFY(scene.waitForReports(1));
    QCOMPARE(scene.reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(!scene.daemon.calls().contains(QStringLiteral("ActivateConnection")));
}

void TestLinuxWifi::newNetworkTakesTheAddressesOver()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.appear("Office", 70);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_VERIFY(!scene.adapter().profile.isEmpty());
    scene.gather(WifiActs::Place, [](Wish &wish) {
        wish.dhcp = false;
        wish.ip = WifiScene::ip("10.1.2.3");
        wish.mask = maskOf(16);
    });
    QTRY_VERIFY(!scene.hasWish(WifiActs::Place));
    QCOMPARE(scene.joined("Office", "its password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_COMPARE(dotted(scene.adapter().live.ip), QStringLiteral("10.1.2.3"));
    QVERIFY(!scene.values(WifiActs::Place).dhcp);
}

void TestLinuxWifi::resetForgetsEverything()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.wifi.appear("Office", 70);
    scene.wifi.know("Office", QStringLiteral("its password"));
    const QString wired =
        scene.daemon.addProfile(FakeNetworkManager::wiredProfile(QStringLiteral("a port"), {}));
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    scene.resetNetworks();
    QVERIFY(scene.waitForLists(1));
    QCOMPARE(scene.daemon.profiles(), QStringList{wired});
    const WifiActs::Records *list = scene.list();
    QVERIFY(list != nullptr);
    QCOMPARE(int(list->size()), 2);
    for (const SystemSet::SsidInfo &record : *list) {
        QVERIFY(record.password.empty());
        QCOMPARE(int(record.needsPassword), 1);
    }
    QTRY_VERIFY(!scene.link().isJoined);
    QVERIFY(scene.link().ssid == HMI::SSID{});
    QVERIFY(scene.values(WifiActs::Place).enabled);
}

void TestLinuxWifi::resetInMidJoin()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    scene.daemon.setSteps({{40, 0}, {50, 0}});
    QVERIFY(scene.startWithWifi());
    scene.join("Hall", "a password");
    QTRY_COMPARE(scene.adapter().deviceState, 50U);
    scene.resetNetworks();
    QVERIFY(scene.waitForReports(2));
    QCOMPARE(scene.reports().at(1), int(SystemSet::WIFI_OFFLINE));
    QVERIFY(scene.waitForLists(1));
    QVERIFY(scene.list() != nullptr);
    QTRY_VERIFY(scene.daemon.profiles().isEmpty());
}

void TestLinuxWifi::resetThatIsRefused()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70);
    scene.wifi.know("Office", QStringLiteral("its password"));
    scene.daemon.onCall(QStringLiteral("Delete"),
                        [&scene](const QDBusMessage &message) { return scene.daemon.refusal(message); });
    QVERIFY(scene.startWithWifi());
    expectMessage(QStringLiteral("a network stays known"));
    scene.resetNetworks();
    QVERIFY(scene.waitForLists(1));
    QVERIFY(scene.list() != nullptr);
    QCOMPARE(int(scene.list()->front().needsPassword), 0);
}

void TestLinuxWifi::resetWhileItIsOff()
{
    WifiScene &scene = *m_scene;
    scene.wifi.know("Office", QStringLiteral("its password"));
    QVERIFY(scene.startWithWifi());
    scene.enable(false, WifiActs::Place);
    QTRY_VERIFY(!scene.hasWish(WifiActs::Place));
    scene.resetNetworks();
    QVERIFY(scene.waitForLists(1));
    QVERIFY(scene.list() == nullptr);
    QVERIFY(scene.daemon.profiles().isEmpty());
}

void TestLinuxWifi::networksOfOthersAreNotForgotten()
{
    WifiScene &scene = *m_scene;
    Sections settings = newWifiSettings("Office", QStringLiteral("wlan1"), WifiSecurity::Psk);
    const QString ofAnotherDevice = scene.daemon.addProfile(settings);
    settings[QStringLiteral("connection")].remove(QStringLiteral("interface-name"));
    settings[wifiType()].insert(QStringLiteral("mode"), QStringLiteral("ap"));
    const QString ofOurs = scene.daemon.addProfile(settings); // which others join
    QVERIFY(scene.startWithWifi());
    scene.resetNetworks();
    QVERIFY(scene.waitForLists(1));
    QCOMPARE(scene.daemon.profiles(), (QStringList{ofAnotherDevice, ofOurs}));
}

void TestLinuxWifi::wipedTextIsWipedForAll()
{
    QString text = QStringLiteral("a password").toUpper(); // in memory of its own
    const QString shared = text;
    wipe(&text);
    QVERIFY(text.isEmpty());
    QCOMPARE(shared, QString(shared.size(), QChar()));
}

PANEL_TEST_MAIN(TestLinuxWifi)
#include "test_linux_wifi.moc"
