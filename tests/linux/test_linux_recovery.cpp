#include "tests/linux/networkscene.h"
#include "tests/linux/text.h"

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

Addresses usual()
{
    return {NetworkScene::ip("192.168.7.20"), maskOf(24), NetworkScene::ip("192.168.7.1")};
}

QString noReply()
{
    return text("org.freedesktop.DBus.Error.NoReply");
}

} // namespace

/// What was set before the daemon, the device or the configuration came anew, or while the daemon did not answer.
class TestLinuxRecovery : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void offStaysOffWithoutACable();
    void offStaysOffWhenTheDaemonComesAnew();
    void onByHandIsLeftAlone();
    void daemonGoneBetweenTwoRequests();
    void adapterOfAnotherPort();
    void adapterOfAnotherPortWithALease();
    void refusedStaticAddressesAreAFailure();
    void objectsThatWereNotTold();
    void profileThatWasNotTold();

private:
    bool autoconnects(const char *port) const
    {
        return m_scene->daemon
            .get(FakeNetworkManager::devicePath(QString::fromLatin1(port)), Nm::device(), text("Autoconnect"))
            .toBool();
    }
    /// A profile that somebody else made for LAN0.
    QString addRival()
    {
        return m_scene->daemon.addProfile(
            FakeNetworkManager::wiredProfile(text("rival"), {{text("method"), text("auto")}}));
    }
    /// The daemon ends and starts; @p meanwhile is what it comes back with.
    template <class Meanwhile> bool restartDaemon(const Meanwhile &meanwhile)
    {
        m_scene->daemon.vanish();
        if (!QTest::qWaitFor([this] { return !m_scene->lan0().known; }))
            return false;
        meanwhile();
        return m_scene->daemon.publish(m_scene->bus.address()) && m_scene->waitForDaemon();
    }
    /// LAN0 and LAN1 change places, with a profile of the panel's own for LAN0.
    bool swapPorts();

    std::unique_ptr<NetworkScene> m_scene;
};

void TestLinuxRecovery::init()
{
    beginWatch();
    m_scene = std::make_unique<NetworkScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxRecovery::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxRecovery::offStaysOffWithoutACable()
{
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.unplug(text("lan0"));
    QTRY_COMPARE(m_scene->lan0().deviceState, uint(Nm::Unavailable));
    m_scene->enable(false);
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY(!autoconnects("lan0"));
    m_scene->enable(true);
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY(autoconnects("lan0"));
}

void TestLinuxRecovery::offStaysOffWhenTheDaemonComesAnew()
{
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    m_scene->enable(false);
    QVERIFY(m_scene->waitForWishes());
    const QString rival = addRival();
    QVERIFY(restartDaemon([this, &rival] {
        m_scene->daemon.set(FakeNetworkManager::devicePath(text("lan0")), Nm::device(),
                            {{text("Autoconnect"), true}});
        m_scene->daemon.activate(rival, text("lan0"));
    }));
    QTRY_VERIFY(m_scene->lan0().live == Addresses());
    QVERIFY(!m_scene->values().enabled);
    QTRY_VERIFY(!autoconnects("lan0"));
    QVERIFY(autoconnects("lan1"));
}

void TestLinuxRecovery::onByHandIsLeftAlone()
{
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    m_scene->enable(false);
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY(!autoconnects("lan0"));
    m_scene->daemon.forgetCalls();
    m_scene->daemon.activate(addRival(), text("lan0"));
    QTRY_VERIFY(m_scene->lan0().live.ip != 0);
    // What came of it would have come with this.
    m_scene->daemon.set(FakeNetworkManager::devicePath(text("lan1")), Nm::device(),
                        {{text("State"), uint(Nm::Unavailable)}});
    QTRY_COMPARE(m_scene->lan1().deviceState, uint(Nm::Unavailable));
    QCOMPARE(m_scene->daemon.calls(), QStringList());
    QVERIFY(m_scene->lan0().live.ip != 0);
}

void TestLinuxRecovery::daemonGoneBetweenTwoRequests()
{
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    // The daemon stands still here: the second waits for the first, which is not answered.
    m_scene->enable(false);
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForWorker());
    QVERIFY(restartDaemon([] {}));
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values() == m_scene->lan0().values);
    QVERIFY(m_scene->values().enabled);
}

bool TestLinuxRecovery::swapPorts()
{
    if (!m_scene->startAndWait() || !m_scene->giveProfile())
        return false;
    m_scene->setAddresses(usual());
    m_scene->forgetReports();
    m_scene->setDhcp(false);
    if (!m_scene->waitForReports(1) || !m_scene->waitForWishes())
        return false;
    m_scene->service.reset();
    m_scene->panel.put(text("/etc/panelsettings/linux.conf"),
                       "[adapters]\nLAN0 = lan1\nLAN1 = lan0\nWIFI = none\nMOBILE_4G = none\n");
    m_scene->forgetReports();
    m_scene->daemon.forgetCalls();
    return m_scene->startAndWait();
}

void TestLinuxRecovery::adapterOfAnotherPort()
{
    QVERIFY(swapPorts());
    const QString profile = m_scene->lan0().profile;
    QVERIFY(!profile.isEmpty());
    // They are those of the other port, on which they are in force.
    QVERIFY(m_scene->values(0).stored == Addresses());
    QVERIFY(m_scene->values(0).dhcp);
    QVERIFY(m_scene->lan1().live == usual());

    const Addresses wanted{NetworkScene::ip("192.168.8.20"), maskOf(24), NetworkScene::ip("192.168.8.1")};
    m_scene->setAddresses(wanted);
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values(0).stored == wanted);
    QTRY_VERIFY(m_scene->lan0().live == wanted);
    QCOMPARE(m_scene->lan0().profile, profile);
    QCOMPARE(m_scene->daemon.profile(profile).value(text("connection")).value(text("interface-name")),
             QVariant(text("lan1")));
}

void TestLinuxRecovery::adapterOfAnotherPortWithALease()
{
    QVERIFY(swapPorts());
    // A lease by the profile of somebody else leaves the panel's own where it is.
    m_scene->daemon.activate(addRival(), text("lan1"));
    QTRY_VERIFY(m_scene->lan0().live.ip != 0);
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(!m_scene->daemon.calls().contains(text("Update2")));
}

void TestLinuxRecovery::refusedStaticAddressesAreAFailure()
{
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    m_scene->setAddresses(usual());
    m_scene->daemon.setSteps({{Nm::Preparing, 0}, {Nm::Failed, 4}, {Nm::Disconnected, 0}});
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    // Without a cable they wait for one.
    m_scene->daemon.setSteps({{Nm::Preparing, 0}, {Nm::Unavailable, 40}});
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(2));
    QCOMPARE(m_scene->reports().constLast(), int(SystemSet::DHCP_OK));
}

void TestLinuxRecovery::objectsThatWereNotTold()
{
    expectMessage(text("org.freedesktop.NetworkManager does not answer"));
    m_scene->daemon.failOnce(text("GetManagedObjects"), noReply());
    QVERIFY(m_scene->startAndWait());
}

void TestLinuxRecovery::profileThatWasNotTold()
{
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    const QString profile = m_scene->lan0().profile;
    m_scene->daemon.failOnce(text("GetSettings"), noReply());
    m_scene->daemon.tell(profile, Nm::profile(), text("Updated"), {});
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    QCOMPARE(m_scene->lan0().profile, profile);
    QCOMPARE(m_scene->daemon.profiles(), QStringList{profile});
}

PANEL_TEST_MAIN(TestLinuxRecovery)
#include "test_linux_recovery.moc"
