#include "tests/screen/networkpage.h"

/// What switches, fields and lists write, and in which order.
class TestNetworkActions : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void showingWritesNothing();
    void showingDhcpAsksForLeases();
    void disablingAWiredAdapter();
    void enablingAWiredAdapterOnDhcp();
    void enablingAStaticAdapterAsksForNoLease();
    void laterChoicesForgetTheLeaseRequest();
    void fieldsFollowTheSwitches();
    void staticSwitchNeedsAnEnabledAdapter();
    void staticSwitch();
    void editedAddressesAreWritten_data();
    void editedAddressesAreWritten();
    void unchangedAddressIsNotWritten();
    void editEndsWithItsAdapter();
    void typedOnTheKeyboard();
    void mobileOnAndOff();
    void vpnOnAndOff();
    void vpnServer();
    void wifiOnAndOff();
    void serverChoiceRefreshesTheState();
    void dnsIsReadAgainIfTheAdapterWasEnabled_data();
    void dnsIsReadAgainIfTheAdapterWasEnabled();
    void openingReadsTheSwitchesAgain();
    void openingAsksForLeasesAgain();
    void openingNeverOverwritesAnEdit();
};

void TestNetworkActions::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestNetworkActions::showingWritesNothing()
{
    for (const auto nic : {HMI::SystemSet::LAN1, HMI::SystemSet::WIFI})
        HmiSimulator::setDhcpOn(nic, false);
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.screen().close();
    page.screen().open();
    page.screen().tapMenu("Network");
    for (const char *label : {"LAN1", "Wi-Fi", "4G", "VPN", "LAN0"})
        page.select(label);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestNetworkActions::showingDhcpAsksForLeases()
{
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.select("LAN1");
    page.select("Wi-Fi");
    page.select("LAN1");
    QCOMPARE(Journal::callsButBeeps(),
             QStringList({"setDHCP(LAN1, true, persist)", "setDHCP(WIFI, true, persist)"}));
}

void TestNetworkActions::disablingAWiredAdapter()
{
    NetworkPage page;
    page.select("LAN1");
    HmiSimulator::clearJournal();
    page.tapToggle("Disable Network");
    QVERIFY(page.isOn("Disable Network"));
    QVERIFY(!page.isLeaseDue());
    QCOMPARE(Journal::callsButBeeps(), QStringList("enableNIC(LAN1, false, persist)"));
}

void TestNetworkActions::enablingAWiredAdapterOnDhcp()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN1, false);
    NetworkPage page;
    page.select("LAN1");
    HmiSimulator::clearJournal();
    QElapsedTimer clock;
    clock.start();
    page.tapToggle("Disable Network");
    QCOMPARE(Journal::callsButBeeps(), QStringList("enableNIC(LAN1, true, persist)"));
    QTRY_COMPARE(Journal::callsButBeeps(),
                 QStringList({"enableNIC(LAN1, true, persist)", "setDHCP(LAN1, true, persist)"}));
    QVERIFY(clock.elapsed() >= 1000);
    // Time alone would not tell each time: a coarse timer comes up to a twentieth early, or late.
    const auto timers = page.screen().root()->findChildren<QTimer *>("leaseRequest");
    QVERIFY(!timers.isEmpty());
    for (const QTimer *timer : timers)
        QVERIFY(timer->isSingleShot() && timer->timerType() == Qt::PreciseTimer);
}

void TestNetworkActions::enablingAStaticAdapterAsksForNoLease()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN0, false);
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.tapToggle("Disable Network");
    QVERIFY(!page.isLeaseDue());
    QCOMPARE(Journal::callsButBeeps(), QStringList("enableNIC(LAN0, true, persist)"));
}

void TestNetworkActions::laterChoicesForgetTheLeaseRequest()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN1, false);
    NetworkPage page;
    page.select("LAN1");
    HmiSimulator::clearJournal();
    page.tapToggle("Disable Network");
    QVERIFY(page.isLeaseDue());
    page.tapToggle("Static IP");
    QVERIFY(!page.isLeaseDue());
    // DHCP after the operator asked for the static address would undo the choice.
    QCOMPARE(Journal::callsButBeeps(),
             QStringList({"enableNIC(LAN1, true, persist)", "setDHCP(LAN1, false, persist)"}));
    QVERIFY(page.isOn("Static IP"));
}

void TestNetworkActions::fieldsFollowTheSwitches()
{
    NetworkPage page;
    const QStringList fields{"IP Address", "Subnet Mask", "Default Gateway"};
    const auto editable = [&] {
        QVector<bool> states;
        for (const QString &field : fields)
            states << page.isEditable(field);
        states << page.dnsInput(1)->isEnabled() << page.dnsInput(2)->isEnabled();
        return states;
    };
    const QVector<bool> all(5, true);
    const QVector<bool> none(5, false);
    QCOMPARE(editable(), all);
    page.tapToggle("Disable Network");
    QCOMPARE(editable(), none);
    page.tapToggle("Disable Network");
    QCOMPARE(editable(), all);
    page.tapToggle("Static IP");
    QCOMPARE(editable(), none);
    page.tapToggle("Static IP");
    QCOMPARE(editable(), all);
}

void TestNetworkActions::staticSwitchNeedsAnEnabledAdapter()
{
    NetworkPage page;
    page.tapToggle("Disable Network");
    QVERIFY(!page.toggleOf("Static IP")->isEnabled());
    QCOMPARE(page.toggleOf("Static IP")->opacity(), 0.5);
    HmiSimulator::clearJournal();
    page.tapToggle("Static IP");
    QVERIFY(page.isOn("Static IP"));
    QCOMPARE(Journal::callsButBeeps(), QStringList());
    page.tapToggle("Disable Network");
    QVERIFY(page.toggleOf("Static IP")->isEnabled());
}

void TestNetworkActions::staticSwitch()
{
    NetworkPage page;
    QSignalSpy changed(page.network(), SIGNAL(useStaticIpChanged(HMI::SystemSet::NIC)));
    HmiSimulator::clearJournal();
    page.tapToggle("Static IP");
    page.tapToggle("Static IP");
    QCOMPARE(Journal::callsButBeeps(),
             QStringList({"setDHCP(LAN0, true, persist)", "setDHCP(LAN0, false, persist)"}));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(page.address("IP Address"), QString("192.168.1.10"));
}

void TestNetworkActions::editedAddressesAreWritten_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("octet");
    QTest::addColumn<QString>("call");
    QTest::newRow("address") << "IP Address" << 3 << "setIp(LAN0, 192.168.1.77, persist)";
    QTest::newRow("mask") << "Subnet Mask" << 1 << "setSubnetMask(LAN0, 255.77.255.0, persist)";
    QTest::newRow("gateway") << "Default Gateway" << 0 << "setGateway(LAN0, 77.168.1.1, persist)";
}

void TestNetworkActions::editedAddressesAreWritten()
{
    QFETCH(QString, label);
    QFETCH(int, octet);
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.edit(page.addressOf(label), octet, "77");
    QCOMPARE(Journal::callsButBeeps(), QStringList());
    Operator::key(page.window(), Qt::Key_Return);
    QTEST(Journal::callsButBeeps().join(";"), "call");
}

void TestNetworkActions::unchangedAddressIsNotWritten()
{
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.edit(page.addressOf("IP Address"), 3, "10");
    Operator::key(page.window(), Qt::Key_Return);
    page.edit(page.addressOf("IP Address"), 3, "55");
    Operator::key(page.window(), Qt::Key_Escape);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
    QCOMPARE(page.address("IP Address"), QString("192.168.1.10"));
}

void TestNetworkActions::editEndsWithItsAdapter()
{
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.edit(page.addressOf("Subnet Mask"), 2, "128");
    page.select("4G");
    QCOMPARE(Journal::callsButBeeps(), QStringList("setSubnetMask(LAN0, 255.255.128.0, persist)"));
}

void TestNetworkActions::typedOnTheKeyboard()
{
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.edit(page.addressOf("IP Address"), 2, QString());
    const auto key = [&](const char *name) {
        Operator::tap(Operator::byName(page.glass(), QLatin1String("vkbKey_") + QLatin1String(name)));
        Operator::settle(20);
    };
    key("4");
    key("2");
    key("enter");
    Operator::settle();
    QCOMPARE(Journal::calls("setIp"), QStringList("setIp(LAN0, 192.168.42.10, persist)"));
}

void TestNetworkActions::mobileOnAndOff()
{
    NetworkPage page;
    page.select("4G");
    page.tapToggle("4G");
    QVERIFY(!page.isWatching(2000));
    QCOMPARE(page.status("Connection Status"), QString("Not connected"));
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    page.tapToggle("4G");
    // The refreshing begins before the adapter is switched; only then the modem's new state can be read.
    QStringList calls = Journal::calls().filter(QRegularExpression("^(get4GSignal|enableNIC)"));
    QCOMPARE(calls, QStringList({"get4GSignal(MOBILE_4G)", "enableNIC(MOBILE_4G, true, persist)",
                                 "get4GSignal(MOBILE_4G)"}));
    QVERIFY(page.isWatching(2000));
    HmiSimulator::clearJournal();
    page.tapToggle("4G");
    QCOMPARE(Journal::calls("enableNIC"), QStringList("enableNIC(MOBILE_4G, false, persist)"));
    QVERIFY(!page.isWatching(2000));
}

void TestNetworkActions::vpnOnAndOff()
{
    NetworkPage page;
    page.select("VPN");
    QQuickItem *servers = Operator::byClass(page.row("Server"), "QSP::ComboBox");
    QVERIFY(servers->isEnabled());
    HmiSimulator::clearJournal();
    page.tapToggle("VPN");
    QVERIFY(!servers->isEnabled());
    QCOMPARE(Journal::callsButBeeps(), QStringList("enableNIC(VPN, true, persist)"));
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    page.tapToggle("VPN");
    QVERIFY(servers->isEnabled());
    const QStringList calls =
        Journal::calls().filter(QRegularExpression("^(resetVPNIp|getVPNServerState|enableNIC)"));
    QCOMPARE(calls.mid(0, 3),
             QStringList({"resetVPNIp(ASIA)", "getVPNServerState(ASIA)", "enableNIC(VPN, false, persist)"}));
    QCOMPARE(page.status("Connection Status"), QString("Not connected"));
}

void TestNetworkActions::vpnServer()
{
    NetworkPage page;
    page.select("VPN");
    QQuickItem *servers = Operator::byClass(page.row("Server"), "QSP::ComboBox");
    HmiSimulator::clearJournal();
    Operator::tap(Operator::byText(page.openList(servers), "Europe"));
    QTRY_COMPARE(Journal::callsButBeeps(), QStringList({"setVPNServer(EUROPE)", "resetVPNIp(EUROPE)"}));
    QCOMPARE(servers->property("currentIndex").toInt(), 1);
}

void TestNetworkActions::wifiOnAndOff()
{
    HmiSimulator::joinNetwork("Plant");
    NetworkPage page;
    page.select("Wi-Fi");
    QVERIFY(page.isWatching(2000));
    QQuickItem *tile = page.row("Online");
    QVERIFY(tile);
    QVERIFY(tile->isEnabled());
    QSignalSpy enabled(page.network(), SIGNAL(wifiEnableChanged(bool)));
    HmiSimulator::clearJournal();
    page.tapToggle("Disable Network");
    QCOMPARE(Operator::visibleTexts(tile).value(0), QString("Offline"));
    QVERIFY(!page.isWatching(2000));
    QVERIFY(!tile->isEnabled());
    QCOMPARE(Journal::callsButBeeps(), QStringList("enableNIC(WIFI, false, persist)"));
    page.tapToggle("Disable Network");
    QVERIFY(page.isWatching(2000));
    QVERIFY(tile->isEnabled());
    QCOMPARE(enabled, QList<QVariantList>({{false}, {true}}));
    QTRY_COMPARE(Journal::calls("setDHCP"), QStringList("setDHCP(WIFI, true, persist)"));
}

void TestNetworkActions::serverChoiceRefreshesTheState()
{
    NetworkPage page;
    page.select("VPN");
    QQuickItem *servers = Operator::byClass(page.row("Server"), "QSP::ComboBox");
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    servers->setProperty("currentIndex", 1);
    const QStringList calls =
        Journal::calls().filter(QRegularExpression("^(setVPNServer|resetVPNIp|getVPNServerState)"));
    QCOMPARE(calls, QStringList({"setVPNServer(EUROPE)", "resetVPNIp(EUROPE)", "getVPNServerState(EUROPE)"}));
}

void TestNetworkActions::dnsIsReadAgainIfTheAdapterWasEnabled_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::newRow("enabled when built") << true;
    QTest::newRow("disabled when built") << false;
}

void TestNetworkActions::dnsIsReadAgainIfTheAdapterWasEnabled()
{
    QFETCH(bool, enabled);
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN0, enabled);
    NetworkPage page;
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    page.tapToggle("Disable Network");
    page.tapToggle("Disable Network");
    QCOMPARE(Journal::calls("getDns").size(), enabled ? 2 : 0);
}

void TestNetworkActions::openingReadsTheSwitchesAgain()
{
    NetworkPage page;
    for (const char *label : {"4G", "VPN", "LAN0"})
        page.select(label);
    page.screen().close();
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN0, false);
    HmiSimulator::setNicEnabled(HMI::SystemSet::MOBILE_4G, false);
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    page.screen().open();
    // Only the selected adapter is watched.
    QVERIFY(!page.isWatching(2000));
    page.screen().tapMenu("Network");
    QVERIFY(page.isOn("Disable Network"));
    QVERIFY(!page.isEditable("IP Address"));
    page.select("4G");
    QVERIFY(!page.isOn("4G"));
    page.select("VPN");
    QVERIFY(page.isOn("VPN"));
    // A switch that is turned by the service runs its action once, with the service's own value.
    QCOMPARE(Journal::calls("enableNIC"),
             QStringList({"enableNIC(LAN0, false, persist)", "enableNIC(MOBILE_4G, false, persist)",
                          "enableNIC(VPN, true, persist)"}));
}

void TestNetworkActions::openingAsksForLeasesAgain()
{
    NetworkPage page;
    page.select("LAN1");
    page.screen().close();
    HmiSimulator::setLiveAddress(HMI::SystemSet::LAN1, 0x0A010203, 0xFF000000, 0x0A000001);
    HmiSimulator::clearJournal();
    page.screen().open();
    QCOMPARE(Journal::callsButBeeps(), QStringList("setDHCP(LAN1, true, persist)"));
    page.screen().tapMenu("Network");
    QCOMPARE(page.address("IP Address"), QString("10.1.2.3"));
}

void TestNetworkActions::openingNeverOverwritesAnEdit()
{
    NetworkPage page;
    page.edit(page.addressOf("IP Address"), 3, "99");
    HmiSimulator::setLiveAddress(HMI::SystemSet::LAN0, 0x0A010203, 0xFF000000, 0x0A000001);
    QMetaObject::invokeMethod(page.screen().root(), "opened");
    QCOMPARE(NetworkPage::octet(page.addressOf("IP Address"), 3)->property("text").toString(), QString("99"));
    QVERIFY(page.addressOf("IP Address")->property("editing").toBool());
}

PANEL_TEST_MAIN(TestNetworkActions)

#include "test_network_actions.moc"
