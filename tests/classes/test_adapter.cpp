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

constexpr NIC lan0 = HMI::SystemSet::LAN0; // static in the simulated panel
constexpr NIC lan1 = HMI::SystemSet::LAN1; // on DHCP
constexpr NIC wifi = HMI::SystemSet::WIFI;

constexpr HMI::IP stored = 0x0A000001;
constexpr HMI::IP live = 0x0B000001;
constexpr HMI::IP mask = 0xFF000000;

/// What the service says and the operator chose, and what is shown for it.
struct Situation {
    const char *name;
    bool isEnabled; ///< the operator's choice
    bool isUp;      ///< the service's
    bool isDhcpOn;
    bool isJoined;
    bool hasAddress; ///< in force
    HMI::IP again;   ///< shown when the adapter is seen again
    HMI::IP inForce; ///< shown when what is in force may have changed; before, what was stored is shown
};

constexpr Situation g_wired[] = {
    {"static", true, true, false, false, true, stored, live},
    {"static without a cable", true, true, false, false, false, stored, stored},
    {"lease", true, true, true, false, true, live, live},
    {"no lease", true, true, true, false, false, 0, 0},
    {"off", false, false, false, false, true, stored, stored},
    {"off on DHCP", false, false, true, false, true, stored, stored},
    {"off for the operator alone", false, true, true, false, true, stored, stored},
    {"off for the service alone", true, false, true, false, true, stored, stored},
};

constexpr Situation g_wifi[] = {
    {"static", true, true, false, true, true, stored, live},
    {"static without a network", true, true, false, false, true, stored, live},
    {"lease", true, true, true, true, true, live, live},
    {"lease without a network", true, true, true, false, true, stored, live},
    {"off", false, false, true, true, true, stored, stored},
};

void addSituations()
{
    QTest::addColumn<const Situation *>("situation");
    QTest::addColumn<NIC>("nic");
    for (const Situation &situation : g_wired)
        QTest::addRow("LAN0 %s", situation.name) << &situation << lan0;
    for (const Situation &situation : g_wifi)
        QTest::addRow("Wi-Fi %s", situation.name) << &situation << wifi;
}

HMI::IP shownIp(const Adapter &adapter)
{
    return adapter.shown(Address::Ip).value_or(1);
}

} // namespace

Q_DECLARE_METATYPE(const Situation *)

/// An adapter by itself: what is shown, what is written and when the service is asked. No window.
class TestAdapter : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingIsAskedBeforeItIsNeeded();
    void shownAgain_data() { addSituations(); }
    void shownAgain();
    void shownInForce_data() { addSituations(); }
    void shownInForce();
    void beginTakesOverAndAsksForALease();
    void eachValueIsAskedOnce();
    void choicesRunAhead();
    void enablingAsksForALeaseLater();
    void laterChoiceForgetsTheLeaseRequest();
    void choiceThatTheServiceDoesNotShare();
    void resetEmptiesAndGoesBackToDhcp();
    void joiningShowsTheLease();
    void reportForAWifiThatIsNotJoined();
    void reportsOfALostAdapterAreDropped();
    void editsAreWrittenAndKept();
    void staticOffersWhatIsStored();
    void leaseIsDroppedOnce();

private:
    /// Puts the panel and the operator into that situation; what was stored is shown.
    void arrange(const Situation &situation, NIC nic);

    std::unique_ptr<Panel> m_panel;
};

void TestAdapter::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setManual(true);
    m_panel = std::make_unique<Panel>();
    HmiSimulator::clearJournal();
}

void TestAdapter::cleanup()
{
    m_panel.reset();
    HmiSimulator::setGettersRecorded(false);
    endWatch();
}

void TestAdapter::arrange(const Situation &situation, NIC nic)
{
    HmiSimulator::setNicEnabled(nic, situation.isEnabled);
    HmiSimulator::leaveNetwork();
    HmiSimulator::setDhcpOn(nic, false);
    HmiSimulator::setStoredAddress(nic, stored, mask, stored);
    m_panel->adapter(nic).begin();
    HmiSimulator::setNicEnabled(nic, situation.isUp);
    HmiSimulator::setDhcpOn(nic, situation.isDhcpOn);
    if (situation.isJoined)
        HmiSimulator::joinNetwork("Plant");
    HmiSimulator::setStoredAddress(nic, stored, mask, stored);
    if (situation.hasAddress)
        HmiSimulator::setLiveAddress(nic, live, mask, live);
    else
        HmiSimulator::change([nic](HmiSimulator::Panel &panel) {
            panel.adapters[nic].link = false;
            panel.adapters[nic].live = {};
        });
    m_panel->adapter(nic).forget();
    m_panel->wifi().forget();
}

void TestAdapter::nothingIsAskedBeforeItIsNeeded()
{
    HmiSimulator::setGettersRecorded(true);
    Adapter &adapter = m_panel->adapter(lan0);
    m_panel->read();
    m_panel->select(lan0);
    adapter.showAgain();
    adapter.showInForce();
    adapter.dropLease();
    adapter.reset();
    QCOMPARE(Journal::calls(), QStringList());
    QVERIFY(!adapter.isEnabled() && !adapter.isStatic() && !adapter.mayEdit());
    QVERIFY(!adapter.shown(Address::Ip));
}

void TestAdapter::shownAgain()
{
    QFETCH(const Situation *, situation);
    QFETCH(NIC, nic);
    arrange(*situation, nic);
    m_panel->adapter(nic).showAgain();
    QCOMPARE(shownIp(m_panel->adapter(nic)), situation->again);
}

void TestAdapter::shownInForce()
{
    QFETCH(const Situation *, situation);
    QFETCH(NIC, nic);
    arrange(*situation, nic);
    QSignalSpy dns(&m_panel->adapter(nic), &Adapter::dnsDue);
    m_panel->adapter(nic).showInForce();
    QCOMPARE(shownIp(m_panel->adapter(nic)), situation->inForce);
    QCOMPARE(dns.count(), situation->isUp ? 1 : 0);
}

void TestAdapter::beginTakesOverAndAsksForALease()
{
    m_panel->adapter(lan0).begin();
    QVERIFY(m_panel->adapter(lan0).mayEdit());
    QCOMPARE(Journal::calls(), QStringList());
    m_panel->adapter(lan1).begin();
    m_panel->adapter(lan1).begin();
    QVERIFY(m_panel->adapter(lan1).isEnabled() && !m_panel->adapter(lan1).isStatic());
    QCOMPARE(Journal::calls(), QStringList("setDHCP(LAN1, true, persist)"));
}

void TestAdapter::eachValueIsAskedOnce()
{
    HmiSimulator::setGettersRecorded(true);
    Adapter &adapter = m_panel->adapter(lan1);
    const auto useAll = [&adapter] {
        HmiSimulator::clearJournal();
        for (int i = 0; i < 3; ++i) {
            adapter.showAgain();
            adapter.showInForce();
            adapter.isUp();
            adapter.dns();
            adapter.mac();
        }
        return Journal::calls().size();
    };
    adapter.begin();
    useAll();
    QCOMPARE(useAll(), 0);
    adapter.forget();
    // Two flags, three addresses, servers and MAC.
    QCOMPARE(useAll(), 7);
}

void TestAdapter::choicesRunAhead()
{
    Adapter &adapter = m_panel->adapter(lan0);
    adapter.begin();
    QStringList seen;
    const auto note = [&seen, &adapter](const char *what) {
        seen << QStringLiteral("%1 %2 after %3")
                    .arg(QLatin1String(what))
                    .arg(adapter.mayEdit())
                    .arg(Journal::calls().size());
    };
    connect(&adapter, &Adapter::enabling, this, [note] { note("enabling"); });
    connect(&adapter, &Adapter::enabledChanged, this, [note] { note("enabled"); });
    connect(&adapter, &Adapter::staticChanged, this, [note] { note("static"); });
    adapter.setEnabled(false);
    adapter.setEnabled(true);
    adapter.setStatic(false);
    QCOMPARE(seen, QStringList({"enabling 0 after 0", "enabled 0 after 1", "enabling 1 after 1",
                                "enabled 1 after 2", "static 0 after 3"}));
    QCOMPARE(Journal::calls(),
             QStringList({"enableNIC(LAN0, false, persist)", "enableNIC(LAN0, true, persist)",
                          "setDHCP(LAN0, true, persist)"}));
}

void TestAdapter::enablingAsksForALeaseLater()
{
    HmiSimulator::setNicEnabled(lan1, false);
    Adapter &adapter = m_panel->adapter(lan1);
    adapter.begin();
    HmiSimulator::clearJournal();
    auto *timer = adapter.findChild<QTimer *>("leaseRequest");
    QCOMPARE(timer->interval(), 1000);
    adapter.setEnabled(true);
    QVERIFY(timer->isActive());
    timer->start(0);
    QTRY_COMPARE(Journal::calls(),
                 QStringList({"enableNIC(LAN1, true, persist)", "setDHCP(LAN1, true, persist)"}));
    QVERIFY(!timer->isActive());
}

void TestAdapter::laterChoiceForgetsTheLeaseRequest()
{
    Adapter &adapter = m_panel->adapter(lan1);
    adapter.begin();
    const auto *timer = adapter.findChild<QTimer *>("leaseRequest");
    adapter.setEnabled(true);
    adapter.setStatic(true);
    QVERIFY(!timer->isActive());
    // Nor is one asked for that lives without.
    adapter.setEnabled(true);
    QVERIFY(!timer->isActive());
    adapter.setStatic(false);
    adapter.setEnabled(true);
    QVERIFY(timer->isActive());
    adapter.setEnabled(false);
    QVERIFY(!timer->isActive());
}

void TestAdapter::choiceThatTheServiceDoesNotShare()
{
    Adapter &adapter = m_panel->adapter(lan0);
    adapter.begin();
    m_panel->read();
    QCOMPARE(Journal::calls(), QStringList());
    HmiSimulator::setNicEnabled(lan0, false);
    HmiSimulator::setDhcpOn(lan0, true);
    m_panel->read();
    QVERIFY(!adapter.isEnabled() && !adapter.isStatic());
    // Made once more with the service's value; then the lease is asked for, as on every opening.
    QCOMPARE(Journal::calls(), QStringList({"enableNIC(LAN0, false, persist)", "setDHCP(LAN0, true, persist)",
                                            "setDHCP(LAN0, true, persist)"}));
}

void TestAdapter::resetEmptiesAndGoesBackToDhcp()
{
    HmiSimulator::setDhcpOn(wifi, false);
    HmiSimulator::leaveNetwork();
    Adapter &adapter = m_panel->adapter(wifi);
    adapter.begin();
    QVERIFY(adapter.isStatic());
    QSignalSpy shown(&adapter, &Adapter::shownChanged);
    m_panel->wifi().reset();
    QCOMPARE(shown.size(), 3);
    QVERIFY(!adapter.isStatic());
    for (const Address address : QSP::g_addresses)
        QVERIFY(!adapter.shown(address));
    QCOMPARE(Journal::calls(), QStringList("setDHCP(WIFI, true, persist)"));
    m_panel->wifi().reset();
    QCOMPARE(shown.size(), 3);
    QCOMPARE(Journal::calls().size(), 1);
    // Whatever comes without a lease, there is nothing to show.
    m_panel->read();
    adapter.dropLease();
    QVERIFY(!adapter.shown(Address::Ip));
    adapter.setStatic(true);
    QVERIFY(adapter.shown(Address::Ip));
}

void TestAdapter::joiningShowsTheLease()
{
    HmiSimulator::setDhcpOn(wifi, false);
    HmiSimulator::joinNetwork("Plant");
    Adapter &adapter = m_panel->adapter(wifi);
    adapter.begin();
    HmiSimulator::setDhcpOn(wifi, true);
    HmiSimulator::setLiveAddress(wifi, live, mask, live);
    m_panel->wifi().forget();
    emit m_panel->wifi().attempt().joined(true);
    QVERIFY(!adapter.isStatic());
    QCOMPARE(shownIp(adapter), live);
}

void TestAdapter::reportForAWifiThatIsNotJoined()
{
    HmiSimulator::setDhcpOn(wifi, true);
    HmiSimulator::leaveNetwork();
    HmiSimulator::setStoredAddress(wifi, stored, mask, stored);
    Adapter &adapter = m_panel->adapter(wifi);
    adapter.begin();
    HmiSimulator::setLiveAddress(wifi, live, mask, live);
    adapter.onDhcp(HMI::SystemSet::DHCP_OK);
    QCOMPARE(shownIp(adapter), stored);
    HmiSimulator::joinNetwork("Plant");
    HmiSimulator::setLiveAddress(wifi, live, mask, live);
    adapter.onDhcp(HMI::SystemSet::DHCP_OK);
    QCOMPARE(shownIp(adapter), live);
}

void TestAdapter::reportsOfALostAdapterAreDropped()
{
    m_panel->adapter(lan1).begin();
    m_panel.reset();
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    QVERIFY(HmiSimulator::fireAll() > 0);
    QCoreApplication::processEvents();
    QCOMPARE(Journal::calls(), QStringList());
}

void TestAdapter::editsAreWrittenAndKept()
{
    Adapter &adapter = m_panel->adapter(lan0);
    adapter.begin();
    QSignalSpy shown(&adapter, &Adapter::shownChanged);
    adapter.setAddress(Address::Ip, 0x0C000001);
    adapter.setAddress(Address::SubnetMask, mask);
    adapter.setAddress(Address::Gateway, 0x0C000002);
    adapter.setDns({0x01010101, 0});
    QCOMPARE(Journal::calls(),
             QStringList({"setIp(LAN0, 12.0.0.1, persist)", "setSubnetMask(LAN0, 255.0.0.0, persist)",
                          "setGateway(LAN0, 12.0.0.2, persist)", "setDns(LAN0, 1.1.1.1, 0.0.0.0)"}));
    // Nothing is told: it stands where it was typed.
    QCOMPARE(shown.count(), 0);
    QCOMPARE(shownIp(adapter), HMI::IP(0x0C000001));
    QCOMPARE(adapter.dns().first, HMI::IP(0x01010101));
    adapter.showAgain();
    QCOMPARE(shownIp(adapter), HMI::IP(0x0C000001));
}

void TestAdapter::staticOffersWhatIsStored()
{
    arrange({"", true, true, true, false, false, 0, 0}, lan0);
    Adapter &adapter = m_panel->adapter(lan0);
    adapter.showAgain();
    QCOMPARE(shownIp(adapter), HMI::IP(0));
    adapter.setStatic(true);
    QCOMPARE(shownIp(adapter), stored);
}

void TestAdapter::leaseIsDroppedOnce()
{
    arrange({"", true, true, true, true, true, 0, 0}, wifi);
    Adapter &adapter = m_panel->adapter(wifi);
    adapter.showAgain();
    QCOMPARE(shownIp(adapter), live);
    HmiSimulator::leaveNetwork();
    m_panel->wifi().forget();
    QSignalSpy shown(&adapter, &Adapter::shownChanged);
    adapter.dropLease();
    QCOMPARE(shownIp(adapter), stored);
    QCOMPARE(shown.count(), 3);
    adapter.dropLease();
    QCOMPARE(shown.count(), 3);
}

PANEL_TEST_MAIN(TestAdapter)

#include "test_adapter.moc"
