#include "simulatortest.h"

#include <QtCore/QElapsedTimer>

using HmiSimulator::Delivery;
using HmiSimulator::FireOn;
using HmiSimulator::Operation;

/// Every fault that can be asked for happens, and only that one.
class TestSimulatorFaults : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        HmiSimulator::setDelays(1);
        beginWatch();
    }

    void delivery_data();
    void delivery();
    void deliveryForSomeRequests();
    void synchronousConnectKeepsOrder();
    void heldReportsWait();
    void manualModeHoldsEverything();
    void leavingManualModeLetsGo();
    void firedOnTheThreadAskedFor();
    void firedByOperation();
    void droppedRequestsDoNotHappen();
    void fireAllCatchesFollowUps();
    void callbackMayCallTheSimulator();
    void oldAttemptReportsLate();
    void nullList();
    void dhcpResult();
    void pingResult();
    void scriptedConnect();
    void refusedClock();
    void nonsenseComesThrough();
    void nonsenseBelowRange();
};

void TestSimulatorFaults::delivery_data()
{
    QTest::addColumn<int>("delivery");
    QTest::addColumn<int>("atOnce");
    QTest::addColumn<int>("inTheEnd");
    QTest::newRow("normal") << int(Delivery::Normal) << 0 << 1;
    QTest::newRow("late") << int(Delivery::Late) << 0 << 1;
    QTest::newRow("never") << int(Delivery::Never) << 0 << 0;
    QTest::newRow("twice") << int(Delivery::Twice) << 0 << 2;
    QTest::newRow("synchronous") << int(Delivery::Synchronous) << 1 << 1;
}

void TestSimulatorFaults::delivery()
{
    QFETCH(const int, delivery);
    QFETCH(const int, atOnce);
    QFETCH(const int, inTheEnd);
    HmiSimulator::setDelays(20);
    for (int i = 0; i < HmiSimulator::OperationCount; ++i)
        HmiSimulator::setDelivery(static_cast<Operation>(i), static_cast<Delivery>(delivery), 60);

    QElapsedTimer clock;
    clock.start();
    HmiSimulator::setManual(true); // none comes while those are counted that come at once
    const std::vector<SharedReports> single{askForDhcp(SystemSet::LAN0), ping(SystemSet::LAN0), scan(),
                                            scan(&SystemSet::resetWifi)};
    const SharedReports joined = join("Works Hall Guests");
    for (const SharedReports &reports : single)
        QCOMPARE(reports->values().size(), atOnce);
    QCOMPARE(joined->values().size(), 2 * atOnce);

    HmiSimulator::setManual(false);
    QVERIFY(HmiSimulator::waitIdle());
    for (const SharedReports &reports : single)
        QCOMPARE(reports->values().size(), inTheEnd);
    QCOMPARE(joined->values().size(), 2 * inTheEnd);
    if (delivery == int(Delivery::Late))
        QVERIFY(clock.elapsed() >= 80);
    // What was asked for happens in any case.
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0xC0A80175U);
    QVERIFY(service().currentWifiSsid() == ssid("Works Hall Guests"));
}

void TestSimulatorFaults::deliveryForSomeRequests()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.faults.of(Operation::Ping) = {Delivery::Never, 0, 2};
    });
    const std::vector<SharedReports> pings{ping(SystemSet::LAN0), ping(SystemSet::LAN0),
                                           ping(SystemSet::LAN0)};
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(pings[0]->values().size(), 0);
    QCOMPARE(pings[1]->values().size(), 0);
    QCOMPARE(pings[2]->values().size(), 1);
}

void TestSimulatorFaults::synchronousConnectKeepsOrder()
{
    HmiSimulator::setDelivery(Operation::Connect, Delivery::Synchronous);
    QCOMPARE(join("Works Hall Guests")->values(), (QVector<int>{1, 2}));
    QCOMPARE(join("Maintenance", "wrong")->values(), (QVector<int>{1, 4}));
}

void TestSimulatorFaults::heldReportsWait()
{
    HmiSimulator::setDelivery(Operation::Dhcp, Delivery::Held);
    const SharedReports reports = askForDhcp(SystemSet::LAN0);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values().size(), 0);
    QCOMPARE(lines(HmiSimulator::pending()), QStringList{"setDHCP(LAN0)"});
    QVERIFY(HmiSimulator::fireNext());
    QCOMPARE(reports->values(), QVector<int>{0});
    QVERIFY(!HmiSimulator::fireNext());
}

void TestSimulatorFaults::manualModeHoldsEverything()
{
    HmiSimulator::setManual(true);
    const SharedReports reports = askForDhcp(SystemSet::LAN1);
    join("Works Hall Guests");
    scan();
    // What makes no report is done all the same, by the thread that makes them and after those that were due before.
    HmiSimulator::setDelivery(Operation::Ping, Delivery::Never);
    ping(SystemSet::LAN0);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values().size(), 0);
    QCOMPARE(lines(HmiSimulator::pending()),
             (QStringList{"setDHCP(LAN1)", "connectWifi(\"Works Hall Guests\")",
                          "connectWifi(\"Works Hall Guests\")", "scanWifi"}));
    QCOMPARE(HmiSimulator::fireAll(), 4);
    QCOMPARE(reports->values().size(), 1);
    QVERIFY(HmiSimulator::pending().empty());
}

void TestSimulatorFaults::leavingManualModeLetsGo()
{
    HmiSimulator::setManual(true);
    const SharedReports reports = ping(SystemSet::LAN0);
    HmiSimulator::setManual(false);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values(), QVector<int>{1});
}

void TestSimulatorFaults::firedOnTheThreadAskedFor()
{
    HmiSimulator::setManual(true);
    QThread *reported = nullptr;
    const auto remember = [&reported](bool) { reported = QThread::currentThread(); };
    service().pingTest(SystemSet::LAN0, remember);
    service().pingTest(SystemSet::LAN0, remember);
    QVERIFY(HmiSimulator::fireNext("pingTest", FireOn::CallingThread));
    QCOMPARE(reported, QThread::currentThread());
    QVERIFY(HmiSimulator::fireNext("pingTest", FireOn::SimulatorThread));
    QVERIFY(reported != nullptr);
    QVERIFY(reported != QThread::currentThread());
}

void TestSimulatorFaults::firedByOperation()
{
    HmiSimulator::setManual(true);
    const SharedReports first = askForDhcp(SystemSet::LAN0);
    const SharedReports second = askForDhcp(SystemSet::LAN1);
    QVERIFY(!HmiSimulator::fireNext("pingTest"));
    QVERIFY(HmiSimulator::fireNext("setDHCP(LAN1)"));
    QCOMPARE(first->values().size(), 0);
    QCOMPARE(second->values().size(), 1);
}

void TestSimulatorFaults::droppedRequestsDoNotHappen()
{
    HmiSimulator::setManual(true);
    const quint32 before = service().getIp(SystemSet::LAN0);
    const SharedReports reports = askForDhcp(SystemSet::LAN0);
    HmiSimulator::dropPending();
    QCOMPARE(HmiSimulator::fireAll(), 0);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), before);
    QCOMPARE(reports.use_count(), 1L); // the callback and what it held are gone
}

void TestSimulatorFaults::fireAllCatchesFollowUps()
{
    HmiSimulator::setManual(true);
    auto reports = std::make_shared<Reports>();
    service().pingTest(SystemSet::LAN0, [reports](bool) {
        service().pingTest(SystemSet::LAN0, [reports](bool answered) { reports->add(answered ? 1 : 0); });
    });
    QCOMPARE(HmiSimulator::fireAll(), 2);
    QCOMPARE(reports->values(), QVector<int>{1});
}

void TestSimulatorFaults::callbackMayCallTheSimulator()
{
    auto reports = std::make_shared<Reports>();
    service().pingTest(SystemSet::LAN0, [reports](bool) {
        HmiSimulator::setManual(true);
        service().pingTest(SystemSet::LAN0, [reports](bool) { reports->add(1); });
        HmiSimulator::fireNext();
        HmiSimulator::reset();
        reports->add(2);
    });
    QTRY_COMPARE(reports->values(), (QVector<int>{1, 2}));
    QVERIFY(HmiSimulator::waitIdle());
}

void TestSimulatorFaults::oldAttemptReportsLate()
{
    HmiSimulator::setManual(true);
    const SharedReports old = join("Maintenance", "torque55Nm");
    const SharedReports recent = join("Works Hall Guests");
    QCOMPARE(HmiSimulator::fireAll(), 4);
    QCOMPARE(old->values(), (QVector<int>{1, 0}));
    QCOMPARE(recent->values(), (QVector<int>{1, 2}));
    QVERIFY(service().currentWifiSsid() == ssid("Works Hall Guests"));
}

void TestSimulatorFaults::nullList()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.nullList = true; });
    const SharedReports scanned = scan();
    const SharedReports reset = scan(&SystemSet::resetWifi);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(scanned->values(), QVector<int>{-1});
    QCOMPARE(reset->values(), QVector<int>{-1});
}

void TestSimulatorFaults::dhcpResult()
{
    for (const int result : {1, 7}) {
        HmiSimulator::change([result](HmiSimulator::Panel &panel) { panel.faults.dhcp = result; });
        const SharedReports reports = askForDhcp(SystemSet::LAN0);
        QVERIFY(HmiSimulator::waitIdle());
        QCOMPARE(reports->values(), QVector<int>{result});
        QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0U);
    }
    // Success for a Wi-Fi that has joined nothing.
    HmiSimulator::leaveNetwork();
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.dhcp = 0; });
    const SharedReports reports = askForDhcp(SystemSet::WIFI);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values(), QVector<int>{0});
}

void TestSimulatorFaults::pingResult()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.ping = false; });
    const SharedReports lan = ping(SystemSet::LAN0);
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.ping = true; });
    const SharedReports vpn = ping(SystemSet::VPN);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(vpn->values(), QVector<int>{1});
    QCOMPARE(lan->values().size(), 1);
}

void TestSimulatorFaults::scriptedConnect()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.connect = {1, 7, 1, 3}; });
    const SharedReports failing = join("Works Hall Guests");
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(failing->values(), (QVector<int>{1, 7, 1, 3}));
    QVERIFY(!service().isWifiConnected());

    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.connect = {2}; });
    join("Nobody Has Heard Of It");
    QVERIFY(HmiSimulator::waitIdle());
    QVERIFY(service().currentWifiSsid() == ssid("Nobody Has Heard Of It"));
}

void TestSimulatorFaults::refusedClock()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.clockRefused = true; });
    QVERIFY(!service().setSystemTime(1700000000));
    QCOMPARE(HmiSimulator::panel().clockOffset, 0LL);
}

void TestSimulatorFaults::nonsenseComesThrough()
{
    std::string error;
    QVERIFY2(HmiSimulator::loadScenario(scenarioPath("nonsense.json").toStdString(), &error), error.c_str());
    QCOMPARE(service().getAllNIC(), 255);
    QCOMPARE(int(service().getDefaultNIC()), 8);
    QCOMPARE(service().get4GState(SystemSet::MOBILE_4G), 9);
    QVERIFY(service().getVPNServer() != SystemSet::ASIA);
    QCOMPARE(service().getVPNServerState(service().getVPNServer()), 9);
    QCOMPARE(int(service().bright()), 99);
    QCOMPARE(int(service().getLanguage()), 7);
    QCOMPARE(service().currentWifiSignalStrength(), 255);
    QCOMPARE(service().getSerialNumber().size(), std::size_t(5000));
    HmiSimulator::setMobile(9, 255);
    QCOMPARE(service().get4GSignal(SystemSet::MOBILE_4G), 255);
}

void TestSimulatorFaults::nonsenseBelowRange()
{
    std::string error;
    QVERIFY2(HmiSimulator::loadScenario(scenarioPath("nonsense-low.json").toStdString(), &error),
             error.c_str());
    QCOMPARE(int(service().bright()), 0);
    QCOMPARE(int(service().getLanguage()), -1);
    QCOMPARE(int(service().getDefaultNIC()), 0);
    QCOMPARE(service().getVPNServerState(service().getVPNServer()), -1);
    QVERIFY(QString::fromStdString(service().getSerialNumber()).contains(QChar::ReplacementCharacter));
    HmiSimulator::setAdapters(0);
    QCOMPARE(service().getAllNIC(), 0);
    HmiSimulator::setSerialNumber({});
    QCOMPARE(service().getSerialNumber(), std::string());
}

PANEL_TEST_MAIN(TestSimulatorFaults)
#include "test_simulator_faults.moc"
