#include "tests/linux/networkscene.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QSemaphore>

using namespace HmiLinux;
using HMI::SystemSet;

/// What is read of the daemon, and what becomes of it when the daemon or the bus goes.
class TestLinuxNetwork : public PanelTest
{
    Q_OBJECT

private slots:
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
};

void TestLinuxNetwork::firstSnapshotIsNeutral()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QCOMPARE(scene.service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
    const AdapterState adapter = scene.lan0();
    QVERIFY(!adapter.known);
    QVERIFY(!adapter.values.enabled);
    QVERIFY(!adapter.values.dhcp);
    QVERIFY(adapter.live == Addresses());
    QVERIFY(scene.waitForDaemon());
}

void TestLinuxNetwork::adaptersAreRead()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    Sections settings =
        withValues(newWiredSettings(QStringLiteral("LAN0"), QStringLiteral("lan0")), ProfileValues());
    const QString profile = scene.daemon.addProfile(settings);
    scene.daemon.activate(profile, QStringLiteral("lan0"));
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    const AdapterState adapter = scene.lan0();
    QCOMPARE(dotted(adapter.live.ip), QStringLiteral("192.168.50.109"));
    QCOMPARE(dotted(adapter.live.mask), QStringLiteral("255.255.255.0"));
    QCOMPARE(dotted(adapter.live.gateway), QStringLiteral("192.168.50.1"));
    QCOMPARE(dotted(adapter.liveDns.first), QStringLiteral("192.168.50.1"));
    const HMI::MAC mac = {2, 0, 0, 0, 0, 0x10};
    QVERIFY(adapter.mac == mac);
    QVERIFY(adapter.values.enabled);
    QVERIFY(adapter.values.dhcp);
    QCOMPARE(adapter.profile, profile);
    QVERIFY(scene.lan1().known);
    QVERIFY(scene.lan1().live == Addresses());
}

void TestLinuxNetwork::profileOfSomebodyElseIsShown()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    const Records addresses{
        {{QStringLiteral("address"), QStringLiteral("10.1.2.3")}, {QStringLiteral("prefix"), 16U}}};
    const QString profile = scene.daemon.addProfile(FakeNetworkManager::wiredProfile(
        QStringLiteral("somebody's"), {{QStringLiteral("method"), QStringLiteral("manual")},
                                       {QStringLiteral("address-data"), QVariant::fromValue(addresses)}}));
    scene.daemon.activate(profile, QStringLiteral("lan1"));
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    const AdapterState adapter = scene.lan1();
    QVERIFY(adapter.values.enabled);
    QVERIFY(!adapter.values.dhcp);
    QCOMPARE(dotted(adapter.values.stored.ip), QStringLiteral("10.1.2.3"));
    QCOMPARE(dotted(adapter.values.stored.mask), QStringLiteral("255.255.0.0"));
    QVERIFY(scene.daemon.calls().isEmpty()); // reading changes nothing
}

void TestLinuxNetwork::cablePulledAndPutBack()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    const QString profile = scene.daemon.addProfile(
        withValues(newWiredSettings(QStringLiteral("LAN0"), QStringLiteral("lan0")), ProfileValues()));
    scene.daemon.activate(profile, QStringLiteral("lan0"));
    scene.startService();
    QTRY_VERIFY(scene.lan0().live.ip != 0);
    scene.daemon.unplug(QStringLiteral("lan0"));
    QTRY_VERIFY(scene.lan0().live == Addresses());
    QVERIFY(scene.lan0().values.enabled); // it is on, and has no cable
    scene.daemon.activate(profile, QStringLiteral("lan0"));
    QTRY_COMPARE(dotted(scene.lan0().live.ip), QStringLiteral("192.168.50.109"));
}

void TestLinuxNetwork::ownerLostAndBack()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    for (int i = 0; i < 3; ++i) {
        scene.daemon.vanish();
        QTRY_VERIFY(!scene.lan0().known);
        QVERIFY(!scene.lan0().values.enabled);
        QCOMPARE(scene.service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
        QVERIFY(scene.daemon.publish(scene.bus.address()));
        QVERIFY(scene.waitForDaemon());
    }
}

void TestLinuxNetwork::busKilledAndRestarted()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    for (int i = 0; i < 2; ++i) {
        scene.bus.kill();
        QTRY_VERIFY(!scene.lan0().known);
        scene.daemon.vanish();
        QVERIFY(scene.bus.start());
        QVERIFY(scene.daemon.publish(scene.bus.address()));
        QVERIFY(scene.waitForDaemon());
    }
}

void TestLinuxNetwork::daemonThatComesLater()
{
    const auto owner = std::make_unique<NetworkScene>(false);
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    expectMessage(QStringLiteral("org.freedesktop.NetworkManager does not answer"));
    scene.startService();
    // The question has been asked once this has been done.
    QSemaphore asked;
    scene.service->later([&asked] { asked.release(); });
    QVERIFY(asked.tryAcquire(1, NetworkScene::Patience));
    QTest::qWait(100);
    QVERIFY(scene.daemon.publish(scene.bus.address()));
    QVERIFY(scene.waitForDaemon());
}

void TestLinuxNetwork::wishesBeforeTheFirstSnapshot()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    // The daemon has not answered: no event has been handled here.
    scene.setDhcp(true);
    scene.gather(0, [](Wish &wish) { wish.dns = Dns{NetworkScene::ip("9.9.9.9"), HMI::IP()}; });
    QVERIFY(scene.waitForReports(1));
    QCOMPARE(scene.reports(), QVector<int>{SystemSet::DHCP_OK});
    QVERIFY(scene.waitForWishes());
    QCOMPARE(dotted(scene.values().dns.first), QStringLiteral("9.9.9.9"));
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
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    scene.service->brightness().setLevel(7, true);
    scene.service.reset(); // at once
    QCOMPARE(scene.panel.contents(QStringLiteral("/var/lib/panelsettings/brightness")), QByteArray("7\n"));
}

void TestLinuxNetwork::languageOfAnotherProgram()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    const QString file = QStringLiteral("/var/lib/panelsettings/language");
    LanguageFile &language = scene.service->language();
    for (const bool replaces : {false, true, false, true}) {
        if (replaces)
            QVERIFY(scene.panel.root().replace(file, "zh\n"));
        else
            scene.panel.put(file, "zh\n");
        QTRY_COMPARE(language.language(), SystemSet::CHINESE);
        language.setLanguage(SystemSet::ENGLISH);
        QCOMPARE(language.language(), SystemSet::ENGLISH);
        QTRY_COMPARE(scene.panel.contents(file), QByteArray("en\n"));
        QCOMPARE(language.language(), SystemSet::ENGLISH);
    }
}

void TestLinuxNetwork::stormIsOneSnapshot()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    const int before = scene.service->snapshot()->round;
    for (uint i = 1; i <= 500; ++i)
        scene.daemon.setState(QStringLiteral("lan0"), i);
    QTRY_COMPARE(scene.lan0().deviceState, 500U);
    // One, unless the machine paused in the middle of it.
    QVERIFY2(scene.service->snapshot()->round - before <= 10,
             qPrintable(QString::number(scene.service->snapshot()->round - before)));
}

void TestLinuxNetwork::endlessStormIsPublishedAllTheSame()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    const int before = scene.service->snapshot()->round;
    uint state = 1000;
    QTimer storm;
    storm.start(5);
    connect(&storm, &QTimer::timeout, this, [&] { scene.daemon.setState(QStringLiteral("lan0"), ++state); });
    QTRY_VERIFY(scene.service->snapshot()->round >= before + 3);
    storm.stop();
}

void TestLinuxNetwork::gettersAreCheap()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    constexpr int rounds = 100000;
    quint32 sum = 0;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < rounds; ++i)
        sum += scene.service->snapshot()->adapters.at(0).live.ip;
    const qint64 each = clock.nsecsElapsed() / rounds;
    QCOMPARE(sum, 0U);
    qInfo("%lld ns", each);
    QVERIFY2(each < 20000, "with room for a sanitizer and a machine that is busy");
}

void TestLinuxNetwork::frozenDaemonHoldsNobodyUp()
{
    const auto owner = std::make_unique<NetworkScene>();
    NetworkScene &scene = *owner;
    QVERIFY(scene.isUp);
    scene.startService();
    QVERIFY(scene.waitForDaemon());
    // The daemon lives on this thread: while no event is handled here, it is frozen.
    QElapsedTimer clock;
    clock.start();
    qint64 longest = 0;
    for (int i = 0; i < 300; ++i) {
        QElapsedTimer call;
        call.start();
        scene.setAddresses({NetworkScene::ip("10.0.0.2"), maskOf(24), NetworkScene::ip("10.0.0.1")});
        scene.setDhcp(i % 2 == 0);
        scene.enable(i % 3 != 0);
        static_cast<void>(scene.values());
        longest = std::max(longest, call.elapsed());
        QThread::msleep(1);
    }
    QVERIFY2(longest < 100, qPrintable(QString::number(longest))); // a blocking call would take 20 seconds
    QCOMPARE(dotted(scene.values().stored.ip), QStringLiteral("10.0.0.2")); // as asked, not as it is
    QVERIFY(scene.reports().isEmpty());
    scene.enable(true);
    // It wakes up and does as was asked.
    QVERIFY(scene.waitForWishes());
    QVERIFY(scene.waitForReports(300));
    QTRY_COMPARE(dotted(scene.lan0().values.stored.ip), QStringLiteral("10.0.0.2"));
}

PANEL_TEST_MAIN(TestLinuxNetwork)
#include "test_linux_network.moc"
