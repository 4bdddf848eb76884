#include "tests/screen/networkpage.h"

/// What the address fields show after the panel changed behind the operator's back.
class TestNetworkAddresses : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void refusedAddressIsTakenBack_data();
    void refusedAddressIsTakenBack();
    void changeFromElsewhereIsSeen_data();
    void changeFromElsewhereIsSeen();
    void openingLeavesAnEditAlone();
    void noLeaseWithoutACable();
    void noLeaseOfADisabledAdapter();
    void noLeaseOfADisabledAdapterOnOpening();
    void noLeaseOfALostWifi();
    void emptiedFieldsStayEmpty();
    void editOfAnOfflineAdapterStartsFromWhatIsStored();
    void switchingToStaticWithoutALinkOffersWhatIsStored();
};

namespace {

constexpr auto lan0 = HMI::SystemSet::LAN0;
constexpr auto lan1 = HMI::SystemSet::LAN1;
constexpr int statusInterval = 2000;

QStringList fields()
{
    return {"IP Address", "Subnet Mask", "Default Gateway"};
}

QStringList addresses(const NetworkPage &page)
{
    QStringList shown;
    const QStringList labels = fields();
    for (const QString &field : labels)
        shown << page.address(field);
    return shown;
}

void comeBack(NetworkPage &page, const QString &way)
{
    if (way == "opened") {
        page.screen().close();
        page.screen().open();
        page.screen().tapMenu("Network");
    } else {
        page.select("LAN1");
        page.select("LAN0");
    }
}

void addWays()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("opened") << "opened";
    QTest::newRow("selected again") << "selected";
}

} // namespace

void TestNetworkAddresses::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestNetworkAddresses::refusedAddressIsTakenBack_data()
{
    addWays();
}

void TestNetworkAddresses::refusedAddressIsTakenBack()
{
    QFETCH(QString, way);
    const HmiSimulator::Panel before = HmiSimulator::panel();
    NetworkPage page;
    const QStringList shown = addresses(page);
    const QStringList labels = fields();
    for (const QString &field : labels) {
        page.edit(page.addressOf(field), 3, "77");
        Operator::key(page.window(), Qt::Key_Return);
        QVERIFY(page.address(field).endsWith(".77"));
    }
    // A service that cannot comply leaves the panel as it was.
    HmiSimulator::change(
        [&before](HmiSimulator::Panel &panel) { panel.adapters[lan0] = before.adapters.at(lan0); });
    HmiSimulator::clearJournal();
    comeBack(page, way);
    QCOMPARE(addresses(page), shown);
    QCOMPARE(Journal::calls("setIp"), QStringList());
}

void TestNetworkAddresses::changeFromElsewhereIsSeen_data()
{
    addWays();
}

void TestNetworkAddresses::changeFromElsewhereIsSeen()
{
    QFETCH(QString, way);
    NetworkPage page;
    HmiSimulator::setStoredAddress(lan0, 0x0A010203, 0xFF000000, 0x0A010001);
    comeBack(page, way);
    QCOMPARE(addresses(page), QStringList({"10.1.2.3", "255.0.0.0", "10.1.0.1"}));
    // Also of one that is switched off: it will come up with them.
    HmiSimulator::setNicEnabled(lan0, false);
    HmiSimulator::setStoredAddress(lan0, 0x0A010204, 0xFF000000, 0x0A010001);
    comeBack(page, way);
    QCOMPARE(page.address("IP Address"), QString("10.1.2.4"));
}

void TestNetworkAddresses::openingLeavesAnEditAlone()
{
    NetworkPage page;
    page.edit(page.addressOf("IP Address"), 3, "77");
    HmiSimulator::setStoredAddress(lan0, 0x0A010203, 0xFF000000, 0x0A010001);
    QVERIFY(QMetaObject::invokeMethod(page.screen().root(), "opened"));
    QCOMPARE(NetworkPage::octet(page.addressOf("IP Address"), 3)->property("text").toString(), QString("77"));
    QCOMPARE(page.address("Subnet Mask"), QString("255.0.0.0"));
    Operator::key(page.window(), Qt::Key_Escape);
    QCOMPARE(page.address("IP Address"), QString("10.1.2.3"));
}

void TestNetworkAddresses::noLeaseWithoutACable()
{
    NetworkPage page;
    page.select("LAN1");
    HmiSimulator::fireAll();
    Operator::settle();
    const QString lease = page.address("IP Address");
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[lan1].link = false;
        panel.adapters[lan1].live = {};
    });
    page.select("LAN0");
    page.select("LAN1");
    QVERIFY(page.address("IP Address") != lease);
    QCOMPARE(page.address("IP Address"), QString("0.0.0.0"));
}

void TestNetworkAddresses::noLeaseOfADisabledAdapter()
{
    HmiSimulator::setStoredAddress(lan1, 0x0A010203, 0xFF000000, 0x0A010001);
    NetworkPage page;
    page.select("LAN1");
    HmiSimulator::fireAll();
    Operator::settle();
    QVERIFY(page.address("IP Address") != QString("10.1.2.3"));
    page.tapToggle("Disable Network");
    QCOMPARE(addresses(page), QStringList({"10.1.2.3", "255.0.0.0", "10.1.0.1"}));
}

void TestNetworkAddresses::noLeaseOfADisabledAdapterOnOpening()
{
    HmiSimulator::setStoredAddress(lan1, 0x0A010203, 0xFF000000, 0x0A010001);
    NetworkPage page;
    page.select("LAN1");
    HmiSimulator::fireAll();
    Operator::settle();
    page.screen().close();
    HmiSimulator::setNicEnabled(lan1, false);
    page.screen().open();
    page.screen().tapMenu("Network");
    QCOMPARE(page.address("IP Address"), QString("10.1.2.3"));
}

void TestNetworkAddresses::noLeaseOfALostWifi()
{
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    HmiSimulator::fireAll();
    QTRY_COMPARE(page.address("IP Address"), QString("192.168.50.143"));
    HmiSimulator::leaveNetwork();
    NetworkPage::expire(page.timer(statusInterval));
    QCOMPARE(page.address("IP Address"), QString("192.168.50.30"));
}

void TestNetworkAddresses::emptiedFieldsStayEmpty()
{
    HmiSimulator::leaveNetwork();
    NetworkPage page;
    page.select("Wi-Fi");
    QVERIFY(QMetaObject::invokeMethod(page.network(), "wifiReset"));
    NetworkPage::expire(page.timer(statusInterval));
    comeBack(page, "opened");
    QCOMPARE(addresses(page), QStringList({"", "", ""}));
}

void TestNetworkAddresses::editOfAnOfflineAdapterStartsFromWhatIsStored()
{
    NetworkPage page;
    page.tapToggle("Static IP");
    HmiSimulator::fireAll();
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.adapters[lan0].link = false; });
    page.tapToggle("Static IP");
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.adapters[lan0].live = {}; });
    HmiSimulator::dropPending();
    QVERIFY(
        QMetaObject::invokeMethod(page.network(), "updateNetInfoDisplay", Q_ARG(HMI::SystemSet::NIC, lan0)));
    QCOMPARE(addresses(page), QStringList({"192.168.1.10", "255.255.255.0", "192.168.1.1"}));
    QVERIFY(page.isEditable("IP Address"));
}

void TestNetworkAddresses::switchingToStaticWithoutALinkOffersWhatIsStored()
{
    HmiSimulator::setStoredAddress(lan1, 0x0A010203, 0xFF000000, 0x0A010001);
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[lan1].link = false;
        panel.adapters[lan1].live = {};
    });
    NetworkPage page;
    page.select("LAN1");
    QCOMPARE(page.address("IP Address"), QString("0.0.0.0"));
    page.tapToggle("Static IP");
    // No report yet, and the operator may type already.
    QVERIFY(page.isEditable("IP Address"));
    QCOMPARE(addresses(page), QStringList({"10.1.2.3", "255.0.0.0", "10.1.0.1"}));
}

PANEL_TEST_MAIN(TestNetworkAddresses)

#include "test_network_addresses.moc"
