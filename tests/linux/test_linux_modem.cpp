#include "tests/linux/fakemodemmanager.h"
#include "tests/linux/privatebus.h"
#include "tests/linux/text.h"
#include "tests/support/paneltest.h"

#include "linux/bus.h"
#include "linux/modem.h"
#include "linux/modemnames.h"
#include "linux/nmnames.h"

using namespace HmiLinux;

/// What is read of the modem, and what becomes of it when its daemon or the modem goes.
class TestLinuxModem : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void modemIsFoundByEachOfItsPorts();
    void modemOfAnotherInterfaceIsNotOurs();
    void signalIsThatOfAModemThatIsOn();
    void stateFollowsTheModem_data();
    void stateFollowsTheModem();
    void cardThatCannotBeUsedIsTold();
    void modemGoesAndComes();
    void daemonGoesAndComes();
    void daemonThatComesLater();

private:
    void start(const QString &interface = text("wwan0"));
    bool publish() { return m_daemon->publish(m_bus->address()); }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<FakeModemManager> m_daemon;
    std::unique_ptr<Bus> m_connection;
    std::unique_ptr<Modem> m_modem;
};

void TestLinuxModem::init()
{
    beginWatch();
    m_bus = std::make_unique<PrivateBus>();
    QVERIFY(m_bus->start());
    m_daemon = std::make_unique<FakeModemManager>();
    m_daemon->addModem();
    m_connection = std::make_unique<Bus>(m_bus->address());
    m_connection->open();
    QVERIFY(m_connection->isOpen());
}

void TestLinuxModem::cleanup()
{
    m_modem.reset();
    m_connection.reset();
    m_daemon.reset();
    m_bus.reset();
    endWatch();
}

void TestLinuxModem::start(const QString &interface)
{
    m_modem = std::make_unique<Modem>(interface);
    m_modem->attach(m_connection->connection());
}

void TestLinuxModem::modemIsFoundByEachOfItsPorts()
{
    QVERIFY(publish());
    for (const QString &interface : {text("wwan0"), text("ttyUSB0")}) {
        start(interface);
        QCOMPARE(m_modem->port(), QString()); // before it has answered
        QTRY_COMPARE(m_modem->port(), text("ttyUSB0"));
        QCOMPARE(m_modem->state().state, int(Mm::Disabled));
    }
}

void TestLinuxModem::modemOfAnotherInterfaceIsNotOurs()
{
    QVERIFY(publish());
    m_daemon->addModem(text("wwan7"), 1);
    start(text("wwan7"));
    QTRY_COMPARE(m_modem->port(), text("ttyUSB1"));
    m_daemon->setState(Mm::Registered);
    m_daemon->setSignal(80);
    m_daemon->remove(FakeModemManager::modemPath(1));
    QTRY_COMPARE(m_modem->port(), QString());
    QCOMPARE(m_modem->state().state, 0);
    QCOMPARE(m_modem->state().signal, 0);
}

void TestLinuxModem::signalIsThatOfAModemThatIsOn()
{
    QVERIFY(publish());
    start();
    m_daemon->setState(Mm::Registered);
    for (const uint percent : {62U, 100U, 1U, 0U}) {
        m_daemon->setSignal(percent);
        QTRY_COMPARE(m_modem->state().signal, int(percent));
    }
    m_daemon->setSignal(250); // of a driver that is wrong
    QTRY_COMPARE(m_modem->state().signal, 100);
    m_daemon->setState(Mm::Disabled);
    QTRY_COMPARE(m_modem->state().signal, 0);
}

void TestLinuxModem::stateFollowsTheModem_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<uint>("device");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<int>("link");
    const auto row = [](const char *name, int state, uint device, bool isOn, int link) {
        QTest::newRow(name) << state << device << isOn << link;
    };
    row("no modem", 0, 0, true, 0);
    row("no card", Mm::Failed, Nm::Unavailable, true, 0);
    row("locked card", Mm::Locked, Nm::Unavailable, true, 0);
    row("off", Mm::Disabled, Nm::Disconnected, false, 0);
    row("switching on", Mm::Enabling, Nm::Preparing, true, 1);
    row("no network yet", Mm::Searching, Nm::Disconnected, true, 1);
    row("no network, and nobody wants one", Mm::Searching, Nm::Disconnected, false, 0);
    row("network without a connection", Mm::Registered, Nm::Disconnected, true, 0);
    row("about to connect", Mm::Registered, Nm::Preparing, true, 1);
    row("connecting", Mm::Connecting, Nm::Preparing, true, 1);
    row("without an address yet", Mm::Connected, 70, true, 1);
    row("connected", Mm::Connected, Nm::Activated, true, 2);
    row("connected by somebody else", Mm::Connected, 0, false, 2);
    row("failed", Mm::Registered, Nm::Failed, true, 0);
}

void TestLinuxModem::stateFollowsTheModem()
{
    QFETCH(const int, state);
    QFETCH(const uint, device);
    QFETCH(const bool, isOn);
    QFETCH(const int, link);
    QCOMPARE(linkState({state, 0}, device, isOn), link);
}

void TestLinuxModem::cardThatCannotBeUsedIsTold()
{
    QVERIFY(publish());
    start();
    QTRY_COMPARE(m_modem->state().state, int(Mm::Disabled));
    expectMessage(text("4G does not work: there is no SIM card"));
    m_daemon->setState(Mm::Failed, Mm::CardMissing);
    QTRY_COMPARE(m_modem->state().state, int(Mm::Failed));
    m_daemon->setSignal(10); // a change, and no further message
    expectMessage(text("4G does not work: the SIM card wants a code"));
    m_daemon->setState(Mm::Locked);
    QTRY_COMPARE(m_modem->state().state, int(Mm::Locked));
    QCOMPARE(m_modem->state().signal, 0);
    m_daemon->setState(Mm::Registered);
    QTRY_COMPARE(m_modem->state().state, int(Mm::Registered));
}

void TestLinuxModem::modemGoesAndComes()
{
    QVERIFY(publish());
    start();
    QTRY_COMPARE(m_modem->port(), text("ttyUSB0"));
    for (int i = 0; i < 3; ++i) {
        m_daemon->remove(FakeModemManager::modemPath());
        QTRY_COMPARE(m_modem->port(), QString());
        m_daemon->addModem();
        QTRY_COMPARE(m_modem->port(), text("ttyUSB0"));
    }
}

void TestLinuxModem::daemonGoesAndComes()
{
    QVERIFY(publish());
    start();
    m_daemon->setState(Mm::Registered);
    m_daemon->setSignal(40);
    QTRY_COMPARE(m_modem->state().signal, 40);
    m_daemon->vanish();
    QTRY_COMPARE(m_modem->state().state, 0);
    QCOMPARE(m_modem->state().signal, 0);
    QCOMPARE(m_modem->port(), QString());
    QVERIFY(publish());
    QTRY_COMPARE(m_modem->state().signal, 40);
}

void TestLinuxModem::daemonThatComesLater()
{
    expectMessage(text("org.freedesktop.ModemManager1 does not answer"));
    start();
    QSignalSpy changes(m_modem.get(), &Modem::changed);
    QTRY_VERIFY(!changes.isEmpty());
    QCOMPARE(m_modem->port(), QString());
    QVERIFY(publish());
    QTRY_COMPARE(m_modem->port(), text("ttyUSB0"));
}

PANEL_TEST_MAIN(TestLinuxModem)
#include "test_linux_modem.moc"
