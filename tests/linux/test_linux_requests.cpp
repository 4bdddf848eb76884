#include "tests/linux/networkscene.h"
#include "tests/linux/text.h"

#include <atomic>
#include <future>

using namespace HmiLinux;
using HMI::SystemSet;

/// Many requests, and requests that nobody can fulfil.
class TestLinuxRequests : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void requestsInARowAreAllAnswered();
    void profileIsMadeOnce();
    void whatIsHalfAskedForWaits();
    void roundsLeaveNothingBehind();
    void daemonGoneInTheMiddle();
    void adapterThatIsNotThere();

private:
    std::unique_ptr<NetworkScene> m_scene;
};

void TestLinuxRequests::init()
{
    beginWatch();
    m_scene = std::make_unique<NetworkScene>();
    QVERIFY(m_scene->isUp);
    QVERIFY(m_scene->startAndWait());
}

void TestLinuxRequests::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestLinuxRequests::requestsInARowAreAllAnswered()
{
    QVERIFY(m_scene->giveProfile());
    for (int i = 0; i < 5; ++i)
        m_scene->setDhcp(i % 2 == 0);
    QVERIFY(m_scene->waitForReports(5));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().dhcp); // the newest counts
    QTRY_COMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.109"));
    QCOMPARE(m_scene->reports().size(), 5);
}

void TestLinuxRequests::profileIsMadeOnce()
{
    for (int i = 0; i < 20; ++i) {
        m_scene->setDhcp(i % 2 == 0);
        m_scene->enable(i % 3 != 0);
        m_scene->setDhcp(true);
        // Each time the daemon is elsewhere in what it was asked for.
        for (int step = 0; step < i; ++step) {
            QVERIFY(m_scene->waitForWorker());
            QCoreApplication::processEvents();
        }
    }
    m_scene->enable(true);
    QVERIFY(m_scene->waitForReports(40));
    QVERIFY(m_scene->waitForWishes());
    QCOMPARE(m_scene->daemon.profiles().size(), 1);
    QCOMPARE(m_scene->daemon.calls().count(text("AddConnection2")), 1);
    QVERIFY(m_scene->values().dhcp);
    QVERIFY(m_scene->values().enabled);
}

void TestLinuxRequests::whatIsHalfAskedForWaits()
{
    QVERIFY(m_scene->giveProfile());
    const Addresses wanted{NetworkScene::ip("192.168.50.77"), maskOf(24), NetworkScene::ip("192.168.50.1")};
    // The time of gathering is over in the middle of what the operator's page writes. All on the worker's thread, so that on
    // a busy machine too it is over then alone.
    const auto ends = std::make_shared<std::atomic<int>>(0);
    m_scene->service->later([this, wanted, ends] {
        m_scene->service->wish(0, true, [](Wish &wish) {
            wish.dns = Dns{NetworkScene::ip("9.9.9.9"), HMI::IP()};
        });
        m_scene->service->worker().network().writer(0)->gather();
        m_scene->service->wish(0, true, [&wanted](Wish &wish) { wish.ip = wanted.ip; });
        auto *gathering = m_scene->service->worker().network().writer(0)->findChild<QTimer *>(text("gather"));
        QObject::connect(gathering, &QTimer::timeout, gathering, [ends] { ++*ends; });
        gathering->start(0);
    });
    QTRY_VERIFY(*ends > 0);
    m_scene->service->later([this, wanted] {
        m_scene->service->wish(0, true, [&wanted](Wish &wish) { wish.mask = wanted.mask; });
        m_scene->service->worker().network().writer(0)->gather();
        m_scene->service->wish(0, true, [&wanted](Wish &wish) { wish.gateway = wanted.gateway; });
        m_scene->service->worker().network().writer(0)->gather();
    });
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == wanted);
    QCOMPARE(m_scene->daemon.calls().count(text("Update2")), 1);
}

void TestLinuxRequests::roundsLeaveNothingBehind()
{
    QVERIFY(m_scene->giveProfile());
    const auto objects = [this] {
        const auto count = std::make_shared<std::promise<int>>();
        m_scene->service->later(
            [this, count] { count->set_value(m_scene->service->worker().findChildren<QObject *>().size()); });
        return count->get_future().get();
    };
    // Answers that were handled are deleted in the next turn of the event loop.
    const int before = objects();
    for (int i = 0; i < 50; ++i) {
        m_scene->setDhcp(i % 2 == 0);
        m_scene->gather(0, [i](Wish &wish) { wish.dns = Dns{HMI::IP(0x0A000001U + i), HMI::IP()}; });
        QVERIFY(m_scene->waitForReports(i + 1));
    }
    QVERIFY(m_scene->waitForWishes());
    QTRY_VERIFY2(objects() <= before, qPrintable(QStringLiteral("%1 of %2").arg(objects()).arg(before)));
    QCOMPARE(m_scene->daemon.profiles().size(), 1);
}

void TestLinuxRequests::daemonGoneInTheMiddle()
{
    QVERIFY(m_scene->giveProfile());
    m_scene->daemon.setSteps({{Nm::Preparing, 0}}); // and then nothing
    m_scene->setDhcp(true);
    QTRY_COMPARE(m_scene->lan0().deviceState, uint(Nm::Preparing));
    m_scene->daemon.vanish();
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(!m_scene->lan0().known);
}

void TestLinuxRequests::adapterThatIsNotThere()
{
    m_scene->daemon.remove(FakeNetworkManager::devicePath(text("lan1")));
    QTRY_VERIFY(!m_scene->lan1().known);
    expectMessage(text("the settings of LAN1 stay as they are: there is no such adapter at the moment"));
    m_scene->setDhcp(true, 1);
    QVERIFY(m_scene->waitForReports(1));
    QCOMPARE(m_scene->reports(), QVector<int>{SystemSet::DHCP_FAILED});
    QVERIFY(m_scene->waitForWishes());
}

PANEL_TEST_MAIN(TestLinuxRequests)
#include "test_linux_requests.moc"
