#include "tests/screen/networkpage.h"

#include <QtNetwork/QHostAddress>

/// Answers to requests for a lease, however they come.
class TestNetworkDhcp : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void leaseArrivesLive();
    void failedRequestShowsWhatIsInForce();
    void wifiShowsALeaseOnlyWhenJoined();
    void failedWifiRequestIsShownThoughNotJoined();
    void deliveries_data();
    void deliveries();
    void lateAnswerDoesNotOverwriteAnEdit();
    void lateAnswerIsShownAfterAnEditWithoutChange_data();
    void lateAnswerIsShownAfterAnEditWithoutChange();
    void answerOnTheGuiThreadAndFromAForeignOne();
    void answerAfterTheScreenIsGone();
    void answerWhileClosed();
};

void TestNetworkDhcp::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setDelays(1);
}

void TestNetworkDhcp::leaseArrivesLive()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.tapToggle("Static IP");
    QCOMPARE(page.address("IP Address"), QString("192.168.1.10"));
    QVERIFY(HmiSimulator::fireNext("setDHCP(LAN0)"));
    QTRY_COMPARE(page.address("IP Address"), QString("192.168.1.117"));
    QCOMPARE(page.address("Default Gateway"), QString("192.168.1.254"));
    page.tapToggle("Static IP");
    QVERIFY(HmiSimulator::fireNext("setDHCP(LAN0)"));
    QTRY_COMPARE(page.address("IP Address"), QString("192.168.1.10"));
    QCOMPARE(page.address("Default Gateway"), QString("192.168.1.1"));
}

void TestNetworkDhcp::failedRequestShowsWhatIsInForce()
{
    HmiSimulator::setManual(true);
    HmiSimulator::change(
        [](HmiSimulator::Panel &panel) { panel.adapters.at(HMI::SystemSet::LAN0).link = false; });
    NetworkPage page;
    page.tapToggle("Static IP");
    QVERIFY(HmiSimulator::fireNext("setDHCP(LAN0)"));
    const HMI::IP live = HmiSimulator::panel().adapters.at(HMI::SystemSet::LAN0).live.ip;
    QCOMPARE(Journal::toList(HmiSimulator::reports()), QStringList("setDHCP(LAN0, DHCP_FAILED)"));
    QTRY_COMPARE(page.address("IP Address"), QHostAddress(quint32(live)).toString());
}

void TestNetworkDhcp::wifiShowsALeaseOnlyWhenJoined()
{
    HmiSimulator::leaveNetwork();
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.dhcp = 0; });
    NetworkPage page;
    page.select("Wi-Fi");
    QTRY_VERIFY(!HmiSimulator::reports().empty());
    Operator::settle();
    QCOMPARE(page.address("IP Address"), QString("192.168.50.30"));
    HmiSimulator::joinNetwork("Plant");
    page.tapToggle("Static IP");
    page.tapToggle("Static IP");
    QTRY_COMPARE(page.address("IP Address"), QString("192.168.50.143"));
}

void TestNetworkDhcp::failedWifiRequestIsShownThoughNotJoined()
{
    HmiSimulator::setManual(true);
    HmiSimulator::setDhcpOn(HMI::SystemSet::WIFI, false);
    HmiSimulator::leaveNetwork();
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.dhcp = 1; });
    NetworkPage page;
    page.select("Wi-Fi");
    page.tapToggle("Static IP");
    QVERIFY(HmiSimulator::fireNext("setDHCP(WIFI)"));
    QCOMPARE(Journal::toList(HmiSimulator::reports()), QStringList("setDHCP(WIFI, DHCP_FAILED)"));
    const HMI::IP live = HmiSimulator::panel().adapters.at(HMI::SystemSet::WIFI).live.ip;
    QVERIFY(QHostAddress(quint32(live)).toString() != QString("192.168.50.30"));
    QTRY_COMPARE(page.address("IP Address"), QHostAddress(quint32(live)).toString());
}

void TestNetworkDhcp::deliveries_data()
{
    QTest::addColumn<int>("delivery");
    QTest::addColumn<QString>("shown");
    QTest::newRow("late") << int(HmiSimulator::Delivery::Late) << "192.168.1.117";
    QTest::newRow("twice") << int(HmiSimulator::Delivery::Twice) << "192.168.1.117";
    QTest::newRow("synchronous") << int(HmiSimulator::Delivery::Synchronous) << "192.168.1.117";
    QTest::newRow("never") << int(HmiSimulator::Delivery::Never) << "192.168.1.10";
}

void TestNetworkDhcp::deliveries()
{
    QFETCH(int, delivery);
    QFETCH(QString, shown);
    HmiSimulator::setDelivery(HmiSimulator::Operation::Dhcp, HmiSimulator::Delivery(delivery), 200);
    NetworkPage page;
    page.tapToggle("Static IP");
    QVERIFY(HmiSimulator::waitIdle());
    QTRY_COMPARE(page.address("IP Address"), shown);
    // No second answer, and none of a panel that gave none.
    Operator::settle();
    QCOMPARE(page.address("IP Address"), shown);
    QVERIFY(!page.isEditable("IP Address"));
    QCOMPARE(Journal::calls("setIp"), QStringList());
}

void TestNetworkDhcp::lateAnswerDoesNotOverwriteAnEdit()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.tapToggle("Static IP");
    page.tapToggle("Static IP");
    page.edit(page.addressOf("IP Address"), 0, "10");
    HmiSimulator::fireAll();
    Operator::settle();
    QCOMPARE(NetworkPage::octet(page.addressOf("IP Address"), 0)->property("text").toString(), QString("10"));
    HmiSimulator::clearJournal();
    Operator::key(page.window(), Qt::Key_Return);
    QCOMPARE(Journal::callsButBeeps(), QStringList("setIp(LAN0, 10.168.1.10, persist)"));
}

void TestNetworkDhcp::lateAnswerIsShownAfterAnEditWithoutChange_data()
{
    QTest::addColumn<QString>("field");
    for (const char *field : {"IP Address", "Subnet Mask", "Default Gateway"})
        QTest::newRow(field) << field;
}

void TestNetworkDhcp::lateAnswerIsShownAfterAnEditWithoutChange()
{
    QFETCH(QString, field);
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.tapToggle("Static IP");
    page.tapToggle("Static IP");
    page.edit(page.addressOf(field), 3, "99");
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].stored = {0x0A010203, 0x0A010203, 0x0A010203};
    });
    HmiSimulator::clearJournal();
    HmiSimulator::fireAll();
    Operator::settle();
    QVERIFY(page.address(field) != QString("10.1.2.3"));
    Operator::key(page.window(), Qt::Key_Escape);
    QCOMPARE(page.address(field), QString("10.1.2.3"));
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestNetworkDhcp::answerOnTheGuiThreadAndFromAForeignOne()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.tapToggle("Static IP");
    QVERIFY(HmiSimulator::fireNext("setDHCP", HmiSimulator::FireOn::CallingThread));
    // Even then nothing is touched from within the callback.
    QCOMPARE(page.address("IP Address"), QString("192.168.1.10"));
    QTRY_COMPARE(page.address("IP Address"), QString("192.168.1.117"));
    page.tapToggle("Static IP");
    QVERIFY(HmiSimulator::fireNext("setDHCP", HmiSimulator::FireOn::SimulatorThread));
    QTRY_COMPARE(page.address("IP Address"), QString("192.168.1.10"));
}

void TestNetworkDhcp::answerAfterTheScreenIsGone()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.tapToggle("Static IP");
    page.select("LAN1");
    page.destroy();
    QCOMPARE(HmiSimulator::fireAll(), 2);
    Operator::settle();
    QCOMPARE(HmiSimulator::pending().size(), size_t(0));
}

void TestNetworkDhcp::answerWhileClosed()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.tapToggle("Static IP");
    page.screen().close();
    QCOMPARE(HmiSimulator::fireAll(), 1);
    Operator::settle();
    page.screen().open();
    page.screen().tapMenu("Network");
    QCOMPARE(page.address("IP Address"), QString("192.168.1.117"));
}

PANEL_TEST_MAIN(TestNetworkDhcp)

#include "test_network_dhcp.moc"
