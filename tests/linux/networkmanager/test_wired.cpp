#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/text.h"

#include "linux/nmnames.h"
#include "linux/ping.h"

#include <QtDBus/QDBusConnection>

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

Addresses usual()
{
    return {ServiceScene::ip("192.168.50.77"), maskOf(24), ServiceScene::ip("192.168.50.1")};
}

} // namespace

/// What an operator does to wired adapters, seen by the kernel.
class TestWired : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void leaseOfSomebodyElsesProfileIsShown();
    void leaseStaticAndBack();
    void freshLease();
    void addressesTakeEffectAtOnce();
    void servers();
    void offAndOn();
    void defaultAdapter();
    void ping();
    void settingsOutliveTheService();

public slots:
    void countPreparations(uint state) { m_preparations += state == Nm::Preparing ? 1 : 0; }

private:
    std::unique_ptr<SandboxScene> m_scene;
    int m_preparations = 0;
};

void TestWired::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<SandboxScene>();
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0 && m_scene->lan1().live.ip != 0, 30000);
}

void TestWired::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestWired::leaseOfSomebodyElsesProfileIsShown()
{
    const AdapterState adapter = m_scene->lan0();
    QVERIFY(adapter.values.enabled);
    QVERIFY(adapter.values.dhcp);
    QVERIFY(m_scene->kernelAddresses("lan0").contains(dotted(adapter.live.ip)));
    QCOMPARE(dotted(adapter.live.mask), text("255.255.255.0"));
    QCOMPARE(dotted(adapter.live.gateway), text("192.168.50.1"));
    QCOMPARE(dotted(adapter.liveDns.first), text("192.168.50.1"));
    const HMI::MAC mac = {2, 0, 0, 0, 0, 0x10};
    QVERIFY(adapter.mac == mac);
    QVERIFY(adapter.profile.isEmpty());
    QCOMPARE(m_scene->tell("profiles").size(), 2);
}

void TestWired::leaseStaticAndBack()
{
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    QVERIFY(m_scene->requestDhcp(false, SystemSet::DHCP_OK));
    QVERIFY(m_scene->lan0().live == usual());
    QCOMPARE(m_scene->kernelAddresses("lan0"), text("192.168.50.77/24"));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(!m_scene->values().dhcp);

    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
    QVERIFY(m_scene->lan0().live.ip != 0 && m_scene->lan0().live.ip != usual().ip);
    QCOMPARE(m_scene->kernelAddresses("lan0"), dotted(m_scene->lan0().live.ip) + text("/24"));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().dhcp);
    QVERIFY(m_scene->values().stored == usual());
    // Those that were there and one of the panel's.
    QCOMPARE(m_scene->tell("profiles").size(), 3);
}

void TestWired::freshLease()
{
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
        QVERIFY(m_scene->lan0().live.ip != 0);
    }
}

void TestWired::addressesTakeEffectAtOnce()
{
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->requestDhcp(false, SystemSet::DHCP_OK));
    QVERIFY(m_scene->waitForWishes());
    m_scene->gather(0, [](Wish &wish) { wish.ip = ServiceScene::ip("192.168.50.78"); });
    QVERIFY(m_scene->waitForWishes());
    QTRY_COMPARE(m_scene->kernelAddresses("lan0"), text("192.168.50.78/24"));
    QTRY_COMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.78"));

    expectMessage(text("LAN0 keeps its addresses"));
    m_scene->gather(0, [](Wish &wish) { wish.ip = ServiceScene::ip("10.0.0.1"); });
    QVERIFY(m_scene->waitForWishes());
    QCOMPARE(dotted(m_scene->values().stored.ip), text("192.168.50.78"));
    QCOMPARE(m_scene->kernelAddresses("lan0"), text("192.168.50.78/24"));
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
}

void TestWired::servers()
{
    const auto resolver = [this] { return m_scene->tell("resolver"); };
    m_scene->gather(0, [](Wish &wish) {
        wish.dns = Dns{ServiceScene::ip("9.9.9.9"), ServiceScene::ip("8.8.4.4")};
    });
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY_WITH_TIMEOUT(resolver().contains(text("9.9.9.9")), 30000);
    QVERIFY(!resolver().contains(text("192.168.50.1")));
    m_scene->gather(0, [](Wish &wish) { wish.dns = Dns(); });
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY_WITH_TIMEOUT(resolver().contains(text("192.168.50.1")), 30000);
    QVERIFY(!resolver().contains(text("9.9.9.9")));
}

void TestWired::offAndOn()
{
    m_scene->enable(false);
    QTRY_COMPARE(m_scene->kernelAddresses("lan0"), QString());
    QTRY_VERIFY(m_scene->lan0().live == Addresses());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(!m_scene->values().enabled);
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_FAILED));
    QDBusConnection bus = QDBusConnection::systemBus();
    QVERIFY(bus.connect(Nm::service(), m_scene->lan0().device, Nm::device(), QStringLiteral("StateChanged"),
                        this, SLOT(countPreparations(uint))));
    m_preparations = 0;
    m_scene->enable(true);
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0, 30000);
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().enabled);
    // Put in force twice, its addresses come, go and come again.
    QCOMPARE(m_preparations, 1);
}

void TestWired::defaultAdapter()
{
    for (const std::size_t chosen : {std::size_t(1), std::size_t(0), std::size_t(1)}) {
        for (const std::size_t place : {std::size_t(0), std::size_t(1)})
            m_scene->gather(place, [=](Wish &wish) { wish.isDefault = place == chosen; });
        QVERIFY(m_scene->waitForWishes());
        QVERIFY(m_scene->service->snapshot()->defaultPlace() == chosen);
        const QString port = chosen == 0 ? text("lan0 ") : text("lan1 ");
        QTRY_VERIFY_WITH_TIMEOUT(m_scene->tell("routes").value(0).startsWith(port), 30000);
    }
}

void TestWired::ping()
{
    const auto asks = [this](const QString &interface, const char *target) {
        std::optional<bool> outcome;
        new Ping(
            interface, ServiceScene::ip(target), 3000, [&outcome](bool answered) { outcome = answered; },
            this);
        return QTest::qWaitFor([&outcome] { return outcome.has_value(); }, 30000) && *outcome;
    };
    m_scene->allowPing();
    QVERIFY(asks(text("lan0"), "192.168.50.1"));
    QVERIFY(asks(text("lan1"), "192.168.60.1"));
    QVERIFY(!asks(text("lan0"), "192.168.50.201"));
    expectMessage(text("nobody can be asked over lan7"));
    QVERIFY(!asks(text("lan7"), "192.168.50.1"));
}

void TestWired::settingsOutliveTheService()
{
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    m_scene = std::make_unique<SandboxScene>();
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
    QVERIFY(m_scene->values().stored == usual());
    QVERIFY(m_scene->values().dhcp);
}

PANEL_TEST_MAIN(TestWired)
#include "test_wired.moc"
