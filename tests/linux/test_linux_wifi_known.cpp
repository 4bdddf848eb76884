#include "tests/linux/wifiscene.h"

using namespace HmiLinux;
using HMI::SystemSet;

/// Joining a network that has a profile already, the panel's own or somebody else's.
class TestLinuxWifiKnown : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void knownNetworkByItsProfile();
    void keptPasswordOfAListIsTheProfile();
    void otherPasswordTakesThePlaceOfTheKeptOne();
    void otherPasswordThatIsRefusedLeavesTheKeptOne();
    void keptPasswordThatIsRefusedIsForgotten();
    void keptPasswordOutlivesASilentNetwork();
    void profileOfSomebodyElseStays();

private:
    std::unique_ptr<WifiScene> m_scene;
};

void TestLinuxWifiKnown::init()
{
    beginWatch();
    m_scene = std::make_unique<WifiScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxWifiKnown::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxWifiKnown::knownNetworkByItsProfile()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70);
    const QString profile = scene.wifi.know("Office", QStringLiteral("its password"));
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Office", ""), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(scene.daemon.calls(), QStringList{QStringLiteral("ActivateConnection")});
    QCOMPARE(scene.adapter().activeProfile, profile);
    QVERIFY(scene.wifi.asked().isEmpty()); // the daemon has it
}

void TestLinuxWifiKnown::keptPasswordOfAListIsTheProfile()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70);
    scene.wifi.know("Office", QStringLiteral("its password"));
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Office", "its password"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(scene.daemon.calls(), QStringList{QStringLiteral("ActivateConnection")});
}

void TestLinuxWifiKnown::otherPasswordTakesThePlaceOfTheKeptOne()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "the old one"), int(SystemSet::WIFI_CONNECTED));
    const QString old = scene.daemon.profiles().constFirst();
    QTRY_COMPARE(scene.adapter().profile, old);
    QCOMPARE(scene.joined("Hall", "the new one"), int(SystemSet::WIFI_CONNECTED));
    QTRY_COMPARE(scene.daemon.profiles().size(), 1);
    const QString profile = scene.daemon.profiles().constFirst();
    QVERIFY(profile != old);
    QVERIFY(scene.wifi.isStored(profile));
    QCOMPARE(scene.wifi.password(profile), QStringLiteral("the new one"));
}

void TestLinuxWifiKnown::otherPasswordThatIsRefusedLeavesTheKeptOne()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "the old one"), int(SystemSet::WIFI_CONNECTED));
    const QString old = scene.daemon.profiles().constFirst();
    QTRY_COMPARE(scene.adapter().profile, old);
    scene.daemon.setSteps(WifiScene::refuses());
    QCOMPARE(scene.joined("Hall", "not this one"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QTRY_COMPARE(scene.daemon.profiles(), QStringList{old});
    QCOMPARE(scene.wifi.password(old), QStringLiteral("the old one"));
}

void TestLinuxWifiKnown::keptPasswordThatIsRefusedIsForgotten()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "the old one"), int(SystemSet::WIFI_CONNECTED));
    QTRY_VERIFY(!scene.adapter().profile.isEmpty());
    scene.daemon.setSteps(WifiScene::refuses());
    QCOMPARE(scene.joined("Hall", ""), int(SystemSet::WIFI_WRONG_PASSWORD));
    QTRY_VERIFY(scene.daemon.profiles().isEmpty());
}

void TestLinuxWifiKnown::keptPasswordOutlivesASilentNetwork()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Hall", 80, FakeWifi::Sae);
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Hall", "the right one"), int(SystemSet::WIFI_CONNECTED));
    const QString profile = scene.daemon.profiles().constFirst();
    QTRY_COMPARE(scene.adapter().profile, profile);
    // Its access point has lost its power, and is listed for a while yet.
    scene.daemon.setSteps(WifiScene::isAbsent());
    for (const char *typed : {"", "the right one"})
        QCOMPARE(scene.joined("Hall", typed), int(SystemSet::WIFI_TIMEOUT));
    QCOMPARE(scene.daemon.profiles(), QStringList{profile});
    QCOMPARE(scene.wifi.password(profile), QStringLiteral("the right one"));
}

void TestLinuxWifiKnown::profileOfSomebodyElseStays()
{
    WifiScene &scene = *m_scene;
    scene.wifi.appear("Office", 70);
    const QString profile = scene.wifi.know("Office", QStringLiteral("its password"));
    const Sections before = scene.daemon.profile(profile);
    scene.daemon.setSteps(WifiScene::refuses());
    QVERIFY(scene.startWithWifi());
    QCOMPARE(scene.joined("Office", ""), int(SystemSet::WIFI_WRONG_PASSWORD));
    QCOMPARE(scene.joined("Office", "another one"), int(SystemSet::WIFI_WRONG_PASSWORD));
    scene.daemon.setSteps(WifiScene::joins());
    QCOMPARE(scene.joined("Office", "a third one"), int(SystemSet::WIFI_CONNECTED));
    QTRY_COMPARE(scene.daemon.profiles().size(), 2); // the panel's own comes beside it
    QVERIFY(scene.daemon.profile(profile) == before);
    QCOMPARE(scene.wifi.password(profile), QStringLiteral("its password"));
}

PANEL_TEST_MAIN(TestLinuxWifiKnown)
#include "test_linux_wifi_known.moc"
