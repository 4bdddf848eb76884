#include "tests/linux/text.h"
#include "tests/linux/vpnscene.h"

#include "linux/vpnnames.h"

using namespace HmiLinux;
using HMI::SystemSet;

/// What goes wrong around the tunnel, and what the operator is told of it.
class TestLinuxVpnFaults : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void reasonsHaveTheirNumber_data();
    void reasonsHaveTheirNumber();
    void missingCertificate();
    void failedIsTriedAgain();
    void lostIsTriedAgain();
    void operatorDoesNotWaitForTheNextTry();
    void failureEndsWithTheSwitch();
    void switchedOffAndOnItIsBackAtOnce();
    void withoutANetworkItWaits();
    void connectionThatIsNotStored();
    void refusedActivation();
    void refusalIsToldOnce();
    void daemonGoesAndComes();
    void failureAfterTheDaemonCameBack();
    void refusalIsToldAgainOfAnotherDaemon();

private:
    void startOn(const FakeVpn::Steps &steps, const QByteArray &pause = "600");
    bool waitFor(int link)
    {
        return QTest::qWaitFor([this, link] { return m_scene->link() == link; }, VpnScene::Patience);
    }

    std::unique_ptr<VpnScene> m_scene;
};

void TestLinuxVpnFaults::init()
{
    beginWatch();
    m_scene = std::make_unique<VpnScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxVpnFaults::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxVpnFaults::startOn(const FakeVpn::Steps &steps, const QByteArray &pause)
{
    m_scene->configure("Asia = asia\nEurope = europe\nretry = " + pause + "\n");
    m_scene->addBoth();
    m_scene->vpn.setSteps(steps);
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QTRY_VERIFY(!m_scene->vpn.started().isEmpty());
}

void TestLinuxVpnFaults::reasonsHaveTheirNumber_data()
{
    QTest::addColumn<uint>("reason");
    QTest::addColumn<int>("link");
    QTest::newRow("no secrets") << 9U << 2;
    QTest::newRow("login failed") << 10U << 2;
    QTest::newRow("plug-in gave up") << 0U << 3;
    QTest::newRow("plug-in ended") << 4U << 3;
    QTest::newRow("timeout") << 6U << 3;
    QTest::newRow("no use of the addresses") << 5U << 0;
    QTest::newRow("plug-in not there") << 8U << 0;
}

void TestLinuxVpnFaults::reasonsHaveTheirNumber()
{
    QFETCH(const uint, reason);
    QFETCH(const int, link);
    startOn(FakeVpn::failed(reason));
    QTRY_VERIFY(!m_scene->vpn.isActive(text("asia")));
    QVERIFY(waitFor(link));
    QCOMPARE(m_scene->link(SystemSet::EUROPE), 0);
    QVERIFY(m_scene->values(4).enabled);
    QCOMPARE(m_scene->vpn.started().size(), 1);
}

void TestLinuxVpnFaults::missingCertificate()
{
    m_scene->configure("Asia = asia\nEurope = europe\nretry = 600\n");
    m_scene->panel.put(text("/etc/vpn/ca.pem"), "a certificate");
    m_scene->vpn.addConnection(text("asia"), {{text("ca"), text("/etc/vpn/ca.pem")},
                                              {text("cert"), text("/etc/vpn/panel.pem")},
                                              {text("key"), text("/etc/vpn/panel.key")}});
    m_scene->vpn.setSteps(FakeVpn::failed(Nm::VpnServiceStopped));
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QVERIFY(waitFor(4));
    m_scene->panel.put(text("/etc/vpn/panel.pem"), "a certificate");
    m_scene->panel.put(text("/etc/vpn/panel.key"), "a key");
    m_scene->switchTunnel(false);
    QVERIFY(waitFor(0));
    m_scene->switchTunnel(true);
    QVERIFY(waitFor(3)); // it was not for want of one
}

void TestLinuxVpnFaults::failedIsTriedAgain()
{
    startOn(FakeVpn::failed(Nm::VpnTimeout), "1");
    QVERIFY(waitFor(3));
    m_scene->vpn.setSteps(FakeVpn::connected());
    QVERIFY(waitFor(5));
    QVERIFY(m_scene->vpn.started().size() >= 2);
}

void TestLinuxVpnFaults::lostIsTriedAgain()
{
    startOn(FakeVpn::connected(), "1");
    QVERIFY(waitFor(5));
    m_scene->vpn.setState(text("asia"), Nm::VpnFailed, Nm::VpnServiceStopped);
    QVERIFY(waitFor(0)); // it had agreed with its server: no fault of TLS
    QVERIFY(waitFor(5));
    QCOMPARE(m_scene->vpn.started().size(), 2);
}

void TestLinuxVpnFaults::operatorDoesNotWaitForTheNextTry()
{
    startOn(FakeVpn::failed(Nm::VpnLoginFailed));
    QVERIFY(waitFor(2));
    m_scene->vpn.setSteps(FakeVpn::connected());
    m_scene->switchTunnel(false);
    m_scene->switchTunnel(true);
    QVERIFY(waitFor(5));
}

void TestLinuxVpnFaults::failureEndsWithTheSwitch()
{
    startOn(FakeVpn::failed(Nm::VpnLoginFailed));
    QVERIFY(waitFor(2));
    m_scene->switchTunnel(false);
    QVERIFY(waitFor(0));
}

void TestLinuxVpnFaults::switchedOffAndOnItIsBackAtOnce()
{
    startOn(FakeVpn::connected());
    QVERIFY(waitFor(5));
    // The daemon answers only when the test's thread comes to it: it ends the tunnel after it is wanted again.
    m_scene->switchTunnel(false);
    QVERIFY(m_scene->waitForWorker());
    m_scene->switchTunnel(true);
    QVERIFY(m_scene->waitForWorker());
    QTRY_COMPARE(m_scene->vpn.started().size(), 2);
    QVERIFY(waitFor(5));
}

void TestLinuxVpnFaults::withoutANetworkItWaits()
{
    m_scene->configure("Asia = asia\nretry = 600\n");
    m_scene->addBoth();
    m_scene->vpn.setOnline(false);
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    m_scene->setDhcp(true); // some round with the daemon
    QVERIFY(m_scene->waitForReports(1));
    QVERIFY(m_scene->vpn.started().isEmpty());
    QCOMPARE(m_scene->link(), 0);
    m_scene->vpn.setOnline(true);
    QVERIFY(waitFor(5));
    // Lost with the network it is back with it, without a pause.
    m_scene->vpn.setOnline(false);
    m_scene->vpn.setState(text("asia"), Nm::VpnDisconnected, Nm::VpnNetworkGone);
    QVERIFY(waitFor(0));
    m_scene->vpn.setOnline(true);
    QVERIFY(waitFor(5));
}

void TestLinuxVpnFaults::connectionThatIsNotStored()
{
    expectMessage(text("there is no tunnel to Asia: no connection is stored as \"asia\""));
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->link(), 0);
    m_scene->addBoth(); // somebody stores it
    QVERIFY(waitFor(5));
}

void TestLinuxVpnFaults::refusedActivation()
{
    expectMessage(text("the tunnel to Asia does not begin: refused"));
    m_scene->vpn.refuse(true);
    m_scene->configure("Asia = asia\nretry = 600\n");
    m_scene->addBoth();
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QTRY_COMPARE(m_scene->daemon.calls(), QStringList{text("ActivateConnection")});
    QVERIFY(waitFor(0));
    m_scene->vpn.refuse(false);
    m_scene->switchTunnel(true);
    QVERIFY(waitFor(5));
}

void TestLinuxVpnFaults::refusalIsToldOnce()
{
    expectMessage(text("the tunnel to Asia does not begin: refused"));
    m_scene->vpn.refuse(true);
    m_scene->addBoth();
    QVERIFY(m_scene->startAndWait());
    m_scene->switchTunnel(true);
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->daemon.calls().size() >= 3, VpnScene::Patience);
    m_scene->vpn.refuse(false);
    QVERIFY(waitFor(5));
}

void TestLinuxVpnFaults::daemonGoesAndComes()
{
    startOn(FakeVpn::connected());
    QVERIFY(waitFor(5));
    m_scene->daemon.vanish();
    QVERIFY(waitFor(0));
    QCOMPARE(m_scene->address(), HMI::IP());
    QVERIFY(m_scene->values(4).enabled); // it is the panel's own choice
    m_scene->vpn.setState(text("asia"), Nm::VpnDisconnected, Nm::VpnServiceStopped); // with its daemon
    QVERIFY(m_scene->daemon.publish(m_scene->bus.address()));
    QVERIFY(waitFor(5));
    QCOMPARE(m_scene->vpn.started().size(), 2);
}

void TestLinuxVpnFaults::failureAfterTheDaemonCameBack()
{
    startOn(FakeVpn::connected());
    QVERIFY(waitFor(5));
    m_scene->switchTunnel(false);
    QVERIFY(waitFor(0));
    // It counts its connections anew: the next one has the path of the one that the panel ended.
    m_scene->daemon.vanish();
    QTRY_VERIFY(!m_scene->lan0().known);
    QVERIFY(m_scene->daemon.publish(m_scene->bus.address()));
    QVERIFY(m_scene->waitForDaemon());
    m_scene->vpn.setSteps(FakeVpn::failed(Nm::VpnLoginFailed));
    m_scene->switchTunnel(true);
    QVERIFY(waitFor(2));
}

void TestLinuxVpnFaults::refusalIsToldAgainOfAnotherDaemon()
{
    const auto starts = [this] { return m_scene->daemon.calls().count(text("ActivateConnection")); };
    m_scene->vpn.refuse(true);
    m_scene->addBoth();
    QVERIFY(m_scene->startAndWait());
    for (int daemons = 0; daemons < 2; ++daemons) {
        expectMessage(text("the tunnel to Asia does not begin: refused"));
        const int before = starts();
        if (daemons == 0)
            m_scene->switchTunnel(true);
        else
            QVERIFY(m_scene->daemon.publish(m_scene->bus.address()));
        QTRY_VERIFY_WITH_TIMEOUT(starts() >= before + 2, VpnScene::Patience);
        m_scene->daemon.vanish();
        QTRY_VERIFY(!m_scene->lan0().known);
    }
}

PANEL_TEST_MAIN(TestLinuxVpnFaults)
#include "test_linux_vpn_faults.moc"
