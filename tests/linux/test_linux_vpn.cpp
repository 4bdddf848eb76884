#include "tests/linux/text.h"
#include "tests/linux/vpnscene.h"

#include <algorithm>
#include <future>

using namespace HmiLinux;
using HMI::SystemSet;

/// The tunnel: what an operator's switch and choice come to.
class TestLinuxVpn : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutAConnectionThereIsNone();
    void switchedOnItHasAnAddress();
    void switchedOffItEnds();
    void switchedOffWhileItConnects();
    void switchedOffBeforeTheDaemonAnswers();
    void otherServerIsAnotherConnection();
    void addressIsDropped();
    void choiceIsKeptOverARestart();
    void onlyLookedAtItBeginsNothing();
    void switchThatIsNotKept();
    void tunnelOfSomebodyElseIsLeftAlone();
    void wireGuardIsConnectedOnceItHears();
    void silentWireGuardWakesNobody();
    void pingGoesOverTheInterfaceOfWireGuard();

private:
    void start();

    std::unique_ptr<VpnScene> m_scene;
};

void TestLinuxVpn::init()
{
    beginWatch();
    m_scene = std::make_unique<VpnScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxVpn::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxVpn::start()
{
    m_scene->addBoth();
    QVERIFY(m_scene->startAndWait());
}

void TestLinuxVpn::withoutAConnectionThereIsNone()
{
    m_scene->configure({});
    QVERIFY(m_scene->startAndWait());
    QCOMPARE(m_scene->service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
    QVERIFY(!m_scene->service->place(SystemSet::VPN));
    QCOMPARE(m_scene->link(), 0);
}

void TestLinuxVpn::switchedOnItHasAnAddress()
{
    start();
    QCOMPARE(m_scene->service->adapters(), SystemSet::LAN0 | SystemSet::LAN1 | SystemSet::VPN);
    QVERIFY(!m_scene->values(4).enabled);
    QCOMPARE(m_scene->link(), 0);
    m_scene->vpn.setSteps(FakeVpn::connecting());
    m_scene->switchTunnel(true);
    QVERIFY(m_scene->values(4).enabled); // at the call
    QTRY_COMPARE(m_scene->link(), 1);
    QTRY_COMPARE(m_scene->vpn.started(), QStringList{text("asia")});
    m_scene->vpn.setState(text("asia"), 5, 1);
    QTRY_COMPARE(m_scene->link(), 5);
    QCOMPARE(m_scene->link(SystemSet::EUROPE), 0);
    QCOMPARE(dotted(m_scene->address()), text("10.88.3.61"));
    QCOMPARE(dotted(m_scene->service->snapshot()->adapters.at(4).live.mask), text("255.255.0.0"));
    QCOMPARE(m_scene->daemon.calls(), QStringList{text("ActivateConnection")}); // and no profile is written
}

void TestLinuxVpn::switchedOffItEnds()
{
    start();
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(), 5);
    m_scene->drop(SystemSet::ASIA); // as the screen does
    m_scene->switchTunnel(false);
    QVERIFY(!m_scene->values(4).enabled);
    QTRY_COMPARE(m_scene->link(), 0);
    QTRY_COMPARE(m_scene->address(), HMI::IP());
    QVERIFY(!m_scene->vpn.isActive(text("asia")));
    QCOMPARE(m_scene->vpn.started().size(), 1);
}

void TestLinuxVpn::switchedOffWhileItConnects()
{
    start();
    m_scene->vpn.setSteps(FakeVpn::connecting());
    m_scene->switchTunnel(true);
    QTRY_VERIFY(m_scene->vpn.isActive(text("asia")));
    m_scene->switchTunnel(false);
    QTRY_VERIFY(!m_scene->vpn.isActive(text("asia")));
    QTRY_COMPARE(m_scene->link(), 0);
}

void TestLinuxVpn::switchedOffBeforeTheDaemonAnswers()
{
    start();
    // The daemon is the thread of the test: until it runs its event loop nothing is answered.
    m_scene->switchTunnel(true);
    m_scene->switchTunnel(false);
    m_scene->switchTunnel(true);
    m_scene->switchTunnel(false);
    m_scene->choose(SystemSet::EUROPE);
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(SystemSet::EUROPE), 5);
    QTRY_VERIFY(!m_scene->vpn.isActive(text("asia")));
    QTRY_COMPARE(m_scene->link(SystemSet::ASIA), 0);
}

void TestLinuxVpn::otherServerIsAnotherConnection()
{
    start();
    m_scene->choose(SystemSet::EUROPE);
    QCOMPARE(m_scene->service->snapshot()->vpn.server, SystemSet::EUROPE); // at the call
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(SystemSet::EUROPE), 5);
    QCOMPARE(m_scene->link(SystemSet::ASIA), 0);
    // A screen offers it only while the tunnel is off; it holds all the same.
    m_scene->choose(SystemSet::ASIA);
    QTRY_COMPARE(m_scene->link(SystemSet::ASIA), 5);
    QTRY_COMPARE(m_scene->link(SystemSet::EUROPE), 0);
    QCOMPARE(m_scene->vpn.started(), (QStringList{text("europe"), text("asia")}));
    QVERIFY(!m_scene->vpn.isActive(text("europe")));
    // One that there is not changes nothing.
    m_scene->choose(static_cast<SystemSet::VPNServer>(7));
    QCOMPARE(m_scene->service->snapshot()->vpn.server, SystemSet::ASIA);
}

void TestLinuxVpn::addressIsDropped()
{
    start();
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(), 5);
    m_scene->vpn.setOnline(false); // so that it does not come back
    m_scene->drop(SystemSet::EUROPE);
    m_scene->drop(static_cast<SystemSet::VPNServer>(7));
    QVERIFY(m_scene->vpn.isActive(text("asia")));
    m_scene->drop(SystemSet::ASIA);
    QTRY_COMPARE(m_scene->address(), HMI::IP());
    QVERIFY(m_scene->values(4).enabled);
    m_scene->vpn.setOnline(true);
    QTRY_COMPARE(dotted(m_scene->address()), text("10.88.3.61"));
}

void TestLinuxVpn::choiceIsKeptOverARestart()
{
    start();
    m_scene->choose(SystemSet::EUROPE);
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(SystemSet::EUROPE), 5);
    m_scene->service.reset();
    QCOMPARE(m_scene->panel.contents(text("/var/lib/panelsettings/vpn")), QByteArray("on europe\n"));
    m_scene->vpn.setState(text("europe"), 7, 3); // the daemon restarts too
    m_scene->startService();
    QCOMPARE(m_scene->service->snapshot()->vpn.server, SystemSet::EUROPE);
    QVERIFY(m_scene->values(4).enabled);
    QTRY_COMPARE(m_scene->link(SystemSet::EUROPE), 5);
    QCOMPARE(m_scene->vpn.started(), (QStringList{text("europe"), text("europe")}));
}

void TestLinuxVpn::onlyLookedAtItBeginsNothing()
{
    m_scene->addBoth();
    m_scene->panel.put(text("/var/lib/panelsettings/vpn"), "on asia\n");
    const Root root(m_scene->panel.path(), Root::Access::ReadOnly);
    m_scene->service = std::make_unique<Service>(root, m_scene->bus.address());
    QVERIFY(m_scene->waitForDaemon());
    QVERIFY(m_scene->values(4).enabled);
    // What it had asked of the daemon would have come by the time that it hears of a change.
    m_scene->daemon.unplug(text("lan0"));
    const uint state =
        m_scene->daemon.get(FakeNetworkManager::devicePath(text("lan0")), Nm::device(), text("State"))
            .toUInt();
    QTRY_COMPARE(m_scene->lan0().deviceState, state);
    QCOMPARE(m_scene->vpn.started(), QStringList());
}

void TestLinuxVpn::switchThatIsNotKept()
{
    start();
    m_scene->service->vpn().setOn(true, false);
    m_scene->choose(SystemSet::EUROPE);
    QTRY_COMPARE(m_scene->link(SystemSet::EUROPE), 5);
    m_scene->service.reset();
    QCOMPARE(m_scene->panel.contents(text("/var/lib/panelsettings/vpn")), QByteArray("off europe\n"));
}

void TestLinuxVpn::tunnelOfSomebodyElseIsLeftAlone()
{
    m_scene->addBoth();
    m_scene->vpn.start(text("asia"));
    m_scene->startService();
    QTRY_COMPARE(m_scene->link(), 5);
    QVERIFY(!m_scene->values(4).enabled);
    QVERIFY(m_scene->daemon.calls().isEmpty());
    m_scene->switchTunnel(true); // it is up already
    QTRY_COMPARE(m_scene->link(), 5);
    m_scene->switchTunnel(false);
    QTRY_COMPARE(m_scene->link(), 0);
    QStringList calls = m_scene->daemon.calls();
    calls.removeDuplicates();
    QCOMPARE(calls, QStringList{text("DeactivateConnection")});
}

void TestLinuxVpn::wireGuardIsConnectedOnceItHears()
{
    const QString counter = text("/sys/class/net/wg0/statistics/rx_bytes");
    m_scene->vpn.addWireGuard(text("asia"), text("wg0"));
    m_scene->panel.put(counter, "0\n");
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QTRY_VERIFY(m_scene->vpn.isActive(text("asia")));
    QTRY_COMPARE(m_scene->link(), 1); // its interface is up, and nobody has answered
    m_scene->panel.put(counter, "92\n");
    QTRY_COMPARE(m_scene->link(), 5);
    m_scene->switchTunnel(false);
    QTRY_COMPARE(m_scene->link(), 0);
    m_scene->panel.put(counter, "0\n");
    m_scene->switchTunnel(true); // a new one has heard nothing yet
    QTRY_COMPARE(m_scene->link(), 1);
}

void TestLinuxVpn::silentWireGuardWakesNobody()
{
    const QString counter = text("/sys/class/net/wg0/statistics/rx_bytes");
    m_scene->vpn.addWireGuard(text("asia"), text("wg0"));
    m_scene->panel.put(counter, "0\n");
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(), 1);
    const auto runningTimers = [this] {
        const auto count = std::make_shared<std::promise<int>>();
        m_scene->service->later([worker = &m_scene->service->worker(), count] {
            const auto timers = worker->findChildren<QTimer *>();
            count->set_value(int(std::count_if(timers.cbegin(), timers.cend(),
                                               [](const QTimer *timer) { return timer->isActive(); })));
        });
        return count->get_future().get();
    };
    QTRY_COMPARE(runningTimers(), 0); // whoever waited for the daemon has heard it
    m_scene->panel.put(counter, "92\n");
    QTRY_COMPARE(m_scene->link(), 5); // seen because somebody asks
}

void TestLinuxVpn::pingGoesOverTheInterfaceOfWireGuard()
{
    m_scene->configure("Asia = asia\n[ping]\ntarget = 192.0.2.1\n");
    m_scene->vpn.addWireGuard(text("asia"), text("wgpanel"));
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->link(), 1);
    // This machine has no such interface, so that it is told which one was to be asked over.
    expectMessage(text("nobody can be asked over wgpanel: "));
    const auto answered = std::make_shared<std::promise<bool>>();
    m_scene->service->later([worker = &m_scene->service->worker(), answered] {
        worker->ping(4, [answered](bool outcome) { answered->set_value(outcome); });
    });
    QVERIFY(!answered->get_future().get());
}

PANEL_TEST_MAIN(TestLinuxVpn)
#include "test_linux_vpn.moc"
