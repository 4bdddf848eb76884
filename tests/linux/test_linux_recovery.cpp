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
    void requestThatWasNotAnswered_data();
    void requestThatWasNotAnswered();
    void addressesThatWereNotAnswered();
    void refusedAfterAll();
    void goneWhileItWaits();

private:
    /// The next calls of that name are answered with these errors, one each. Whether they are @p done all the same is
    /// another question: an answer that comes too late is none.
    void answer(const QString &call, const QStringList &errors, bool areDone);
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
    QTRY_VERIFY(m_scene->daemon.calls().contains(text("Disconnect")));
    QVERIFY(!autoconnects("lan0"));
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
    // The second waits for the first, which is not answered.
    m_scene->daemon.ignore(text("GetSettings"));
    m_scene->enable(false);
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForWorker());
    QTRY_COMPARE(m_scene->daemon.ignored(), 1);
    QVERIFY(restartDaemon([this] { m_scene->daemon.ignore(QString()); }));
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

void TestLinuxRecovery::answer(const QString &call, const QStringList &errors, bool areDone)
{
    const FakeObjects::Method method = m_scene->daemon.method(call);
    const auto left = std::make_shared<QStringList>(errors);
    m_scene->daemon.onCall(call, [method, left, areDone](const QDBusMessage &message) {
        if (left->isEmpty())
            return method(message);
        if (areDone)
            static_cast<void>(method(message));
        return message.createErrorReply(left->takeFirst(), text("made up"));
    });
}

void TestLinuxRecovery::requestThatWasNotAnswered_data()
{
    const QString refusal = text("org.freedesktop.DBus.Error.Failed");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QStringList>("errors");
    QTest::addColumn<bool>("areDone");
    QTest::newRow("not stored") << text("Update2") << QStringList{noReply()} << false;
    QTest::newRow("stored late") << text("Update2") << QStringList{noReply()} << true;
    QTest::newRow("twice not stored") << text("Update2") << QStringList{noReply(), noReply()} << false;
    QTest::newRow("not made") << text("AddConnection2") << QStringList{noReply()} << false;
    QTest::newRow("made late") << text("AddConnection2") << QStringList{noReply()} << true;
    // The daemon comes to both at once: the second time there is one already.
    QTest::newRow("made while asked again")
        << text("AddConnection2") << QStringList{noReply(), refusal} << false;
}

void TestLinuxRecovery::requestThatWasNotAnswered()
{
    QFETCH(const QString, call);
    QFETCH(const QStringList, errors);
    QFETCH(const bool, areDone);
    QVERIFY(m_scene->startAndWait());
    if (call == text("Update2"))
        QVERIFY(m_scene->giveProfile());
    answer(call, errors, areDone);
    expectMessage(text("the settings of LAN0 wait for the daemon"));
    m_scene->setAddresses(usual());
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QTRY_VERIFY(m_scene->lan0().live == usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    QVERIFY(!m_scene->values().dhcp);
    QCOMPARE(m_scene->daemon.profiles().size(), 1);
    QCOMPARE(m_scene->reports().size(), 1);
}

void TestLinuxRecovery::addressesThatWereNotAnswered()
{
    QVERIFY(m_scene->startAndWait());
    m_scene->setAddresses(usual());
    m_scene->setDhcp(false);
    QVERIFY(m_scene->waitForReports(1) && m_scene->waitForWishes());
    QVERIFY(m_scene->lan0().live == usual());
    answer(text("Update2"), {noReply()}, true);
    expectMessage(text("the settings of LAN0 wait for the daemon"));
    Addresses others = usual();
    others.ip = NetworkScene::ip("192.168.7.21");
    m_scene->setAddresses(others);
    QTRY_VERIFY(m_scene->lan0().live == others);
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == others);
}

void TestLinuxRecovery::refusedAfterAll()
{
    const QString refusal = text("org.freedesktop.DBus.Error.Failed");
    QVERIFY(m_scene->startAndWait());
    QVERIFY(m_scene->giveProfile());
    answer(text("Update2"), {noReply(), refusal, refusal}, false);
    expectMessage(text("the settings of LAN0 wait for the daemon"));
    expectMessage(text("the settings of LAN0 stay as they are: made up"));
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values() == m_scene->lan0().values);
    QVERIFY(m_scene->values().dhcp);
}

void TestLinuxRecovery::goneWhileItWaits()
{
    const QString refusal = text("org.freedesktop.DBus.Error.Failed");
    QVERIFY(m_scene->startAndWait());
    answer(text("AddConnection2"), {noReply(), refusal}, false);
    expectMessage(text("the settings of LAN0 wait for the daemon"));
    expectMessage(text("the settings of LAN0 stay as they are: there is no such adapter"));
    m_scene->setDhcp(true);
    QVERIFY(m_scene->waitForReports(1));
    m_scene->daemon.remove(FakeNetworkManager::devicePath(text("lan0")));
    QVERIFY(m_scene->waitForWishes());
    // What is asked of it when it is back has nothing to do with that, and is refused at once.
    m_scene->daemon.addPort(text("lan0"), text("02:00:00:00:00:10"));
    QTRY_VERIFY(m_scene->lan0().known);
    expectMessage(text("the settings of LAN0 stay as they are: made up"));
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    QCOMPARE(m_scene->daemon.profiles(), QStringList());
}

PANEL_TEST_MAIN(TestLinuxRecovery)
#include "test_linux_recovery.moc"
