#include "tests/screen/networkpage.h"

#include <algorithm>

/// The Network page in the hands of a host that hides it or takes it away whenever it likes.
class TestNetworkLifetime : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void halfTypedAddressIsNotWritten_data();
    void halfTypedAddressIsNotWritten();
    void leaseRequestGoesWithTheScreen();
    void deletedWithSomethingOpen_data();
    void deletedWithSomethingOpen();
    void watchedAdapterGoesWithTheScreen_data();
    void watchedAdapterGoesWithTheScreen();
};

void TestNetworkLifetime::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestNetworkLifetime::halfTypedAddressIsNotWritten_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("end");
    for (const char *field : {"IP Address", "Default Gateway", "DNS 1", "DNS 2"}) {
        for (const char *end :
             {"root deleted", "window deleted", "root hidden", "closed", "root detached",
              "root in another window", "item around the root detached", "item around the root deleted"})
            QTest::newRow(qPrintable(QString("%1, %2").arg(field, end))) << field << end;
    }
}

void TestNetworkLifetime::halfTypedAddressIsNotWritten()
{
    QFETCH(QString, field);
    QFETCH(QString, end);
    QQuickWindow another;
    NetworkPage page;
    auto *around = new QQuickItem(page.glass());
    if (end.startsWith("item around")) {
        page.screen().root()->setParent(around);
        page.screen().root()->setParentItem(around);
    }
    page.edit(field.startsWith("DNS") ? page.dnsInput(field.rightRef(1).toInt()) : page.addressOf(field), 0,
              "1");
    HmiSimulator::clearJournal();
    QQuickItem *root = page.screen().root();
    if (end == "root deleted")
        delete root;
    else if (end == "window deleted")
        page.destroy();
    else if (end == "root hidden")
        root->setVisible(false);
    else if (end == "root detached")
        root->setParentItem(nullptr);
    else if (end == "root in another window")
        root->setParentItem(another.contentItem());
    else if (end == "item around the root deleted")
        delete around;
    else if (end == "item around the root detached")
        around->setParentItem(nullptr);
    else
        page.screen().close();
    QCoreApplication::processEvents();
    QCOMPARE(Journal::calls(), QStringList());
}

void TestNetworkLifetime::leaseRequestGoesWithTheScreen()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN1, false);
    NetworkPage page;
    page.select("LAN1");
    page.tapToggle("Disable Network");
    QVERIFY(page.isLeaseDue());
    HmiSimulator::clearJournal();
    const auto timers = timersBelow(page.screen().root());
    delete page.screen().root();
    QVERIFY(std::all_of(timers.begin(), timers.end(), [](const auto &timer) { return timer.isNull(); }));
    QCoreApplication::processEvents();
    QCOMPARE(Journal::calls(), QStringList());
}

void TestNetworkLifetime::deletedWithSomethingOpen_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"server list", "adapter list", "result"})
        QTest::newRow(what) << what;
}

void TestNetworkLifetime::deletedWithSomethingOpen()
{
    QFETCH(QString, what);
    NetworkPage page;
    if (what == "server list") {
        page.select("VPN");
        QVERIFY(page.openList(page.row("Server")));
    } else if (what == "adapter list") {
        QVERIFY(page.openList(page.defaultAdapter()));
    } else {
        page.tap(Operator::byText(page.defaultAdapter(), "Test"));
        QVERIFY(HmiSimulator::fireNext("pingTest"));
        QTRY_VERIFY(page.isShown("Test Result"));
    }
    HmiSimulator::clearJournal();
    delete page.screen().root();
    Operator::settle(200);
    QCOMPARE(Journal::calls(), QStringList());
    // Nothing of it stays behind on the host's glass.
    QVERIFY(!page.isShown("Test Result") && !page.isShown("Europe") && !page.isShown("Wi-Fi"));
}

void TestNetworkLifetime::watchedAdapterGoesWithTheScreen_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<int>("interval");
    QTest::newRow("Wi-Fi") << "Wi-Fi" << 2000;
    QTest::newRow("4G") << "4G" << 2000;
    QTest::newRow("VPN") << "VPN" << 3000;
}

void TestNetworkLifetime::watchedAdapterGoesWithTheScreen()
{
    QFETCH(QString, adapter);
    QFETCH(int, interval);
    NetworkPage page;
    page.select(adapter);
    const QPointer<QTimer> timer = page.timer(interval);
    QVERIFY(timer && timer->isActive());
    const auto timers = timersBelow(page.screen().root());
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    delete page.screen().root();
    QVERIFY(!timer);
    QVERIFY(std::all_of(timers.begin(), timers.end(), [](const auto &each) { return each.isNull(); }));
    QCoreApplication::processEvents();
    QCOMPARE(Journal::calls().filter(QRegularExpression("^(get4G|getVPN|isWifi)")), QStringList());
}

PANEL_TEST_MAIN(TestNetworkLifetime)

#include "test_network_lifetime.moc"
