#include "tests/screen/networkpage.h"

namespace {

QStringList wiredRows()
{
    return {"Disable Network", "Static IP", "IP Address", "Subnet Mask", "Default Gateway", "MAC"};
}

} // namespace

/// Which adapters are offered, which is selected, and which rows are shown.
class TestNetworkSelection : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void devices_data();
    void devices();
    void rowsOfEachAdapter();
    void storedAndLiveAddresses();
    void sameAdapterAgainDoesNothing();
    void rowsAreBuiltOnce();
    void rowsAreBuiltOnFirstSelection();
    void vpnHidesTheOtherCards();
    void vpnAlone();
    void leavingThePageOnVpnAndComingBack();
    void macIsNeverEdited();
    void sizes_data();
    void sizes();
};

void TestNetworkSelection::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
}

void TestNetworkSelection::devices_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QString>("selected");
    const QStringList all{"LAN0", "LAN1", "Wi-Fi", "4G", "VPN"};
    QTest::newRow("all five") << 87 << all << "LAN0";
    QTest::newRow("none") << 0 << QStringList() << QString();
    QTest::newRow("LAN0 only") << 1 << QStringList{"LAN0"} << "LAN0";
    QTest::newRow("LAN1 and 4G") << (2 | 16) << QStringList{"LAN1", "4G"} << "LAN1";
    QTest::newRow("Wi-Fi and VPN") << (4 | 64) << QStringList{"Wi-Fi", "VPN"} << "Wi-Fi";
    QTest::newRow("4G only") << 16 << QStringList{"4G"} << "4G";
    QTest::newRow("VPN only") << 64 << QStringList{"VPN"} << "VPN";
    QTest::newRow("unknown bits only") << (8 | 32 | 128) << QStringList() << QString();
    QTest::newRow("unknown bits too") << (1 | 8 | 4096) << QStringList{"LAN0"} << "LAN0";
    QTest::newRow("all bits") << -1 << all << "LAN0";
}

void TestNetworkSelection::devices()
{
    QFETCH(int, mask);
    QFETCH(QStringList, labels);
    QFETCH(QString, selected);
    HmiSimulator::setAdapters(mask);
    NetworkPage page;
    QCOMPARE(page.adapterLabels(), labels);
    QCOMPARE(page.selected(), selected);
    QCOMPARE(page.rowLabels().isEmpty(), selected.isEmpty());
    // Each button works, in whatever order.
    for (int i = labels.size() - 1; i >= 0; --i) {
        page.select(labels.at(i));
        QCOMPARE(page.selected(), labels.at(i));
        QVERIFY(!page.rowLabels().isEmpty());
    }
    page.screen().close();
    page.screen().open();
}

void TestNetworkSelection::rowsOfEachAdapter()
{
    NetworkPage page;
    QCOMPARE(page.rowLabels(), wiredRows());
    page.select("LAN1");
    QCOMPARE(page.rowLabels(), wiredRows());
    page.select("Wi-Fi");
    QStringList wifi = wiredRows();
    wifi.insert(1, "Online");
    QCOMPARE(page.rowLabels(), wifi);
    page.select("4G");
    QCOMPARE(page.rowLabels(), QStringList({"4G", "Signal", "Connection Status"}));
    page.select("VPN");
    QCOMPARE(page.rowLabels(), QStringList({"VPN", "Server", "Connection Status"}));
}

void TestNetworkSelection::storedAndLiveAddresses()
{
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN1, true);
    HmiSimulator::setLiveAddress(HMI::SystemSet::LAN1, 0xAC140505, 0xFFFF0000, 0xAC140001);
    HmiSimulator::setManual(true);
    NetworkPage page;
    QCOMPARE(page.address("IP Address"), QString("192.168.1.10"));
    QVERIFY(page.isOn("Static IP"));
    QVERIFY(!page.isOn("Disable Network"));
    QVERIFY(page.isEditable("Default Gateway"));
    page.select("LAN1");
    QVERIFY(!page.isOn("Static IP"));
    QCOMPARE(page.address("IP Address"), QString("172.20.5.5"));
    QCOMPARE(page.address("Subnet Mask"), QString("255.255.0.0"));
    QCOMPARE(page.address("Default Gateway"), QString("172.20.0.1"));
    QVERIFY(!page.isEditable("IP Address"));
}

void TestNetworkSelection::sameAdapterAgainDoesNothing()
{
    NetworkPage page;
    QSignalSpy changed(page.network(), SIGNAL(currentNICChanged(HMI::SystemSet::NIC, HMI::SystemSet::NIC)));
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    page.select("LAN0");
    QCOMPARE(changed.count(), 0);
    QCOMPARE(Journal::calls("getDns"), QStringList());
    QCOMPARE(page.selected(), QString("LAN0"));
}

void TestNetworkSelection::rowsAreBuiltOnce()
{
    NetworkPage page;
    const QPointer<QQuickItem> first = page.row("IP Address");
    page.select("Wi-Fi");
    const int items = page.network()->findChildren<QQuickItem *>().size();
    const QPointer<QQuickItem> tile = page.row("Online");
    page.select("LAN0");
    QCOMPARE(page.row("IP Address"), first.data());
    page.select("Wi-Fi");
    QCOMPARE(page.row("Online"), tile.data());
    QCOMPARE(page.network()->findChildren<QQuickItem *>().size(), items);
}

void TestNetworkSelection::rowsAreBuiltOnFirstSelection()
{
    HmiSimulator::setAdapters(2 | 16);
    HmiSimulator::setGettersRecorded(true);
    NetworkPage page;
    QCOMPARE(Journal::calls("get4GState"), QStringList());
    page.select("4G");
    QVERIFY(!Journal::calls("get4GState").isEmpty());
}

void TestNetworkSelection::vpnHidesTheOtherCards()
{
    NetworkPage page;
    QVERIFY(page.dns()->isVisible());
    QVERIFY(page.defaultAdapter()->isVisible());
    page.select("VPN");
    QVERIFY(!page.dns()->isVisible());
    QVERIFY(!page.defaultAdapter()->isVisible());
    // Nor do they come back with the page.
    page.screen().tapMenu(QStringLiteral("General"));
    page.screen().tapMenu(QStringLiteral("Network"));
    QVERIFY(page.network()->isVisible());
    QVERIFY(!page.dns()->isVisible());
    QVERIFY(!page.defaultAdapter()->isVisible());
    page.select("4G");
    QVERIFY(page.dns()->isVisible());
    QVERIFY(page.defaultAdapter()->isVisible());
}

void TestNetworkSelection::vpnAlone()
{
    HmiSimulator::setAdapters(64);
    HmiSimulator::setVpnState(3);
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    HmiSimulator::setVpnState(3);
    NetworkPage page;
    QVERIFY(!page.dns());
    QVERIFY(!page.defaultAdapter());
    QCOMPARE(page.status("Connection Status"), QString("SSL Error"));
    QVERIFY(page.isWatching(3000));
}

void TestNetworkSelection::leavingThePageOnVpnAndComingBack()
{
    NetworkPage page;
    page.select("VPN");
    page.screen().tapMenu("Version");
    QVERIFY(!page.network()->isVisible());
    page.screen().tapMenu("Network");
    QVERIFY(page.network()->isVisible());
    QVERIFY(!page.dns()->isVisible());
    page.select("LAN1");
    QVERIFY(page.dns()->isVisible());
}

void TestNetworkSelection::macIsNeverEdited()
{
    NetworkPage page;
    QQuickItem *field = Operator::byClass(page.row("MAC"), "QQuickTextInput");
    QCOMPARE(field->property("text").toString(), QString("02:1B:44:11:3A:B7"));
    page.tap(field);
    Operator::type(page.window(), "11");
    QVERIFY(!field->hasActiveFocus());
    QCOMPARE(field->property("text").toString(), QString("02:1B:44:11:3A:B7"));
}

void TestNetworkSelection::sizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("rowHeight");
    QTest::addColumn<int>("fontPixelSize");
    QTest::addColumn<int>("titleRowHeight");
    QTest::newRow("1024x600") << QSize(1024, 600) << 62 << 20 << 52;
    QTest::newRow("800x480") << QSize(800, 480) << 48 << 15 << 40;
    QTest::newRow("1280x800") << QSize(1280, 800) << 77 << 24 << 65;
    QTest::newRow("480x800") << QSize(480, 800) << 62 << 20 << 41;
    QTest::newRow("600x1024") << QSize(600, 1024) << 62 << 20 << 52;
}

void TestNetworkSelection::sizes()
{
    QFETCH(QSize, size);
    QFETCH(int, rowHeight);
    NetworkPage page(size);
    QCOMPARE(page.network()->property("rowHeight").toInt(), rowHeight);
    QTEST(page.network()->property("fontPixelSize").toInt(), "fontPixelSize");
    QTEST(page.dns()->property("titleRowHeight").toInt(), "titleRowHeight");
    QTEST(page.defaultAdapter()->property("titleRowHeight").toInt(), "titleRowHeight");
    QCOMPARE(page.row("Static IP")->height(), 0.78 * rowHeight);
    QCOMPARE(page.row("IP Address")->height(), 0.75 * rowHeight);
    QCOMPARE(page.toggleOf("Static IP")->height(), 0.484 * rowHeight);
    QCOMPARE(page.toggleOf("Static IP")->width(), 2.2 * 0.484 * rowHeight);
    QCOMPARE(page.addressOf("IP Address")->height(), 0.581 * rowHeight);
    QCOMPARE(page.addressOf("IP Address")->width(), 7.1 * 0.581 * rowHeight);
    QCOMPARE(page.adapterButton("LAN1")->height(), 0.5 * rowHeight);
    const QQuickItem *field = page.addressOf("IP Address");
    const int rightMargin = rowHeight / 2;
    QCOMPARE(page.network()->width() - field->x() - field->width(), qreal(rightMargin));
    page.select("4G");
    QCOMPARE(page.row("Signal")->height(), rowHeight * 32.0 / 31.0);
    page.select("Wi-Fi");
    QCOMPARE(page.row("Online")->height(), rowHeight * 41.0 / 31.0);
}

PANEL_TEST_MAIN(TestNetworkSelection)

#include "test_network_selection.moc"
