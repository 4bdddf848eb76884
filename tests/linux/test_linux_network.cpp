#include "tests/linux/networkscene.h"

#include <QtCore/QElapsedTimer>

using namespace HmiLinux;
using HMI::SystemSet;

/// What is read of the daemon, and what becomes of it when the daemon or the bus goes.
class TestLinuxNetwork : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void firstSnapshotIsNeutral();
    void adaptersAreRead();
    void profileOfSomebodyElseIsShown();
    void cablePulledAndPutBack();
    void ownerLostAndBack();
    void busKilledAndRestarted();
    void daemonThatComesLater();
    void wishesBeforeTheFirstSnapshot();
    void nobodyThereAtAll();
    void whatWasSavedLastIsKept();
    void languageOfAnotherProgram();
    void stormIsOneSnapshot();
    void endlessStormIsPublishedAllTheSame();
    void gettersAreCheap();
    void frozenDaemonHoldsNobodyUp();

private:
    std::unique_ptr<NetworkScene> m_scene;
};

void TestLinuxNetwork::init()
{
    beginWatch();
    m_scene = std::make_unique<NetworkScene>();
    QVERIFY(m_scene->isUp);
}

void TestLinuxNetwork::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxNetwork::firstSnapshotIsNeutral()
{
    m_scene->startService();
    QCOMPARE(m_scene->service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
    const AdapterState adapter = m_scene->lan0();
    QVERIFY(!adapter.known);
    QVERIFY(!adapter.values.enabled);
    QVERIFY(!adapter.values.dhcp);
    QVERIFY(adapter.live == Addresses());
    QVERIFY(m_scene->waitForDaemon());
}

void TestLinuxNetwork::adaptersAreRead()
{
    Sections settings =
        withValues(newWiredSettings(QStringLiteral("LAN0"), QStringLiteral("lan0")), ProfileValues());
    const QString profile = m_scene->daemon.addProfile(settings);
    m_scene->daemon.activate(profile, QStringLiteral("lan0"));
    QVERIFY(m_scene->startAndWait());
    const AdapterState adapter = m_scene->lan0();
    QCOMPARE(dotted(adapter.live.ip), QStringLiteral("192.168.50.109"));
    QCOMPARE(dotted(adapter.live.mask), QStringLiteral("255.255.255.0"));
    QCOMPARE(dotted(adapter.live.gateway), QStringLiteral("192.168.50.1"));
    QCOMPARE(dotted(adapter.liveDns.first), QStringLiteral("192.168.50.1"));
    const HMI::MAC mac = {2, 0, 0, 0, 0, 0x10};
    QVERIFY(adapter.mac == mac);
    QVERIFY(adapter.values.enabled);
    QVERIFY(adapter.values.dhcp);
    QCOMPARE(adapter.profile, profile);
    QVERIFY(m_scene->lan1().known);
    QVERIFY(m_scene->lan1().live == Addresses());
}

void TestLinuxNetwork::profileOfSomebodyElseIsShown()
{
    const Records addresses{
        {{QStringLiteral("address"), QStringLiteral("10.1.2.3")}, {QStringLiteral("prefix"), 16U}}};
    const QString profile = m_scene->daemon.addProfile(FakeNetworkManager::wiredProfile(
        QStringLiteral("somebody's"), {{QStringLiteral("method"), QStringLiteral("manual")},
                                       {QStringLiteral("address-data"), QVariant::fromValue(addresses)}}));
    m_scene->daemon.activate(profile, QStringLiteral("lan1"));
    QVERIFY(m_scene->startAndWait());
    const AdapterState adapter = m_scene->lan1();
    QVERIFY(adapter.values.enabled);
    QVERIFY(!adapter.values.dhcp);
    QCOMPARE(dotted(adapter.values.stored.ip), QStringLiteral("10.1.2.3"));
    QCOMPARE(dotted(adapter.values.stored.mask), QStringLiteral("255.255.0.0"));
    QVERIFY(m_scene->daemon.calls().isEmpty()); // reading changes nothing
}

void TestLinuxNetwork::cablePulledAndPutBack()
{
    const QString profile = m_scene->daemon.addProfile(
        withValues(newWiredSettings(QStringLiteral("LAN0"), QStringLiteral("lan0")), ProfileValues()));
    m_scene->daemon.activate(profile, QStringLiteral("lan0"));
    m_scene->startService();
    QTRY_VERIFY(m_scene->lan0().live.ip != 0);
    m_scene->daemon.unplug(QStringLiteral("lan0"));
    QTRY_VERIFY(m_scene->lan0().live == Addresses());
    QVERIFY(m_scene->lan0().values.enabled); // it is on, and has no cable
    m_scene->daemon.activate(profile, QStringLiteral("lan0"));
    QTRY_COMPARE(dotted(m_scene->lan0().live.ip), QStringLiteral("192.168.50.109"));
}

void TestLinuxNetwork::ownerLostAndBack()
{
    QVERIFY(m_scene->startAndWait());
    for (int i = 0; i < 3; ++i) {
        m_scene->daemon.vanish();
        QTRY_VERIFY(!m_scene->lan0().known);
        QVERIFY(!m_scene->lan0().values.enabled);
        QCOMPARE(m_scene->service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
        QVERIFY(m_scene->daemon.publish(m_scene->bus.address()));
        QVERIFY(m_scene->waitForDaemon());
    }
}

void TestLinuxNetwork::busKilledAndRestarted()
{
    QVERIFY(m_scene->startAndWait());
    for (int i = 0; i < 2; ++i) {
        m_scene->bus.kill();
        QTRY_VERIFY(!m_scene->lan0().known);
        m_scene->daemon.vanish();
        QVERIFY(m_scene->bus.start());
        QVERIFY(m_scene->daemon.publish(m_scene->bus.address()));
        QVERIFY(m_scene->waitForDaemon());
    }
}

void TestLinuxNetwork::daemonThatComesLater()
{
    m_scene = std::make_unique<NetworkScene>(false);
    QVERIFY(m_scene->isUp);
    expectMessage(QStringLiteral("org.freedesktop.NetworkManager does not answer"));
    m_scene->startService();
    QTRY_VERIFY(haveMessagesCome());
    QVERIFY(m_scene->daemon.publish(m_scene->bus.address()));
    QVERIFY(m_scene->waitForDaemon());
}

void TestLinuxNetwork::wishesBeforeTheFirstSnapshot()
{
    m_scene->startService();
    // The daemon has not answered: no event has been handled here.
    m_scene->setDhcp(true);
    m_scene->gather(0, [](Wish &wish) { wish.dns = Dns{NetworkScene::ip("9.9.9.9"), HMI::IP()}; });
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(m_scene->waitForWishes());
    QCOMPARE(dotted(m_scene->values().dns.first), QStringLiteral("9.9.9.9"));
}

void TestLinuxNetwork::nobodyThereAtAll()
{
    ServiceScene scene;
    expectMessage(QStringLiteral("there is no message bus"));
    expectMessage(
        QStringLiteral("the settings of LAN0 stay as they are: there is no such adapter at the moment"));
    scene.startOn(QStringLiteral("unix:path=/nonexistent/bus"));
    scene.setDhcp(true);
    QVERIFY(scene.waitForReports(1));
    QCOMPARE(scene.reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(scene.waitForWishes());
    QVERIFY(!scene.values().dhcp);
    QCOMPARE(scene.service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
}

void TestLinuxNetwork::whatWasSavedLastIsKept()
{
    m_scene->startService();
    m_scene->service->brightness().setLevel(7, true);
    m_scene->service.reset(); // at once
    QCOMPARE(m_scene->panel.contents(QStringLiteral("/var/lib/panelsettings/brightness")), QByteArray("7\n"));
}

void TestLinuxNetwork::languageOfAnotherProgram()
{
    QVERIFY(m_scene->startAndWait());
    const QString file = QStringLiteral("/var/lib/panelsettings/language");
    LanguageFile &language = m_scene->service->language();
    for (const bool replaces : {false, true, false, true}) {
        if (replaces)
            QVERIFY(m_scene->panel.root().replace(file, "zh\n"));
        else
            m_scene->panel.put(file, "zh\n");
        QTRY_COMPARE(language.language(), SystemSet::CHINESE);
        language.setLanguage(SystemSet::ENGLISH);
        QCOMPARE(language.language(), SystemSet::ENGLISH);
        QTRY_COMPARE(m_scene->panel.contents(file), QByteArray("en\n"));
        QCOMPARE(language.language(), SystemSet::ENGLISH);
    }
}

void TestLinuxNetwork::stormIsOneSnapshot()
{
    QVERIFY(m_scene->startAndWait());
    const int before = m_scene->service->snapshot()->round;
    for (uint i = 1; i <= 500; ++i)
        m_scene->daemon.setState(QStringLiteral("lan0"), i);
    QTRY_COMPARE(m_scene->lan0().deviceState, 500U);
    // One, unless the machine paused in the middle of it.
    QVERIFY2(m_scene->service->snapshot()->round - before <= 10,
             qPrintable(QString::number(m_scene->service->snapshot()->round - before)));
}

void TestLinuxNetwork::endlessStormIsPublishedAllTheSame()
{
    QVERIFY(m_scene->startAndWait());
    const int before = m_scene->service->snapshot()->round;
    uint state = 1000;
    QTimer storm;
    storm.start(5);
    connect(&storm, &QTimer::timeout, this,
            [&] { m_scene->daemon.setState(QStringLiteral("lan0"), ++state); });
    QTRY_VERIFY(m_scene->service->snapshot()->round >= before + 3);
    storm.stop();
}

void TestLinuxNetwork::gettersAreCheap()
{
    QVERIFY(m_scene->startAndWait());
    constexpr int rounds = 100000;
    quint32 sum = 0;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < rounds; ++i)
        sum += m_scene->service->snapshot()->adapters.at(0).live.ip;
    const qint64 each = clock.nsecsElapsed() / rounds;
    QCOMPARE(sum, 0U);
    qInfo("%lld ns", each);
    QVERIFY2(each < 20000, "with room for a sanitizer and a machine that is busy");
}

void TestLinuxNetwork::frozenDaemonHoldsNobodyUp()
{
    QVERIFY(m_scene->startAndWait());
    // The daemon lives on this thread: while no event is handled here, it is frozen.
    QElapsedTimer clock;
    clock.start();
    qint64 longest = 0;
    for (int i = 0; i < 300; ++i) {
        QElapsedTimer call;
        call.start();
        m_scene->setAddresses({NetworkScene::ip("10.0.0.2"), maskOf(24), NetworkScene::ip("10.0.0.1")});
        m_scene->setDhcp(i % 2 == 0);
        m_scene->enable(i % 3 != 0);
        static_cast<void>(m_scene->values());
        longest = std::max(longest, call.elapsed());
        QVERIFY(m_scene->waitForWorker());
    }
    QVERIFY2(longest < 100, qPrintable(QString::number(longest))); // a blocking call would take 20 seconds
    QCOMPARE(dotted(m_scene->values().stored.ip), QStringLiteral("10.0.0.2")); // as asked, not as it is
    QVERIFY(m_scene->reports().isEmpty());
    m_scene->enable(true);
    // It wakes up and does as was asked.
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->waitForReports(300));
    QTRY_COMPARE(dotted(m_scene->lan0().values.stored.ip), QStringLiteral("10.0.0.2"));
}

PANEL_TEST_MAIN(TestLinuxNetwork)
#include "test_linux_network.moc"
