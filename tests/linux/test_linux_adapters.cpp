#include "tests/linux/networkscene.h"
#include "tests/linux/text.h"

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

Addresses usual()
{
    return {NetworkScene::ip("192.168.7.20"), maskOf(24), NetworkScene::ip("192.168.7.1")};
}

} // namespace

/// What becomes of an operator's wishes for a wired adapter.
class TestLinuxAdapters : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void leaseIsTaken();
    void freshLeaseIsTaken();
    void silentServerIsAFailure();
    void pulledCableIsAFailure();
    void lookingMakesNoProfile();
    void staticAndBack();
    void staticWithoutAddress();
    void addressesAreOneWrite();
    void unchangedAddressesAreNotWritten();
    void impossibleAddressesAreRefused();
    void valuesOneByOneReachAnotherNetwork();
    void serversAreOwnOrThoseOfTheLease();
    void refusedWriteLeavesAllAsItWas();
    void offAndOn();
    void profileOfSomebodyElseIsLeftAlone();
    void defaultAdapterIsOne();

private:
    QVariantMap ipv4() const { return m_scene->daemon.profile(m_scene->lan0().profile).value(text("ipv4")); }

    std::unique_ptr<NetworkScene> m_scene;
};

void TestLinuxAdapters::init()
{
    beginWatch();
    m_scene = std::make_unique<NetworkScene>();
    QVERIFY(m_scene->isUp);
    QVERIFY(m_scene->startAndWait());
}

void TestLinuxAdapters::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxAdapters::leaseIsTaken()
{
    m_scene->setDhcp(true);
    QVERIFY(m_scene->values().dhcp); // at the call
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    // Who is told finds the address.
    QCOMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.109"));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().dhcp);
    QCOMPARE(m_scene->daemon.profiles().size(), 1);
    QCOMPARE(m_scene->daemon.profile(m_scene->lan0().profile)
                 .value(text("connection"))
                 .value(text("interface-name")),
             QVariant(text("lan0")));
}

void TestLinuxAdapters::freshLeaseIsTaken()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.setLease(text("192.168.50.222"));
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.222"));
    // Nothing changed, so nothing is written to the flash.
    QVERIFY(!m_scene->daemon.calls().contains(text("Update2")));
    QCOMPARE(m_scene->daemon.calls().count(text("ActivateConnection")), 1);
}

void TestLinuxAdapters::silentServerIsAFailure()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.setSteps(
        {{110, 60}, {Nm::Preparing, 0}, {50, 0}, {70, 0}, {Nm::Failed, 5}, {Nm::Disconnected, 0}});
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(m_scene->values().dhcp);
}

void TestLinuxAdapters::pulledCableIsAFailure()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.unplug(text("lan0"));
    QTRY_COMPARE(m_scene->lan0().deviceState, uint(Nm::Unavailable));
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    // The stored addresses are in force as soon as there is a cable: no failure.
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(2));
    QCOMPARE(m_scene->reports().constLast(), int(SystemSet::DHCP_OK));
    QVERIFY(!m_scene->daemon.calls().contains(text("ActivateConnection")));
}

void TestLinuxAdapters::lookingMakesNoProfile()
{
    m_scene->daemon.unplug(text("lan0"));
    QTRY_COMPARE(m_scene->lan0().deviceState, uint(Nm::Unavailable));
    m_scene->setDhcp(true); // what the screen does whenever it is opened
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->daemon.profiles().isEmpty());
}

void TestLinuxAdapters::staticAndBack()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    QCOMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.109")); // the lease stays in force
    QVERIFY(recordsOf(ipv4().value(text("address-data"))).isEmpty());

    m_scene->setDhcp(false);
    QVERIFY(!m_scene->values().dhcp);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(m_scene->lan0().live == usual());
    QCOMPARE(ipv4().value(text("method")), QVariant(text("manual")));

    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(2));
    QCOMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.109"));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual()); // a lease never overwrites them
}

void TestLinuxAdapters::staticWithoutAddress()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.setLease({});
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(!m_scene->values().dhcp);
    QCOMPARE(ipv4().value(text("method")), QVariant(text("disabled")));
}

void TestLinuxAdapters::addressesAreOneWrite()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1));
    QVERIFY(m_scene->waitForWishes());
    m_scene->daemon.forgetCalls();

    m_scene->setAddresses(usual());
    m_scene->gather(0, [](Wish &wish) {
        wish.dns = Dns{NetworkScene::ip("9.9.9.9"), NetworkScene::ip("8.8.4.4")};
    });
    QVERIFY(m_scene->values().stored == usual()); // at the call
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY(m_scene->lan0().live == usual());
    QCOMPARE(m_scene->daemon.calls(), (QStringList{text("Update2"), text("Reapply")}));
    QCOMPARE(dotted(m_scene->values().dns.first), text("9.9.9.9"));
    QCOMPARE(dotted(m_scene->values().dns.second), text("8.8.4.4"));
}

void TestLinuxAdapters::unchangedAddressesAreNotWritten()
{
    QVERIFY(m_scene->giveProfile());
    const Addresses before = m_scene->values().stored;
    m_scene->setAddresses(usual());
    m_scene->setAddresses(before);
    QVERIFY(m_scene->values().stored == before);
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->daemon.calls().isEmpty());
}

void TestLinuxAdapters::impossibleAddressesAreRefused()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    m_scene->daemon.forgetCalls();

    expectMessage(text("LAN0 keeps its addresses: the mask 255.0.255.0 has holes"));
    m_scene->setAddresses(
        {NetworkScene::ip("10.0.0.2"), NetworkScene::ip("255.0.255.0"), NetworkScene::ip("10.0.0.1")});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    QVERIFY(m_scene->daemon.calls().isEmpty());
}

void TestLinuxAdapters::valuesOneByOneReachAnotherNetwork()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());

    // The operator edits one field after the other; each alone does not fit what is there.
    expectMessage(text("LAN0 keeps its addresses: the gateway 192.168.7.1 is not in the network of 10.0.0.2"),
                  2);
    m_scene->gather(0, [](Wish &wish) { wish.ip = NetworkScene::ip("10.0.0.2"); });
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    m_scene->gather(0, [](Wish &wish) { wish.mask = maskOf(16); });
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    m_scene->gather(0, [](Wish &wish) { wish.gateway = NetworkScene::ip("10.0.0.1"); });
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored ==
            (Addresses{NetworkScene::ip("10.0.0.2"), maskOf(16), NetworkScene::ip("10.0.0.1")}));
}

void TestLinuxAdapters::serversAreOwnOrThoseOfTheLease()
{
    QVERIFY(m_scene->giveProfile());
    const Dns leased{NetworkScene::ip("192.168.50.1"), HMI::IP()};
    QVERIFY(m_scene->service->snapshot()->dns(0) == leased);
    // Those of the lease written back are no choice.
    m_scene->gather(0, [&leased](Wish &wish) { wish.dns = leased; });
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->daemon.calls().isEmpty());

    const Dns own{NetworkScene::ip("9.9.9.9"), HMI::IP()};
    m_scene->gather(0, [&own](Wish &wish) { wish.dns = own; });
    QVERIFY(m_scene->service->snapshot()->dns(0) == own);
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->service->snapshot()->dns(0) == own);
    QCOMPARE(ipv4().value(text("ignore-auto-dns")), QVariant(true));

    m_scene->gather(0, [](Wish &wish) { wish.dns = Dns(); });
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->service->snapshot()->dns(0) == leased);
    QCOMPARE(ipv4().value(text("ignore-auto-dns")), QVariant(false));
}

void TestLinuxAdapters::refusedWriteLeavesAllAsItWas()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.refuseWrites(true);
    expectMessage(text("the settings of LAN0 stay as they are: refused"), 2);
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->values().stored == usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == Addresses());
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().dhcp);
}

void TestLinuxAdapters::offAndOn()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->enable(false);
    QVERIFY(!m_scene->values().enabled); // at the call
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(!m_scene->values().enabled);
    QTRY_VERIFY(m_scene->lan0().live == Addresses());
    QCOMPARE(m_scene->daemon.calls(), (QStringList{text("Update2"), text("Set"), text("Disconnect")}));
    // Off stays off, whatever is set.
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(!m_scene->daemon.calls().contains(text("ActivateConnection")));

    QTRY_COMPARE(m_scene->daemon.calls().count(text("Set")), 2);
    m_scene->daemon.forgetCalls();
    m_scene->enable(true);
    QVERIFY(m_scene->values().enabled);
    QTRY_COMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.109"));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().enabled);
    // Allowed first, the daemon would put the profile in force by itself, and then once more for us.
    const QStringList calls{text("Update2"), text("ActivateConnection"), text("Set")};
    QTRY_COMPARE(m_scene->daemon.calls(), calls);
}

void TestLinuxAdapters::profileOfSomebodyElseIsLeftAlone()
{
    const Sections settings =
        FakeNetworkManager::wiredProfile(text("somebody's"), {{text("method"), text("auto")}});
    const QString profile = m_scene->daemon.addProfile(settings);
    m_scene->daemon.activate(profile, text("lan0"));
    QTRY_VERIFY(m_scene->lan0().live.ip != 0);
    // A fresh lease needs no profile of ours.
    m_scene->daemon.setLease(text("192.168.50.222"));
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    QCOMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.222"));
    QCOMPARE(m_scene->daemon.profiles(), QStringList{profile});
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    QVERIFY(m_scene->daemon.profile(profile) == settings);
    QCOMPARE(m_scene->daemon.profiles().size(), 2);
    QVERIFY(m_scene->lan0().profile != profile);
    // The panel's own is in force in its place.
    QTRY_COMPARE(m_scene->lan0().activeProfile, m_scene->lan0().profile);
}

void TestLinuxAdapters::defaultAdapterIsOne()
{
    QVERIFY(!m_scene->service->snapshot()->defaultPlace());
    for (const std::size_t chosen : {std::size_t(1), std::size_t(0)}) {
        for (const std::size_t place : {std::size_t(0), std::size_t(1)}) {
            if (m_scene->values(place).isDefault != (place == chosen))
                m_scene->gather(place, [=](Wish &wish) { wish.isDefault = place == chosen; });
        }
        QVERIFY(m_scene->service->snapshot()->defaultPlace() == chosen);
        QVERIFY(m_scene->waitForWishes());
        QVERIFY(m_scene->service->snapshot()->defaultPlace() == chosen);
    }
    QVERIFY(m_scene->lan0().values.isDefault);
    QVERIFY(!m_scene->lan1().values.isDefault);
}

PANEL_TEST_MAIN(TestLinuxAdapters)
#include "test_linux_adapters.moc"
