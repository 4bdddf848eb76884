#include "tests/linux/fakemodemmanager.h"
#include "tests/linux/networkscene.h"
#include "tests/linux/text.h"

#include "linux/modemnames.h"

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

constexpr std::size_t g_place = 3;

QString port()
{
    return text("ttyUSB0");
}

} // namespace

/// Switching the data connection of the modem.
class TestLinuxModemConnection : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void modemWithoutAProfileIsOff();
    void switchedOnItHasAProfileAndAnAddress();
    void accessPointOfTheConfiguration();
    void switchedOffItStaysOff();
    void profileOfSomebodyElseIsShown();
    void becomesTheDefaultAdapter();
    void connectionFails();
    void modemPulledAndPutBack();
    void modemsDaemonGoesAndComes();
    void radioIsSwitchedOnWithIt();
    void radioThatMayNotBeSwitchedOn();
    void radioThatSomebodySwitchesOffIsTold();
    void radioOfWhatIsOffIsLeftAlone();

private:
    void start(const QByteArray &more = {});
    AdapterState modem() const { return m_scene->service->snapshot()->adapters.at(g_place); }
    int link() const
    {
        const std::shared_ptr<const Snapshot> now = m_scene->service->snapshot();
        return linkState(now->modem, now->adapters.at(g_place).deviceState, now->values(g_place).enabled);
    }
    bool waitForWishes() const
    {
        return QTest::qWaitFor([this] { return !m_scene->hasWish(g_place); }, NetworkScene::Patience);
    }
    bool switchOn()
    {
        m_scene->enable(true, g_place);
        return m_scene->values(g_place).enabled && waitForWishes();
    }
    void setRadio(bool on)
    {
        m_scene->daemon.set(Nm::path(), Nm::service(), {{text("WwanEnabled"), on}});
        m_scene->daemon.setState(port(), on ? Nm::Disconnected : Nm::Unavailable);
    }
    bool isRadioOn() const
    {
        return m_scene->daemon.get(Nm::path(), Nm::service(), text("WwanEnabled")).toBool();
    }
    QVariantMap section(const char *name) const
    {
        return m_scene->daemon.profile(modem().profile).value(text(name));
    }

    std::unique_ptr<NetworkScene> m_scene;
    std::unique_ptr<FakeModemManager> m_modems;
};

void TestLinuxModemConnection::init()
{
    beginWatch();
    m_scene = std::make_unique<NetworkScene>();
    QVERIFY(m_scene->isUp);
    m_scene->daemon.addPort(port(), {});
    m_modems = std::make_unique<FakeModemManager>();
    m_modems->addModem();
    m_modems->setState(Mm::Registered);
    m_modems->setSignal(71);
    QVERIFY(m_modems->publish(m_scene->bus.address()));
}

void TestLinuxModemConnection::cleanup()
{
    m_scene.reset();
    m_modems.reset();
    endWatch();
}

void TestLinuxModemConnection::start(const QByteArray &more)
{
    m_scene->panel.put(text("/etc/panelsettings/linux.conf"),
                       "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = none\nMOBILE_4G = wwan0\n" + more);
    m_scene->startService();
    QTRY_VERIFY(modem().known);
}

void TestLinuxModemConnection::modemWithoutAProfileIsOff()
{
    start();
    QCOMPARE(m_scene->service->adapters(), SystemSet::LAN0 | SystemSet::LAN1 | SystemSet::MOBILE_4G);
    QVERIFY(!m_scene->values(g_place).enabled);
    QCOMPARE(link(), 0);
    QTRY_COMPARE(m_scene->service->snapshot()->modem.signal, 71);
    QVERIFY(m_scene->daemon.calls().isEmpty());
}

void TestLinuxModemConnection::switchedOnItHasAProfileAndAnAddress()
{
    start();
    m_scene->daemon.set(FakeNetworkManager::devicePath(port()), Nm::device(),
                        {{text("IpInterface"), text("wwan0")}});
    QVERIFY(switchOn());
    QTRY_COMPARE(dotted(modem().live.ip), text("192.168.50.109"));
    QCOMPARE(modem().interface, text("wwan0"));
    m_modems->setState(Mm::Connected);
    QTRY_COMPARE(link(), 2);
    QCOMPARE(section("connection").value(text("type")), QVariant(text("gsm")));
    QVERIFY(!section("connection").contains(text("interface-name")));
    QCOMPARE(section("gsm").value(text("auto-config")), QVariant(true));
    QCOMPARE(m_scene->daemon.profiles().size(), 1);
}

void TestLinuxModemConnection::accessPointOfTheConfiguration()
{
    start("[mobile]\napn = internet.plant\n");
    QVERIFY(switchOn());
    QCOMPARE(section("gsm"), (QVariantMap{{text("apn"), text("internet.plant")}}));
}

void TestLinuxModemConnection::switchedOffItStaysOff()
{
    start();
    QVERIFY(switchOn());
    QTRY_VERIFY(modem().live.ip != 0);
    m_scene->enable(false, g_place);
    QVERIFY(!m_scene->values(g_place).enabled);
    QTRY_VERIFY(modem().live == Addresses());
    QVERIFY(waitForWishes());
    QVERIFY(!m_scene->values(g_place).enabled);
    QCOMPARE(section("connection").value(text("autoconnect")), QVariant(false));
    m_modems->setState(Mm::Searching);
    QTRY_COMPARE(m_scene->service->snapshot()->modem.state, int(Mm::Searching));
    QCOMPARE(link(), 0);
    QVERIFY(switchOn());
    QTRY_VERIFY(modem().live.ip != 0);
    QCOMPARE(m_scene->daemon.profiles().size(), 1);
}

void TestLinuxModemConnection::profileOfSomebodyElseIsShown()
{
    Sections settings =
        FakeNetworkManager::wiredProfile(text("somebody's"), {{text("method"), text("auto")}});
    settings[text("connection")].insert(text("type"), text("gsm"));
    m_scene->daemon.activate(m_scene->daemon.addProfile(settings), port());
    m_modems->setState(Mm::Connected);
    start();
    QVERIFY(m_scene->values(g_place).enabled);
    QVERIFY(m_scene->values(g_place).dhcp);
    QCOMPARE(dotted(modem().live.ip), text("192.168.50.109"));
    QTRY_COMPARE(link(), 2);
    QVERIFY(m_scene->daemon.calls().isEmpty());
}

void TestLinuxModemConnection::becomesTheDefaultAdapter()
{
    start();
    QVERIFY(switchOn());
    QTRY_VERIFY(modem().live.ip != 0);
    m_scene->gather(g_place, [](Wish &wish) { wish.isDefault = true; });
    QVERIFY(waitForWishes());
    QVERIFY(m_scene->service->snapshot()->defaultPlace() == g_place);
    QCOMPARE(section("ipv4").value(text("route-metric")), QVariant(qlonglong(50)));
    QTRY_VERIFY(m_scene->daemon.calls().contains(text("Reapply")));
}

void TestLinuxModemConnection::connectionFails()
{
    start();
    m_scene->daemon.setSteps({{Nm::Preparing, 0}, {Nm::Failed, 29}, {Nm::Disconnected, 0}});
    QVERIFY(switchOn());
    QTRY_COMPARE(modem().deviceState, uint(Nm::Disconnected));
    QVERIFY(m_scene->values(g_place).enabled); // it is on, and has no connection
    QCOMPARE(link(), 0);
}

void TestLinuxModemConnection::modemPulledAndPutBack()
{
    start();
    QVERIFY(switchOn());
    m_scene->daemon.remove(FakeNetworkManager::devicePath(port()));
    m_modems->remove(FakeModemManager::modemPath());
    QTRY_VERIFY(!modem().known);
    QTRY_COMPARE(m_scene->service->snapshot()->modem.signal, 0);
    QCOMPARE(link(), 0);
    QVERIFY(m_scene->values(g_place).enabled); // as the panel's profile says
    m_scene->daemon.addPort(port(), {});
    m_modems->addModem();
    QTRY_VERIFY(modem().known);
}

void TestLinuxModemConnection::modemsDaemonGoesAndComes()
{
    start();
    QTRY_COMPARE(m_scene->service->snapshot()->modem.signal, 71);
    m_modems->vanish();
    QTRY_COMPARE(m_scene->service->snapshot()->modem.signal, 0);
    QVERIFY(m_scene->lan0().known); // the other daemon's adapters are as they were
    QVERIFY(m_modems->publish(m_scene->bus.address()));
    QTRY_COMPARE(m_scene->service->snapshot()->modem.signal, 71);
    QVERIFY(modem().known);
}

void TestLinuxModemConnection::radioIsSwitchedOnWithIt()
{
    setRadio(false);
    start();
    QVERIFY(switchOn());
    QTRY_VERIFY(isRadioOn());
    QCOMPARE(section("connection").value(text("autoconnect"), true),
             QVariant(true)); // so that it goes on by itself
}

void TestLinuxModemConnection::radioThatMayNotBeSwitchedOn()
{
    setRadio(false);
    start();
    m_scene->daemon.refuseProperties(true);
    expectMessage(text("4G does not work: mobile networks are switched off, and stay so: refused"));
    QVERIFY(switchOn());
    QTRY_VERIFY(haveMessagesCome());
    QVERIFY(!isRadioOn());
}

void TestLinuxModemConnection::radioThatSomebodySwitchesOffIsTold()
{
    setRadio(true);
    start();
    QVERIFY(switchOn());
    for (int times = 0; times < 2; ++times) {
        expectMessage(text("4G does not work: mobile networks are switched off"));
        setRadio(false);
        QTRY_VERIFY(haveMessagesCome());
        QVERIFY(m_scene->values(g_place).enabled);
        m_scene->enable(false, g_place);
        QVERIFY(waitForWishes());
        QVERIFY(!isRadioOn()); // nobody asked for more than 4G to be off
        QVERIFY(switchOn());
        QTRY_VERIFY(isRadioOn());
    }
    expectMessage(text("4G does not work: the device's own switch for mobile networks is off"));
    m_scene->daemon.set(Nm::path(), Nm::service(), {{text("WwanHardwareEnabled"), false}});
    QTRY_VERIFY(haveMessagesCome());
}

void TestLinuxModemConnection::radioOfWhatIsOffIsLeftAlone()
{
    setRadio(false);
    start();
    m_scene->gather(g_place, [](Wish &wish) { wish.isDefault = true; });
    QVERIFY(waitForWishes());
    QVERIFY(!isRadioOn());
    QVERIFY(!m_scene->daemon.calls().contains(text("Set")));
}

PANEL_TEST_MAIN(TestLinuxModemConnection)
#include "test_linux_modem_connection.moc"
