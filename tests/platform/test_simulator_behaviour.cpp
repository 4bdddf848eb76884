#include "simulatortest.h"

#include <ctime>

/// The simulated panel does what a panel does.
class TestSimulatorBehaviour : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        HmiSimulator::setDelays(1);
        beginWatch();
    }

    void leaseDiffersFromStored();
    void staticAddressTakesEffect();
    void staticAddressWaitsWhileOnDhcp();
    void addressNotPersistedIsNotStored();
    void disabledAdapterHasNoAddress();
    void leaseNeedsLinkAndAdapter();
    void pingFollowsAdapter();
    void scanTellsWhatIsKept();
    void signalsDrift();
    void openNetworkJoins();
    void passwordDecides();
    void refusedPasswordIsForgotten();
    void silentNetworkTimesOut();
    void switchedOffWifiGoesOffline();
    void newAttemptSilencesOld();
    void reEnabledWifiRejoins();
    void resetForgetsAndScans();
    void namesAreBytes();
    void hiddenNetworkIsConnectedWithoutName();
    void mobileGoesThroughItsStates();
    void mobileSwitchedOffMeanwhile();
    void vpnGoesThroughItsStates();
    void vpnServerChangeReconnects();
    void clockIsAnOffset();
    void clockRefusesImpossibleTimes();
    void brightnessSavesOnlyOnDemand();
    void valuesOutOfRangeChangeNothing();
};

namespace {

/// Milliseconds until a state goes on by itself, where the state before it is looked at: more than a
/// busy machine lets pass between two lines.
constexpr int LongEnough = 500;

} // namespace

void TestSimulatorBehaviour::leaseDiffersFromStored()
{
    const SharedReports reports = askForDhcp(SystemSet::LAN0);
    QVERIFY(service().isDhcpOn(SystemSet::LAN0));
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values(), QVector<int>{0});
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0xC0A80175U);
    QCOMPARE(quint32(service().getSubnetMask(SystemSet::LAN0)), 0xFFFFFF00U);
    QCOMPARE(quint32(service().getGateway(SystemSet::LAN0)), 0xC0A801FEU);
    QCOMPARE(quint32(service().getIpFromEE(SystemSet::LAN0)), 0xC0A8010AU);

    askForDhcp(SystemSet::LAN0, false);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0xC0A8010AU);
}

void TestSimulatorBehaviour::staticAddressTakesEffect()
{
    service().setIp(SystemSet::LAN0, 0x0A000005, true);
    service().setSubnetMask(SystemSet::LAN0, 0xFF000000, true);
    service().setGateway(SystemSet::LAN0, 0x0A000001, true);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0x0A000005U);
    QCOMPARE(quint32(service().getSubnetMask(SystemSet::LAN0)), 0xFF000000U);
    QCOMPARE(quint32(service().getGateway(SystemSet::LAN0)), 0x0A000001U);
}

void TestSimulatorBehaviour::staticAddressWaitsWhileOnDhcp()
{
    const quint32 live = service().getIp(SystemSet::LAN1);
    service().setIp(SystemSet::LAN1, 0x0A000005, true);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN1)), live);
    askForDhcp(SystemSet::LAN1, false);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(quint32(service().getIp(SystemSet::LAN1)), 0x0A000005U);
}

void TestSimulatorBehaviour::addressNotPersistedIsNotStored()
{
    service().setIp(SystemSet::LAN0, 0x0A000005, false);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0x0A000005U);
    QCOMPARE(quint32(service().getIpFromEE(SystemSet::LAN0)), 0xC0A8010AU);
}

void TestSimulatorBehaviour::disabledAdapterHasNoAddress()
{
    service().enableNIC(SystemSet::LAN0, false, true);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0U);
    service().enableNIC(SystemSet::LAN0, true, true);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN0)), 0xC0A8010AU);

    service().enableNIC(SystemSet::LAN1, false, true);
    service().enableNIC(SystemSet::LAN1, true, true);
    QCOMPARE(quint32(service().getIp(SystemSet::LAN1)), 0U); // until a lease is asked for
    askForDhcp(SystemSet::LAN1);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(quint32(service().getIp(SystemSet::LAN1)), 0xAC140575U);
}

void TestSimulatorBehaviour::leaseNeedsLinkAndAdapter()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.adapters[SystemSet::LAN0].link = false; });
    HmiSimulator::leaveNetwork();
    HmiSimulator::setNicEnabled(SystemSet::LAN1, false);
    for (const SystemSet::NIC nic : {SystemSet::LAN0, SystemSet::LAN1, SystemSet::WIFI}) {
        const SharedReports reports = askForDhcp(nic);
        QVERIFY(HmiSimulator::waitIdle());
        QCOMPARE(reports->values(), QVector<int>{1});
        QCOMPARE(quint32(service().getIp(nic)), 0U);
    }
}

void TestSimulatorBehaviour::pingFollowsAdapter()
{
    const auto answers = [](SystemSet::NIC nic) {
        const SharedReports reports = ping(nic);
        return HmiSimulator::waitIdle() && reports->values() == QVector<int>{1};
    };
    QVERIFY(answers(SystemSet::LAN0));
    QVERIFY(answers(SystemSet::WIFI));
    QVERIFY(answers(SystemSet::MOBILE_4G));
    QVERIFY(!answers(SystemSet::VPN));
    QVERIFY(!answers(static_cast<SystemSet::NIC>(8)));
    service().setGateway(SystemSet::LAN0, 0, true);
    QVERIFY(!answers(SystemSet::LAN0));
    HmiSimulator::leaveNetwork();
    QVERIFY(!answers(SystemSet::WIFI));
    HmiSimulator::setMobile(1, 50);
    QVERIFY(!answers(SystemSet::MOBILE_4G));
    service().enableNIC(SystemSet::LAN1, false, true);
    QVERIFY(!answers(SystemSet::LAN1));
}

void TestSimulatorBehaviour::scanTellsWhatIsKept()
{
    HmiSimulator::setNetworks({{"open", "", 80},
                               {"secured", "secret-one", 60},
                               {"kept", "secret-two", 40, 0, "secret-two"},
                               {"odd", "secret-three", 255, 0, std::nullopt, true, 9}});
    const std::vector<SystemSet::SsidInfo> list = scanNow();
    QCOMPARE(list.size(), std::size_t(4));
    QVERIFY(list[0].ssid == ssid("open"));
    QCOMPARE(int(list[0].signal), 80);
    QCOMPARE(int(list[0].needsPassword), 0);
    QCOMPARE(int(list[1].needsPassword), 1);
    QCOMPARE(list[1].password, std::string());
    QCOMPARE(int(list[2].needsPassword), 0);
    QCOMPARE(list[2].password, std::string("secret-two"));
    QCOMPARE(int(list[3].needsPassword), 9);
    QCOMPARE(int(list[3].signal), 255);
}

void TestSimulatorBehaviour::signalsDrift()
{
    HmiSimulator::setNetworks({{"still", "", 50}, {"moving", "", 50, 10}, {"strong", "", 98, 10}});
    QSet<int> moving;
    for (int i = 0; i < 30; ++i) {
        const std::vector<SystemSet::SsidInfo> list = scanNow();
        QCOMPARE(int(list[0].signal), 50);
        QVERIFY(list[1].signal >= 40 && list[1].signal <= 60);
        QVERIFY(list[2].signal >= 88 && list[2].signal <= 100);
        moving.insert(list[1].signal);
    }
    QVERIFY(moving.size() > 5);
}

void TestSimulatorBehaviour::openNetworkJoins()
{
    HmiSimulator::setManual(true);
    const SharedReports reports = join("Works Hall Guests");
    QVERIFY(!service().isWifiConnected());
    QCOMPARE(HmiSimulator::fireAll(), 2);
    QCOMPARE(reports->values(), (QVector<int>{1, 2}));
    QVERIFY(service().isWifiConnected());
    QVERIFY(service().currentWifiSsid() == ssid("Works Hall Guests"));
    QVERIFY(service().currentWifiSignalStrength() >= 69);
    QCOMPARE(quint32(service().getIp(SystemSet::WIFI)), 0U); // joined, but no lease yet
}

void TestSimulatorBehaviour::passwordDecides()
{
    const std::string password = "Grüße aus dem Büro";
    QVERIFY(HmiSimulator::waitIdle());
    const SharedReports wrong = join("Büro Süd", password + ' ');
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(wrong->values(), (QVector<int>{1, 4}));
    QVERIFY(!service().isWifiConnected());
    const SharedReports right = join("Büro Süd", password);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(right->values(), (QVector<int>{1, 2}));
    QCOMPARE(*HmiSimulator::panel().wifi.networks[3].stored, password);
}

void TestSimulatorBehaviour::refusedPasswordIsForgotten()
{
    const SharedReports reports = join("Pump Room 3", "pump-room");
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values(), (QVector<int>{1, 4}));
    const SystemSet::SsidInfo info = scanNow()[6];
    QVERIFY(info.ssid == ssid("Pump Room 3"));
    QCOMPARE(info.password, std::string());
    QCOMPARE(int(info.needsPassword), 1);
}

void TestSimulatorBehaviour::silentNetworkTimesOut()
{
    const SharedReports silent = join("Warehouse", "asleep-access-point");
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(silent->values(), (QVector<int>{1, 3}));
    const SharedReports gone = join("Not There");
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(gone->values(), (QVector<int>{1, 3}));
}

void TestSimulatorBehaviour::switchedOffWifiGoesOffline()
{
    service().enableNIC(SystemSet::WIFI, false, true);
    QVERIFY(!service().isWifiConnected());
    const SharedReports reports = join("Works Hall Guests");
    const SharedReports lists = scan();
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(reports->values(), (QVector<int>{1, 0}));
    QCOMPARE(lists->values(), QVector<int>{-1});
}

void TestSimulatorBehaviour::newAttemptSilencesOld()
{
    HmiSimulator::setManual(true);
    const SharedReports old = join("Maintenance", "torque55Nm");
    const SharedReports reports = join("Works Hall Guests");
    QCOMPARE(HmiSimulator::fireAll(), 4);
    QCOMPARE(reports->values(), (QVector<int>{1, 2}));
    QVERIFY(!old->values().contains(SystemSet::WIFI_CONNECTED));
    QVERIFY(service().currentWifiSsid() == ssid("Works Hall Guests"));
}

void TestSimulatorBehaviour::reEnabledWifiRejoins()
{
    HmiSimulator::setDelays(LongEnough);
    service().enableNIC(SystemSet::WIFI, false, true);
    service().enableNIC(SystemSet::WIFI, true, true);
    QVERIFY(!service().isWifiConnected());
    QVERIFY(HmiSimulator::waitIdle());
    QVERIFY(service().currentWifiSsid() == ssid("Works Hall"));
    QCOMPARE(quint32(service().getIp(SystemSet::WIFI)), 0xC0A8328FU);
}

void TestSimulatorBehaviour::resetForgetsAndScans()
{
    HmiSimulator::setManual(true);
    const SharedReports lists = scan(&SystemSet::resetWifi);
    QVERIFY(!service().isWifiConnected());
    QCOMPARE(HmiSimulator::fireAll(), 1);
    QCOMPARE(lists->values(), QVector<int>{9});
    for (const SystemSet::SsidInfo &info : scanNow())
        QCOMPARE(info.password, std::string());
}

void TestSimulatorBehaviour::namesAreBytes()
{
    std::string error;
    QVERIFY2(HmiSimulator::loadScenario(scenarioPath("wifi-names.json").toStdString(), &error),
             error.c_str());
    HmiSimulator::setDelays(1);
    QVERIFY(!service().isWifiConnected());
    for (const SystemSet::SsidInfo &info : scanNow()) {
        HMI::SSID sent = info.ssid;
        sent.back() = '\0'; // the screen forces the terminator
        auto reports = std::make_shared<Reports>();
        service().connectWifi(sent, "12345678",
                              [reports](SystemSet::StateWifi state) { reports->add(state); });
        QVERIFY(HmiSimulator::waitIdle());
        QCOMPARE(reports->values(), (QVector<int>{1, 2}));
        QVERIFY(service().currentWifiSsid() == info.ssid);
    }
}

void TestSimulatorBehaviour::hiddenNetworkIsConnectedWithoutName()
{
    HmiSimulator::joinNetwork({}, 33);
    QVERIFY(service().isWifiConnected());
    QVERIFY(service().currentWifiSsid() == HMI::SSID{});
    QCOMPARE(service().currentWifiSignalStrength(), 33);
}

void TestSimulatorBehaviour::mobileGoesThroughItsStates()
{
    HmiSimulator::setDelays(LongEnough);
    service().enableNIC(SystemSet::MOBILE_4G, false, true);
    QCOMPARE(service().get4GState(SystemSet::MOBILE_4G), 0);
    QCOMPARE(service().get4GSignal(SystemSet::MOBILE_4G), 0);
    service().enableNIC(SystemSet::MOBILE_4G, true, true);
    QCOMPARE(quint32(service().getIp(SystemSet::MOBILE_4G)), 0U);
    QTRY_COMPARE(service().get4GState(SystemSet::MOBILE_4G), 2);
    QCOMPARE(quint32(service().getIp(SystemSet::MOBILE_4G)), 0x64480E09U);
    QVERIFY(service().get4GSignal(SystemSet::MOBILE_4G) >= 58);
}

void TestSimulatorBehaviour::mobileSwitchedOffMeanwhile()
{
    HmiSimulator::setDelays(LongEnough);
    service().enableNIC(SystemSet::MOBILE_4G, false, true);
    service().enableNIC(SystemSet::MOBILE_4G, true, true);
    QCOMPARE(service().get4GState(SystemSet::MOBILE_4G), 1);
    service().enableNIC(SystemSet::MOBILE_4G, false, true);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(service().get4GState(SystemSet::MOBILE_4G), 0);
}

void TestSimulatorBehaviour::vpnGoesThroughItsStates()
{
    HmiSimulator::setDelays(LongEnough);
    service().enableNIC(SystemSet::VPN, true, true);
    QCOMPARE(service().getVPNServerState(SystemSet::ASIA), 1);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(service().getVPNServerState(SystemSet::ASIA), 5);
    QCOMPARE(service().getVPNServerState(SystemSet::EUROPE), 0);
    QVERIFY(quint32(service().getIp(SystemSet::VPN)) != 0);
    service().resetVPNIp(SystemSet::ASIA);
    QCOMPARE(quint32(service().getIp(SystemSet::VPN)), 0U);
    service().enableNIC(SystemSet::VPN, false, true);
    QCOMPARE(service().getVPNServerState(SystemSet::ASIA), 5); // the tunnel's state lags behind its switch
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(service().getVPNServerState(SystemSet::ASIA), 0);
}

void TestSimulatorBehaviour::vpnServerChangeReconnects()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.vpn.settles = {5, 4}; });
    service().enableNIC(SystemSet::VPN, true, true);
    QVERIFY(HmiSimulator::waitIdle());
    service().setVPNServer(SystemSet::EUROPE);
    QCOMPARE(service().getVPNServerState(SystemSet::ASIA), 0);
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(service().getVPNServerState(SystemSet::EUROPE), 4);
    QCOMPARE(quint32(service().getIp(SystemSet::VPN)), 0U);
}

void TestSimulatorBehaviour::clockIsAnOffset()
{
    const std::time_t before = std::time(nullptr);
    QVERIFY(service().setSystemTime(static_cast<long>(before) + 86400));
    QVERIFY(std::abs(HmiSimulator::panel().clockOffset - 86400) <= 2);
    QCOMPARE(HmiSimulator::panel().hardwareClockOffset, 0LL);
    service().syncHwclock();
    QVERIFY(std::abs(HmiSimulator::panel().hardwareClockOffset - 86400) <= 2);
    QVERIFY(std::time(nullptr) - before < 3600); // the machine's own clock is left alone
}

void TestSimulatorBehaviour::clockRefusesImpossibleTimes()
{
    QVERIFY(!service().setSystemTime(-1));
    QVERIFY(service().setSystemTime(0x7FFFFFFF));
    if constexpr (sizeof(long) > 4)
        QVERIFY(!service().setSystemTime(static_cast<long>(0x80000000LL)));
}

void TestSimulatorBehaviour::brightnessSavesOnlyOnDemand()
{
    service().setBright(static_cast<SystemSet::Bright>(7), false);
    QCOMPARE(int(service().bright()), 7);
    QCOMPARE(HmiSimulator::panel().savedBright, 20);
    service().setBright(static_cast<SystemSet::Bright>(9), true);
    QCOMPARE(HmiSimulator::panel().savedBright, 9);
}

void TestSimulatorBehaviour::valuesOutOfRangeChangeNothing()
{
    service().setLanguage(static_cast<SystemSet::Language>(7));
    QCOMPARE(service().getLanguage(), SystemSet::ENGLISH);
    service().setVPNServer(static_cast<SystemSet::VPNServer>(7));
    QCOMPARE(service().getVPNServer(), SystemSet::ASIA);
    service().setDefaultNIC(static_cast<SystemSet::NIC>(5), false);
    QCOMPARE(service().getDefaultNIC(), SystemSet::LAN0);
}

PANEL_TEST_MAIN(TestSimulatorBehaviour)
#include "test_simulator_behaviour.moc"
