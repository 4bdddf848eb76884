#include "tests/screen/networkpage.h"

namespace {

QQuickItem *box(const NetworkPage &page)
{
    return page.defaultAdapter()->property("combobox").value<QQuickItem *>();
}

int currentIndex(const NetworkPage &page)
{
    return box(page)->property("currentIndex").toInt();
}

QStringList column(const NetworkPage &page, const char *key)
{
    QStringList values;
    const QVariantList model = box(page)->property("model").toList();
    for (const QVariant &entry : model)
        values << entry.toMap().value(QLatin1String(key)).toString();
    return values;
}

} // namespace

/// The default-adapter card: its list and its ping test.
class TestDefaultAdapter : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void listsWhatIsPresentAndEnabled();
    void disablingOnTheNetworkCardShortensTheList();
    void defaultThatIsNotListedSelectsNothing_data();
    void defaultThatIsNotListedSelectsNothing();
    void selectionFollowsTheServiceAndWritesNothing();
    void pickingWritesAtOnce();
    void refusedChoiceShowsTheServicesAgain();
    void languageRenamesTheEntries();
    void languageSwitchShowsTheDefaultInAChangedList();
    void pingResults_data();
    void pingResults();
    void pingUsesTheServicesDefault();
    void pingDeliveries_data();
    void pingDeliveries();
    void lateResultStaysAwayFromOtherPages();
    void lateResultAfterTheScreenIsGone();
    void closingTheScreenClosesTheDialog();
};

void TestDefaultAdapter::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestDefaultAdapter::listsWhatIsPresentAndEnabled()
{
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN1, false);
    HmiSimulator::setDefaultNic(HMI::SystemSet::MOBILE_4G);
    NetworkPage page;
    QCOMPARE(column(page, "name"), QStringList({"LAN0", "Wi-Fi", "4G"}));
    QCOMPARE(column(page, "nic"), QStringList({"1", "4", "16"}));
    QCOMPARE(currentIndex(page), 2);
}

void TestDefaultAdapter::disablingOnTheNetworkCardShortensTheList()
{
    HmiSimulator::setAdapters(1);
    NetworkPage page;
    QCOMPARE(column(page, "name"), QStringList("LAN0"));
    QCOMPARE(currentIndex(page), 0);
    page.tapToggle("Disable Network");
    QCOMPARE(column(page, "name"), QStringList());
    QCOMPARE(currentIndex(page), -1);
    page.tapToggle("Disable Network");
    QCOMPARE(column(page, "name"), QStringList("LAN0"));
    QCOMPARE(currentIndex(page), 0);
    QCOMPARE(Journal::calls("setDefaultNIC"), QStringList());
}

void TestDefaultAdapter::defaultThatIsNotListedSelectsNothing_data()
{
    QTest::addColumn<int>("nic");
    for (const int nic : {64, 0, 3, 8, -1, 4096})
        QTest::newRow(qPrintable(QString::number(nic))) << nic;
}

void TestDefaultAdapter::defaultThatIsNotListedSelectsNothing()
{
    QFETCH(int, nic);
    HmiSimulator::setDefaultNic(nic);
    NetworkPage page;
    QCOMPARE(currentIndex(page), -1);
    QCOMPARE(Journal::calls("setDefaultNIC"), QStringList());
}

void TestDefaultAdapter::selectionFollowsTheServiceAndWritesNothing()
{
    HmiSimulator::setDefaultNic(HMI::SystemSet::LAN1);
    NetworkPage page;
    QCOMPARE(currentIndex(page), 1);
    // The entries move up under the selection.
    page.tapToggle("Disable Network");
    QCOMPARE(column(page, "name"), QStringList({"LAN1", "Wi-Fi", "4G"}));
    QCOMPARE(currentIndex(page), 0);
    page.screen().close();
    HmiSimulator::setDefaultNic(HMI::SystemSet::WIFI);
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN1, false);
    page.screen().open();
    QCOMPARE(column(page, "name"), QStringList({"Wi-Fi", "4G"}));
    QCOMPARE(currentIndex(page), 0);
    QCOMPARE(Journal::calls("setDefaultNIC"), QStringList());
}

void TestDefaultAdapter::pickingWritesAtOnce()
{
    NetworkPage page;
    QQuickItem *list = page.openList(page.defaultAdapter());
    Operator::tap(Operator::byText(list, "Wi-Fi"));
    QTRY_COMPARE(Journal::calls("setDefaultNIC"), QStringList("setDefaultNIC(WIFI, no restart)"));
    QCOMPARE(HmiSimulator::panel().defaultNic, 4);
    // The list follows a language switch while it is open.
    list = page.openList(page.defaultAdapter());
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QVERIFY(Operator::byText(list, "有线网络1"));
    QVERIFY(!Operator::byText(list, "LAN1"));
    QCOMPARE(Journal::calls("setDefaultNIC").size(), 1);
}

void TestDefaultAdapter::refusedChoiceShowsTheServicesAgain()
{
    NetworkPage page;
    QQuickItem *list = page.openList(page.defaultAdapter());
    // It vanishes under the operator's finger: the service does not take it any more.
    HmiSimulator::setAdapters(1 | 2 | 16);
    Operator::tap(Operator::byText(list, "Wi-Fi"));
    QTRY_COMPARE(Journal::calls("setDefaultNIC"), QStringList("setDefaultNIC(WIFI, no restart)"));
    QCOMPARE(HmiSimulator::panel().defaultNic, 1);
    QCOMPARE(column(page, "name"), QStringList({"LAN0", "LAN1", "4G"}));
    QCOMPARE(currentIndex(page), 0);
    QVERIFY(Operator::byText(box(page), "LAN0"));
}

void TestDefaultAdapter::languageRenamesTheEntries()
{
    HmiSimulator::setDefaultNic(HMI::SystemSet::LAN1);
    NetworkPage page;
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QCOMPARE(column(page, "name"), QStringList({"有线网络0", "有线网络1", "无线网络", "4G"}));
    QCOMPARE(column(page, "key"), QStringList({"LAN0", "LAN1", "Wi-Fi", "4G"}));
    QCOMPARE(column(page, "nic"), QStringList({"1", "2", "4", "16"}));
    QCOMPARE(currentIndex(page), 1);
    QVERIFY(Operator::byText(box(page), "有线网络1"));
    page.switchLanguage(HMI::SystemSet::ENGLISH);
    QVERIFY(Operator::byText(box(page), "LAN1"));
    QCOMPARE(Journal::calls("setDefaultNIC"), QStringList());
}

void TestDefaultAdapter::languageSwitchShowsTheDefaultInAChangedList()
{
    HmiSimulator::setDefaultNic(HMI::SystemSet::LAN1);
    NetworkPage page;
    // Switched off elsewhere: the entries move up under the selection.
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN0, false);
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QCOMPARE(column(page, "nic"), QStringList({"2", "4", "16"}));
    QCOMPARE(currentIndex(page), 0);
    QCOMPARE(Journal::calls("setDefaultNIC"), QStringList());
}

void TestDefaultAdapter::pingResults_data()
{
    QTest::addColumn<bool>("answers");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    QTest::newRow("yes") << true << "Test successful!"
                         << "测试成功！";
    QTest::newRow("no") << false << "Test failed!"
                        << "测试失败！";
}

void TestDefaultAdapter::pingResults()
{
    QFETCH(bool, answers);
    QFETCH(QString, english);
    QFETCH(QString, chinese);
    HmiSimulator::change([answers](HmiSimulator::Panel &panel) { panel.faults.ping = answers; });
    NetworkPage page;
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    QCOMPARE(Journal::calls("pingTest"), QStringList("pingTest(LAN0)"));
    QVERIFY(!page.isShown("Test Result"));
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(page.isShown(english));
    QVERIFY(page.isShown("Test Result"));
    const auto color = Operator::byText(page.glass(), english)->property("color").value<QColor>();
    QCOMPARE(color, QColor(0x32, 0x69, 0xCE));
    page.switchLanguage(HMI::SystemSet::CHINESE);
    QVERIFY(page.isShown(chinese));
    QVERIFY(page.isShown("测试结果"));
    Operator::key(page.window(), Qt::Key_Escape);
    QTRY_VERIFY(!page.isShown(chinese));
}

void TestDefaultAdapter::pingUsesTheServicesDefault()
{
    NetworkPage page;
    HmiSimulator::setDefaultNic(HMI::SystemSet::MOBILE_4G);
    QCOMPARE(currentIndex(page), 0);
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    QCOMPARE(Journal::calls("pingTest"), QStringList("pingTest(MOBILE_4G)"));
}

void TestDefaultAdapter::pingDeliveries_data()
{
    QTest::addColumn<int>("delivery");
    QTest::addColumn<bool>("shown");
    QTest::newRow("synchronous") << int(HmiSimulator::Delivery::Synchronous) << true;
    QTest::newRow("twice") << int(HmiSimulator::Delivery::Twice) << true;
    QTest::newRow("late") << int(HmiSimulator::Delivery::Late) << true;
    QTest::newRow("never") << int(HmiSimulator::Delivery::Never) << false;
}

void TestDefaultAdapter::pingDeliveries()
{
    QFETCH(int, delivery);
    QFETCH(bool, shown);
    HmiSimulator::setManual(false);
    HmiSimulator::setDelays(1);
    HmiSimulator::setDelivery(HmiSimulator::Operation::Ping, HmiSimulator::Delivery(delivery), 100);
    NetworkPage page;
    QSignalSpy results(page.defaultAdapter(), SIGNAL(pingTestResult(bool)));
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    QVERIFY(HmiSimulator::waitIdle());
    QTRY_COMPARE(page.isShown("Test Result"), shown);
    // No second answer, and none of a panel that gave none.
    Operator::settle();
    QCOMPARE(page.isShown("Test Result"), shown);
    QCOMPARE(results.count(), shown ? 1 : 0);
}

void TestDefaultAdapter::lateResultStaysAwayFromOtherPages()
{
    NetworkPage page;
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    page.screen().tapMenu("Version");
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    Operator::settle(200);
    QVERIFY(!page.isShown("Test Result"));
    page.screen().tapMenu("Network");
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    page.screen().close();
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    Operator::settle(200);
    QVERIFY(!page.isShown("Test Result"));
}

void TestDefaultAdapter::lateResultAfterTheScreenIsGone()
{
    NetworkPage page;
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    page.destroy();
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    Operator::settle();
}

void TestDefaultAdapter::closingTheScreenClosesTheDialog()
{
    NetworkPage page;
    page.tap(Operator::byText(page.defaultAdapter(), "Test"));
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(page.isShown("Test Result"));
    page.screen().close();
    QTRY_VERIFY(!page.isShown("Test Result"));
    page.screen().open();
    Operator::settle();
    QVERIFY(!page.isShown("Test Result"));
}

PANEL_TEST_MAIN(TestDefaultAdapter)

#include "test_defaultadapter.moc"
