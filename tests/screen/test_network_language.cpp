#include "tests/screen/networkpage.h"

/// A language switch in every state of the Network page.
class TestNetworkLanguage : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void everyAdapter_data();
    void everyAdapter();
    void hiddenRowsFollowToo();
    void keepsAnEdit();
    void keepsTheServer();
    void unknownServerStaysUnselected();
    void openServerList();
};

void TestNetworkLanguage::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::joinNetwork("Plant");
    HmiSimulator::setManual(true);
}

void TestNetworkLanguage::everyAdapter_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<QStringList>("chinese");
    const QStringList wired{"禁用网络", "IP静态", "IP地址", "子网掩码", "默认网关", "MAC地址"};
    QStringList wifi = wired;
    wifi.insert(1, "在线");
    QTest::newRow("LAN0") << "LAN0" << wired;
    QTest::newRow("LAN1") << "LAN1" << wired;
    QTest::newRow("Wi-Fi") << "Wi-Fi" << wifi;
    QTest::newRow("4G") << "4G" << QStringList({"4G功能", "信号强度", "连接状态"});
    QTest::newRow("VPN") << "VPN" << QStringList({"VPN", "服务器", "连接状态"});
}

void TestNetworkLanguage::everyAdapter()
{
    QFETCH(QString, adapter);
    NetworkPage page;
    page.select(adapter);
    const QStringList english = Operator::visibleTexts(page.network());
    HmiSimulator::clearJournal();
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QTEST(page.rowLabels(), "chinese");
    QCOMPARE(page.adapterLabels(), QStringList({"有线网络0", "有线网络1", "无线网络", "4G功能", "VPN"}));
    page.switchLanguage(HMI::SystemSet::ENGLISH);
    QCOMPARE(Operator::visibleTexts(page.network()), english);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestNetworkLanguage::hiddenRowsFollowToo()
{
    HmiSimulator::setMobile(1, 10);
    NetworkPage page;
    page.select("4G");
    QCOMPARE(page.status("Connection Status"), QString("Connecting..."));
    page.select("LAN0");
    page.switchLanguage(HMI::SystemSet::CHINESE);
    page.select("4G功能");
    QCOMPARE(page.status("连接状态"), QString("准备连接"));
    // One state has no Chinese text and stays English.
    HmiSimulator::setMobile(0, 10);
    NetworkPage::expire(page.timer(2000));
    QCOMPARE(page.status("连接状态"), QString("Not connected"));
}

void TestNetworkLanguage::keepsAnEdit()
{
    NetworkPage page;
    page.edit(page.addressOf("IP Address"), 3, "99");
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QQuickItem *field = NetworkPage::octet(page.addressOf("IP地址"), 3);
    QCOMPARE(field->property("text").toString(), QString("99"));
    QVERIFY(field->hasActiveFocus());
    Operator::key(page.window(), Qt::Key_Return);
    QCOMPARE(Journal::calls("setIp"), QStringList("setIp(LAN0, 192.168.1.99, persist)"));
}

void TestNetworkLanguage::keepsTheServer()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.vpn.server = HMI::SystemSet::EUROPE; });
    NetworkPage page;
    page.select("VPN");
    HmiSimulator::clearJournal();
    QQuickItem *servers = Operator::byClass(page.row("Server"), "QSP::ComboBox");
    QVERIFY(Operator::byText(servers, "Europe"));
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QVERIFY(Operator::byText(servers, "欧洲服务器"));
    QCOMPARE(servers->property("currentIndex").toInt(), 1);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestNetworkLanguage::unknownServerStaysUnselected()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.vpn.server = 7; });
    NetworkPage page;
    page.select("VPN");
    HmiSimulator::clearJournal();
    QQuickItem *servers = Operator::byClass(page.row("Server"), "QSP::ComboBox");
    QCOMPARE(servers->property("currentIndex").toInt(), -1);
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QCOMPARE(servers->property("currentIndex").toInt(), -1);
    // A server that can be shown by now is shown with the next switch; none of it is written.
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.vpn.server = 1; });
    page.switchLanguage(HMI::SystemSet::ENGLISH);
    QCOMPARE(servers->property("currentIndex").toInt(), 1);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestNetworkLanguage::openServerList()
{
    NetworkPage page;
    page.select("VPN");
    QVERIFY(Operator::byText(page.openList(page.row("Server")), "Europe"));
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QVERIFY(page.isShown("欧洲服务器"));
    QVERIFY(!page.isShown("Europe"));
}

PANEL_TEST_MAIN(TestNetworkLanguage)

#include "test_network_language.moc"
