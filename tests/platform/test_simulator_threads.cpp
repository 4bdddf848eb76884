#include "simulatortest.h"

#include <atomic>
#include <thread>

/// Everything at once from several threads; the thread sanitizer watches.
class TestSimulatorThreads : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        HmiSimulator::setDelays(0);
        beginWatch();
    }

    void serviceFromManyThreads();
    void controlBesideService();
    void resetWhileReporting();
    void fireFromSeveralThreads();
};

namespace {

void lookAtEverything()
{
    for (const SystemSet::NIC nic : {SystemSet::LAN0, SystemSet::WIFI, SystemSet::MOBILE_4G}) {
        service().getIp(nic);
        service().getDns(nic);
        service().isNicEnabled(nic);
        service().isDhcpOn(nic);
    }
    service().get4GSignal(SystemSet::MOBILE_4G);
    service().currentWifiSsid();
    service().currentWifiSignalStrength();
    service().getSerialNumber();
    service().isBuzzerOn();
}

} // namespace

void TestSimulatorThreads::serviceFromManyThreads()
{
    constexpr int rounds = 200;
    auto reports = std::make_shared<Reports>();
    HmiSimulator::setGettersRecorded(true);
    std::vector<std::thread> threads;
    threads.emplace_back([] {
        for (int i = 0; i < rounds; ++i)
            service().setBuzzerOn(i % 2 == 0);
    });
    threads.emplace_back([] {
        for (int i = 0; i < rounds; ++i)
            lookAtEverything();
    });
    threads.emplace_back([reports] {
        for (int i = 0; i < rounds; ++i) {
            service().setDHCP(
                SystemSet::LAN0, i % 2 == 0, [reports](SystemSet::DHCP_STATE state) { reports->add(state); },
                true);
        }
    });
    threads.emplace_back([reports] {
        for (int i = 0; i < rounds; ++i) {
            service().enableNIC(SystemSet::WIFI, i % 2 == 0, true);
            service().scanWifi([reports](auto) { reports->add(1); });
        }
    });
    for (std::thread &thread : threads)
        thread.join();
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values().size(), 2 * rounds);
}

void TestSimulatorThreads::controlBesideService()
{
    std::atomic<bool> done{false};
    std::thread looker([&done] {
        while (!done)
            lookAtEverything();
    });
    for (int i = 0; i < 100; ++i) {
        HmiSimulator::setSerialNumber(std::string(static_cast<std::size_t>(i), 'S'));
        HmiSimulator::setNetworks(HmiSimulator::crowd(i));
        HmiSimulator::joinNetwork("Hall 1");
        HmiSimulator::journal();
        HmiSimulator::pending();
    }
    done = true;
    looker.join();
    QCOMPARE(service().getSerialNumber().size(), std::size_t(99));
}

void TestSimulatorThreads::resetWhileReporting()
{
    for (int i = 0; i < 50; ++i) {
        auto reports = std::make_shared<Reports>();
        HmiSimulator::setDelays(0);
        for (int j = 0; j < 5; ++j)
            service().pingTest(SystemSet::LAN0, [reports](bool) { reports->add(1); });
        HmiSimulator::reset();
        // Nothing runs and nothing is left: the journal that reset() emptied stays empty.
        QCOMPARE(reports.use_count(), 1L);
        QVERIFY(HmiSimulator::journal().empty());
    }
}

void TestSimulatorThreads::fireFromSeveralThreads()
{
    HmiSimulator::setManual(true);
    auto reports = std::make_shared<Reports>();
    for (int i = 0; i < 40; ++i)
        service().pingTest(SystemSet::LAN0, [reports](bool) { reports->add(1); });
    std::atomic<int> fired{0};
    std::vector<std::thread> threads;
    for (const HmiSimulator::FireOn where :
         {HmiSimulator::FireOn::SimulatorThread, HmiSimulator::FireOn::CallingThread}) {
        for (int i = 0; i < 2; ++i)
            threads.emplace_back([where, &fired] { fired += HmiSimulator::fireAll(where); });
    }
    for (std::thread &thread : threads)
        thread.join();
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(fired.load(), 40); // each report is fired by one of them
    QCOMPARE(reports->values().size(), 40);
}

PANEL_TEST_MAIN(TestSimulatorThreads)
#include "test_simulator_threads.moc"
