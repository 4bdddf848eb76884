#include "panel/panel.h"
#include "simulator/simulator.h"
#include "tests/support/journal.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using QSP::Adapter;
using QSP::Address;
using QSP::NIC;
using QSP::Panel;

namespace {

constexpr NIC lan0 = HMI::SystemSet::LAN0;
constexpr NIC lan1 = HMI::SystemSet::LAN1;

} // namespace

/// The panel as one screen sees it: what is selected, the modem and the tunnel. No window.
class TestPanel : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void switchWithoutAddresses();
    void tunnelGivesItsAddressBackFirst();
    void modemIsAskedAnewForEachSwitch();
    void selectionIsANewMoment();
    void firstIsSelectedWhereNoneIs_data();
    void firstIsSelectedWhereNoneIs();
    void openingIsANewMomentForAll();
    void endOfAnAttemptIsANewMoment_data();
    void endOfAnAttemptIsANewMoment();
    void addressIsAskedAnewWhenTheNameIsKnown();

private:
    std::unique_ptr<Panel> m_panel;
};

void TestPanel::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setManual(true);
    m_panel = std::make_unique<Panel>();
}

void TestPanel::cleanup()
{
    m_panel.reset();
    endWatch();
}

void TestPanel::switchWithoutAddresses()
{
    Adapter &adapter = m_panel->adapter(HMI::SystemSet::MOBILE_4G);
    adapter.begin();
    adapter.setEnabled(false);
    adapter.setEnabled(true);
    adapter.showInForce(Address::Ip);
    QVERIFY(!adapter.shown(Address::Ip) && !adapter.mayEdit());
    QVERIFY(!adapter.findChild<QTimer *>("leaseRequest")->isActive());
    QCOMPARE(Journal::calls(),
             QStringList({"enableNIC(MOBILE_4G, false, persist)", "enableNIC(MOBILE_4G, true, persist)"}));
}

void TestPanel::tunnelGivesItsAddressBackFirst()
{
    Adapter &adapter = m_panel->adapter(HMI::SystemSet::VPN);
    adapter.begin();
    QSignalSpy changed(&m_panel->tunnel(), &QSP::Tunnel::serverChanged);
    m_panel->tunnel().choose(HMI::SystemSet::EUROPE);
    QCOMPARE(changed.count(), 1);
    adapter.setEnabled(true);
    adapter.setEnabled(false);
    QCOMPARE(Journal::calls(),
             QStringList({"setVPNServer(EUROPE)", "resetVPNIp(EUROPE)", "enableNIC(VPN, true, persist)",
                          "resetVPNIp(EUROPE)", "enableNIC(VPN, false, persist)"}));
    QCOMPARE(m_panel->tunnel().server(), HMI::SystemSet::EUROPE);
}

void TestPanel::modemIsAskedAnewForEachSwitch()
{
    HmiSimulator::setMobile(2, 40);
    QCOMPARE(m_panel->modem().signalStrength(), 40);
    HmiSimulator::setMobile(1, 50);
    QCOMPARE(m_panel->modem().signalStrength(), 40);
    QCOMPARE(m_panel->modem().state(), 1);
    QVector<int> seen;
    Adapter &adapter = m_panel->adapter(HMI::SystemSet::MOBILE_4G);
    connect(&adapter, &Adapter::enabling, this, [&] {
        seen << m_panel->modem().signalStrength();
        HmiSimulator::setMobile(1, 60);
    });
    connect(&adapter, &Adapter::enabledChanged, this, [&] { seen << m_panel->modem().signalStrength(); });
    adapter.setEnabled(true);
    QCOMPARE(seen, QVector<int>({50, 60}));
}

void TestPanel::selectionIsANewMoment()
{
    QSignalSpy changed(m_panel.get(), &Panel::selectionChanged);
    QCOMPARE(m_panel->selected(), QSP::g_noAdapter);
    m_panel->select(lan0);
    m_panel->select(lan0);
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_panel->adapter(lan1).isUp());
    HmiSimulator::setNicEnabled(lan1, false);
    QVERIFY(m_panel->adapter(lan1).isUp());
    m_panel->select(lan1);
    QVERIFY(!m_panel->adapter(lan1).isUp());
    QCOMPARE(changed.at(1), QVariantList({QVariant::fromValue(lan1), QVariant::fromValue(lan0)}));
}

void TestPanel::firstIsSelectedWhereNoneIs_data()
{
    QTest::addColumn<int>("present");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("all") << 87 << 0 << 1;
    QTest::newRow("last") << 64 << 0 << 64;
    QTest::newRow("none") << 0 << 0 << 0;
    QTest::newRow("unknown") << 8 << 0 << 0;
    QTest::newRow("selected already") << 87 << 16 << 16;
}

void TestPanel::firstIsSelectedWhereNoneIs()
{
    QFETCH(int, present);
    QFETCH(int, before);
    HmiSimulator::setAdapters(present);
    m_panel->select(static_cast<NIC>(before));
    m_panel->selectFirst();
    QTEST(static_cast<int>(m_panel->selected()), "after");
}

void TestPanel::openingIsANewMomentForAll()
{
    HmiSimulator::joinNetwork("Plant");
    const auto seen = [this] {
        return QVariantList({m_panel->adapters().present(), m_panel->adapter(lan1).isUp(),
                             m_panel->wifi().isConnected(), m_panel->modem().state(),
                             int(m_panel->tunnel().server()), int(m_panel->defaultAdapter().current())});
    };
    HmiSimulator::setMobile(2, 40);
    const QVariantList before = seen();
    HmiSimulator::setAdapters(1);
    HmiSimulator::setNicEnabled(lan1, false);
    HmiSimulator::leaveNetwork();
    HmiSimulator::setMobile(0, 0);
    HmiSimulator::setDefaultNic(lan1);
    QCOMPARE(seen(), before);
    QSignalSpy wasRead(m_panel.get(), &Panel::wasRead);
    m_panel->read();
    QCOMPARE(wasRead.count(), 1);
    QCOMPARE(seen(), QVariantList({1, false, false, 0, int(HMI::SystemSet::ASIA), int(lan1)}));
}

void TestPanel::endOfAnAttemptIsANewMoment_data()
{
    QTest::addColumn<int>("report");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("connecting") << int(QSP::JoinAttempt::Report::Connecting) << false;
    QTest::newRow("connected") << int(QSP::JoinAttempt::Report::Connected) << true;
    QTest::newRow("timed out") << int(QSP::JoinAttempt::Report::TimedOut) << true;
}

void TestPanel::endOfAnAttemptIsANewMoment()
{
    QFETCH(int, report);
    QFETCH(bool, isShown);
    constexpr HMI::IP ip = 0x0B000001;
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, true);
    HmiSimulator::joinNetwork("Plant");
    Adapter &adapter = m_panel->adapter(HMI::SystemSet::WIFI);
    adapter.begin();
    QSP::JoinAttempt &attempt = m_panel->wifi().attempt();
    attempt.begin({'P', 'l', 'a', 'n', 't'}, QString());
    HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, ip, 0xFF000000, ip);
    // As the tile does at the end of an attempt.
    connect(&attempt, &QSP::JoinAttempt::underWayChanged, &adapter,
            [&adapter] { adapter.showInForce(Address::Ip); });
    attempt.take(static_cast<QSP::JoinAttempt::Report>(report));
    QCOMPARE(adapter.shown(Address::Ip) == ip, isShown);
}

// The service may know the name long after it has joined, and the address by then.
void TestPanel::addressIsAskedAnewWhenTheNameIsKnown()
{
    HmiSimulator::leaveNetwork();
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, false);
    QSP::WifiLink &link = m_panel->wifi();
    QSP::JoinAttempt &attempt = link.attempt();
    attempt.setNearby([](const HMI::SSID &) { return true; });
    Adapter &adapter = m_panel->adapter(HMI::SystemSet::WIFI);
    adapter.begin();
    attempt.begin({'P', 'l', 'a', 'n', 't'}, QString());
    attempt.take(QSP::JoinAttempt::Report::Connected);
    QCOMPARE(attempt.state(), QSP::JoinAttempt::State::AwaitingName);
    // Somebody looks before the name is there.
    adapter.showInForce(Address::Ip);
    HmiSimulator::joinNetwork("Plant");
    HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, HMI::IP(0x0A000002), HMI::IP(0xFFFFFF00),
                                 HMI::IP(0x0A000001));
    HmiSimulator::clearJournal();
    link.read();
    QCOMPARE(attempt.state(), QSP::JoinAttempt::State::Joined);
    QCOMPARE(Journal::calls(), QStringList());
    QCOMPARE(adapter.shown(Address::Ip), std::optional<HMI::IP>(0x0A000002));
}

PANEL_TEST_MAIN(TestPanel)

#include "test_panel.moc"
