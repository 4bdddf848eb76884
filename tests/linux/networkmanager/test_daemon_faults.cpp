#include "tests/linux/calltimer.h"
#include "tests/linux/networkmanager/sandboxscene.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

Addresses usual()
{
    return {ServiceScene::ip("192.168.50.77"), maskOf(24), ServiceScene::ip("192.168.50.1")};
}

} // namespace

/// What goes wrong around wired adapters.
class TestDaemonFaults : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void cablePulledAndPutBack();
    void staticAddressesWithoutACable();
    void defaultAdapterWithoutItsCable();
    void silentServer();
    void daemonKilledAndStarted();
    void daemonRestarted();
    void changeWhileThereIsNoDaemon();
    void busRestarted();
    void frozenDaemonHoldsNobodyUp();

private:
    std::unique_ptr<SandboxScene> m_scene;
};

void TestDaemonFaults::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<SandboxScene>();
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
}

void TestDaemonFaults::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestDaemonFaults::cablePulledAndPutBack()
{
    m_scene->tell("cable lan0 out");
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->lan0().deviceState, 20U, 30000);
    QTRY_VERIFY(m_scene->lan0().live == Addresses());
    QVERIFY(m_scene->values().enabled);
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_FAILED));
    m_scene->tell("cable lan0 in");
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0, 60000);
}

void TestDaemonFaults::staticAddressesWithoutACable()
{
    m_scene->tell("cable lan0 out");
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->lan0().deviceState, 20U, 30000);
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->requestDhcp(false, SystemSet::DHCP_OK));
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == usual());
    m_scene->tell("cable lan0 in");
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->kernelAddresses("lan0"), QStringLiteral("192.168.50.77/24"), 60000);
    QTRY_VERIFY(m_scene->lan0().live == usual());
}

void TestDaemonFaults::defaultAdapterWithoutItsCable()
{
    const auto firstRoute = [this] { return m_scene->tell("routes").value(0).section(QLatin1Char(' '), 0, 0); };
    for (const std::size_t place : {std::size_t(0), std::size_t(1)})
        m_scene->gather(place, [place](Wish &wish) { wish.isDefault = place == 0; });
    QVERIFY(m_scene->waitForWishes());
    QTRY_COMPARE_WITH_TIMEOUT(firstRoute(), QStringLiteral("lan0"), 30000);
    m_scene->tell("cable lan0 out");
    QTRY_COMPARE_WITH_TIMEOUT(firstRoute(), QStringLiteral("lan1"), 30000);
    QVERIFY(m_scene->service->snapshot()->defaultPlace() == std::size_t(0)); // what was chosen
    m_scene->tell("cable lan0 in");
    QTRY_COMPARE_WITH_TIMEOUT(firstRoute(), QStringLiteral("lan0"), 60000);
}

void TestDaemonFaults::silentServer()
{
    m_scene->tell("dhcp lan0 silent");
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_FAILED));
    QVERIFY(m_scene->values().dhcp);
    m_scene->tell("dhcp lan0 answering");
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
}

void TestDaemonFaults::daemonKilledAndStarted()
{
    m_scene->tell("nm kill");
    QTRY_VERIFY(!m_scene->lan0().known);
    QCOMPARE(m_scene->service->adapters(), SystemSet::LAN0 | SystemSet::LAN1);
    m_scene->tell("nm start");
    QVERIFY(m_scene->waitForDaemon());
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0, 30000);
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
}

void TestDaemonFaults::daemonRestarted()
{
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->requestDhcp(false, SystemSet::DHCP_OK));
    m_scene->tell("nm restart");
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().known && m_scene->lan0().live == usual(), 30000);
    QVERIFY(!m_scene->values().dhcp);
    QCOMPARE(m_scene->kernelAddresses("lan0"), QStringLiteral("192.168.50.77/24"));
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
}

void TestDaemonFaults::changeWhileThereIsNoDaemon()
{
    m_scene->setAddresses(usual());
    QVERIFY(m_scene->waitForWishes());
    m_scene->tell("nm kill");
    QTRY_VERIFY(!m_scene->lan0().known);
    expectMessage(QStringLiteral("the settings of LAN0 stay as they are: there is no such adapter"));
    m_scene->gather(0, [](Wish &wish) { wish.ip = ServiceScene::ip("192.168.50.78"); });
    QVERIFY(m_scene->waitForWishes());
    m_scene->tell("nm start");
    QVERIFY(m_scene->waitForDaemon());
    QTRY_VERIFY(m_scene->values().stored == usual());
}

void TestDaemonFaults::busRestarted()
{
    m_scene->tell("bus restart");
    m_scene->tell("nm restart");
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().known && m_scene->lan0().live.ip != 0, 30000);
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
}

void TestDaemonFaults::frozenDaemonHoldsNobodyUp()
{
    m_scene->tell("nm freeze");
    QElapsedTimer whole;
    whole.start();
    qint64 longest = 0;
    const Addresses wanted{ServiceScene::ip("192.168.50.79"), maskOf(24), ServiceScene::ip("192.168.50.1")};
    while (whole.elapsed() < 2000) {
        CallTimer call;
        call.start();
        m_scene->setAddresses(wanted);
        static_cast<void>(m_scene->values());
        static_cast<void>(m_scene->service->snapshot()->dns(0));
        longest = std::max(longest, call.nsecsElapsed());
        QThread::msleep(20); // the pace of a page; nothing is waited for
    }
    qInfo("longest call %lld us", longest / 1000);
    QVERIFY2(longest < 16000000, qPrintable(QString::number(longest)));
    m_scene->tell("nm thaw");
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->values().stored == wanted);
}

PANEL_TEST_MAIN(TestDaemonFaults)
#include "test_daemon_faults.moc"
