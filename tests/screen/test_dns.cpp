#include "tests/screen/networkpage.h"

/// The DNS card, which follows the adapter of the network card.
class TestDns : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void followsTheAdapter();
    void editingOneWritesBoth_data();
    void editingOneWritesBoth();
    void dhcpLocksTheFields();
    void isReadAgainOnOpening();
    void neverOverwritesAnEdit();
    void staleServerIsNeverWritten_data();
    void staleServerIsNeverWritten();
    void editBelongsToItsAdapter();
    void editBelongsToItsAdapterWithoutKeyboard();
    void leaseReloadsTheServers();
    void labelsKeepTheirEnglish();
};

void TestDns::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].dns = {0x08080808, 0x01010101};
        panel.adapters[HMI::SystemSet::LAN1].dns = {0x0A0A0A0A, 0};
        panel.adapters[HMI::SystemSet::LAN1].dhcp = false;
        panel.adapters[HMI::SystemSet::MOBILE_4G].dns = {0xFFFFFFFF, 0x00000001};
    });
}

void TestDns::followsTheAdapter()
{
    NetworkPage page;
    QCOMPARE(page.dnsAddress(1), QString("8.8.8.8"));
    QCOMPARE(page.dnsAddress(2), QString("1.1.1.1"));
    page.select("LAN1");
    QCOMPARE(page.dnsAddress(1), QString("10.10.10.10"));
    QCOMPARE(page.dnsAddress(2), QString("0.0.0.0"));
    page.select("4G");
    QCOMPARE(page.dnsAddress(1), QString("255.255.255.255"));
    QCOMPARE(page.dnsAddress(2), QString("0.0.0.1"));
    QVERIFY(!page.dnsInput(1)->isEnabled());
    page.select("VPN");
    page.select("LAN0");
    QCOMPARE(page.dnsAddress(2), QString("1.1.1.1"));
    QVERIFY(page.dnsInput(1)->isEnabled());
    QCOMPARE(Journal::calls("setDns"), QStringList());
}

void TestDns::editingOneWritesBoth_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("call");
    QTest::newRow("DNS 1") << 1 << "setDns(LAN0, 8.8.8.42, 1.1.1.1)";
    QTest::newRow("DNS 2") << 2 << "setDns(LAN0, 8.8.8.8, 1.1.1.42)";
}

void TestDns::editingOneWritesBoth()
{
    QFETCH(int, number);
    NetworkPage page;
    HmiSimulator::clearJournal();
    page.edit(page.dnsInput(number), 3, "42");
    Operator::key(page.window(), Qt::Key_Return);
    QTEST(Journal::callsButBeeps().join(';'), "call");
    // The same once more is no edit.
    HmiSimulator::clearJournal();
    page.edit(page.dnsInput(number), 3, "42");
    Operator::key(page.window(), Qt::Key_Return);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestDns::dhcpLocksTheFields()
{
    NetworkPage page;
    QVERIFY(page.dnsInput(1)->isEnabled());
    page.tapToggle("Static IP");
    QVERIFY(!page.dnsInput(1)->isEnabled());
    QVERIFY(!page.dnsInput(2)->isEnabled());
    page.tap(NetworkPage::octet(page.dnsInput(1), 0));
    QVERIFY(!page.dnsInput(1)->property("editing").toBool());
    page.tapToggle("Static IP");
    QVERIFY(page.dnsInput(1)->isEnabled());
}

void TestDns::isReadAgainOnOpening()
{
    NetworkPage page;
    page.screen().close();
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].dns = {0x05050505, 0};
    });
    page.screen().open();
    QCOMPARE(page.dnsAddress(1), QString("5.5.5.5"));
    QCOMPARE(page.dnsAddress(2), QString("0.0.0.0"));
    QCOMPARE(Journal::calls("setDns"), QStringList());
}

void TestDns::neverOverwritesAnEdit()
{
    NetworkPage page;
    page.edit(page.dnsInput(2), 0, "9");
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].dns = {0x05050505, 0x06060606};
    });
    QMetaObject::invokeMethod(page.screen().root(), "opened");
    QCOMPARE(page.dnsAddress(1), QString("5.5.5.5"));
    QCOMPARE(NetworkPage::octet(page.dnsInput(2), 0)->property("text").toString(), QString("9"));
    Operator::key(page.window(), Qt::Key_Return);
    QCOMPARE(Journal::calls("setDns"), QStringList("setDns(LAN0, 5.5.5.5, 9.1.1.1)"));
}

void TestDns::staleServerIsNeverWritten_data()
{
    QTest::addColumn<int>("end");
    QTest::newRow("Escape") << static_cast<int>(Qt::Key_Escape);
    QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
}

// The servers change while the operator is in the field of one, but he leaves it as it is.
void TestDns::staleServerIsNeverWritten()
{
    QFETCH(int, end);
    NetworkPage page;
    page.edit(page.dnsInput(1), 0, QString());
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].dns = {0x05050505, 0x06060606};
    });
    QMetaObject::invokeMethod(page.screen().root(), "opened");
    QCOMPARE(page.dnsAddress(1), QString("8.8.8.8"));
    Operator::key(page.window(), end);
    QCOMPARE(page.dnsAddress(1), QString("5.5.5.5"));
    page.edit(page.dnsInput(2), 3, "42");
    Operator::key(page.window(), Qt::Key_Return);
    QCOMPARE(Journal::calls("setDns"), QStringList("setDns(LAN0, 5.5.5.5, 6.6.6.42)"));
}

void TestDns::editBelongsToItsAdapter()
{
    NetworkPage page;
    page.edit(page.dnsInput(1), 1, "44");
    page.select("LAN1");
    QCOMPARE(Journal::calls("setDns"), QStringList("setDns(LAN0, 8.44.8.8, 1.1.1.1)"));
    QCOMPARE(page.dnsAddress(1), QString("10.10.10.10"));
}

void TestDns::editBelongsToItsAdapterWithoutKeyboard()
{
    NetworkPage page;
    page.edit(page.dnsInput(1), 1, "44");
    // Chosen by a program: no tap takes the focus from the field.
    QVERIFY(QMetaObject::invokeMethod(page.adapterButton("LAN1"), "clicked"));
    QCOMPARE(page.selected(), QString("LAN1"));
    QCOMPARE(Journal::calls("setDns"), QStringList("setDns(LAN0, 8.44.8.8, 1.1.1.1)"));
    QCOMPARE(page.dnsAddress(1), QString("10.10.10.10"));
}

void TestDns::leaseReloadsTheServers()
{
    NetworkPage page;
    page.tapToggle("Static IP");
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN0].dns = {0x07070707, 0};
    });
    QVERIFY(HmiSimulator::fireNext("setDHCP"));
    QTRY_COMPARE(page.dnsAddress(1), QString("7.7.7.7"));
}

void TestDns::labelsKeepTheirEnglish()
{
    NetworkPage page;
    page.switchLanguage(HMI::SystemSet::CHINESE);
    const QStringList texts = Operator::visibleTexts(page.dns());
    QVERIFY(texts.contains("DNS服务器信息"));
    QVERIFY(texts.contains("DNS 1"));
    QVERIFY(texts.contains("DNS 2"));
}

PANEL_TEST_MAIN(TestDns)

#include "test_dns.moc"
