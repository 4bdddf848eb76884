#include "tests/linux/text.h"
#include "tests/linux/wifiscene.h"

using namespace HmiLinux;
using HMI::SystemSet;

/// The default adapter on a panel with a wireless one, whose profiles are those of networks.
class TestLinuxDefault : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void wirelessInWhicheverNetwork();
    void wiredInsteadOfAllNetworks();
    void wirelessInTheNetworkOfSomebodyElse();
    void wirelessWithoutANetwork();

private:
    /// Chooses an adapter, and waits until it is the one.
    bool choose(std::size_t place);
    /// How many of the stored profiles would carry the default route.
    int carriers() const;

    std::unique_ptr<WifiScene> m_scene;
};

void TestLinuxDefault::init()
{
    beginWatch();
    m_scene = std::make_unique<WifiScene>();
    QVERIFY(m_scene->isUp);
    m_scene->wifi.appear("Hall", 80);
    m_scene->wifi.appear("Office", 70);
}

void TestLinuxDefault::cleanup()
{
    m_scene.reset();
    endWatch();
}

bool TestLinuxDefault::choose(std::size_t place)
{
    m_scene->service->chooseDefault(place);
    return QTest::qWaitFor([this, place] {
        const bool isDone =
            !m_scene->hasWish(0) && !m_scene->hasWish(1) && !m_scene->hasWish(WifiActs::Place);
        return isDone && m_scene->service->snapshot()->defaultPlace() == place;
    });
}

int TestLinuxDefault::carriers() const
{
    int count = 0;
    const QStringList profiles = m_scene->daemon.profiles();
    for (const QString &profile : profiles) {
        const QVariantMap ipv4 = m_scene->daemon.profile(profile).value(text("ipv4"));
        count += ipv4.value(text("route-metric")).toLongLong() == 50 ? 1 : 0;
    }
    return count;
}

void TestLinuxDefault::wirelessInWhicheverNetwork()
{
    QVERIFY(m_scene->startWithWifi());
    QCOMPARE(m_scene->joined("Office", "its password"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(m_scene->joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_COMPARE(m_scene->adapter().others.size(), 1);
    QVERIFY(choose(WifiActs::Place));
    QTRY_COMPARE(carriers(), 2);
    QCOMPARE(m_scene->joined("Office", ""), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(m_scene->service->snapshot()->defaultPlace() == WifiActs::Place);
    m_scene->wifi.appear("Yard", 90);
    QCOMPARE(m_scene->joined("Yard", "another"), int(SystemSet::WIFI_CONNECTED));
    QTRY_COMPARE(carriers(), 3);
}

void TestLinuxDefault::wiredInsteadOfAllNetworks()
{
    QVERIFY(m_scene->startWithWifi());
    QCOMPARE(m_scene->joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_VERIFY(!m_scene->adapter().profile.isEmpty());
    QVERIFY(choose(WifiActs::Place));
    QCOMPARE(m_scene->joined("Office", "its password"), int(SystemSet::WIFI_CONNECTED));
    QTRY_COMPARE(m_scene->adapter().others.size(), 1);
    QVERIFY(choose(0));
    // The one of LAN0.
    QTRY_COMPARE(carriers(), 1);
    QTRY_VERIFY(!m_scene->values(WifiActs::Place).isDefault);
    QCOMPARE(m_scene->joined("Hall", ""), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(m_scene->service->snapshot()->defaultPlace() == std::size_t(0));
    QVERIFY(!m_scene->values(WifiActs::Place).isDefault);
}

void TestLinuxDefault::wirelessInTheNetworkOfSomebodyElse()
{
    m_scene->wifi.know("Office", text("its password"));
    QVERIFY(m_scene->startWithWifi());
    QCOMPARE(m_scene->joined("Hall", "a password"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(m_scene->joined("Office", ""), int(SystemSet::WIFI_CONNECTED));
    QTRY_VERIFY(m_scene->adapter().profile.isEmpty());
    QVERIFY(choose(WifiActs::Place));
    QTRY_COMPARE(carriers(), 1);
}

void TestLinuxDefault::wirelessWithoutANetwork()
{
    QVERIFY(m_scene->startWithWifi());
    QVERIFY(choose(0));
    expectMessage(text("WIFI is not made the default adapter: the panel keeps no network of its own"));
    m_scene->service->chooseDefault(WifiActs::Place);
    QVERIFY(!m_scene->hasWish(0) && !m_scene->hasWish(WifiActs::Place));
    QVERIFY(m_scene->service->snapshot()->defaultPlace() == std::size_t(0));
    QCOMPARE(carriers(), 1);
}

PANEL_TEST_MAIN(TestLinuxDefault)
#include "test_linux_default.moc"
