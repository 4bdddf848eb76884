#include "tests/screen/questions.h"
#include "tests/screen/wifiscreen.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

namespace {

QStringList linkRead()
{
    return {QStringLiteral("isWifiConnected()"), QStringLiteral("currentWifiSsid()"),
            QStringLiteral("currentWifiSignalStrength()")};
}

QStringList ofLink(const QStringList &questions)
{
    return questions.filter(QStringLiteral("Wifi"));
}

void report(const char *operation)
{
    QVERIFY(HmiSimulator::fireNext(operation));
    QCoreApplication::processEvents();
}

// On a busy machine a status tick would ask in the middle of what is counted.
void stopTicks(QQuickItem *root)
{
    const auto timers = root->findChildren<QTimer *>();
    for (QTimer *timer : timers) {
        if (!timer->isSingleShot())
            timer->blockSignals(true);
    }
}

/// The Wi-Fi page with a list, on a panel that reports by hand.
class Page : public WifiScreen
{
public:
    Page() : WifiScreen({1024, 600}, false)
    {
        HmiSimulator::setManual(true);
        HmiSimulator::dropPending();
        toWifi();
        stopTicks(root());
        tapScan();
        report("scanWifi");
        Operator::settle();
    }
    void tapScan() const { Operator::tap(part("scanButton")); }
    void closeDialog() const
    {
        Operator::tap(
            Operator::byIcon(dialogBody()->parentItem(), QStringLiteral("close.png"))->parentItem());
        Operator::settle(20);
    }
    void tapNetwork(const char *name) const { Operator::tap(row(QString::fromUtf8(name))); }
};

} // namespace

/// With a service that takes its time for an answer, each question costs: nothing is asked twice at once.
class TestWifiReadings : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void pageShown();
    void scan();
    void networkTapped();
    void networkTappedDuringAnAttempt();
    void reports_data();
    void reports();
    void lease();
    void joinedWithAnAddress();
    void shownAgainByTheHost();
    void deletedByTheHost();
    void reset();
};

void TestWifiReadings::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestWifiReadings::pageShown()
{
    WifiScreen screen({1024, 600}, false);
    Questions questions;
    // The first time it is made as well.
    for (int visit = 0; visit < 2; ++visit) {
        stopTicks(screen.root());
        questions.begin();
        screen.toWifi();
        QCOMPARE(questions.repeated(), QStringList());
        QCOMPARE(ofLink(questions.all()), linkRead());
        Operator::tap(screen.arrow());
        Operator::settle();
    }
}

void TestWifiReadings::scan()
{
    const Page page;
    Questions questions;
    page.tapScan();
    QCOMPARE(questions.all(), QStringList(QStringLiteral("scanWifi()")));
    questions.begin();
    report("scanWifi");
    QCOMPARE(questions.repeated(), QStringList());
    QCOMPARE(questions.all(), linkRead());
}

void TestWifiReadings::networkTapped()
{
    const Page page;
    Questions questions;
    // One that asks for a password.
    page.tapNetwork("Maintenance");
    QVERIFY(page.dialogBody());
    QCOMPARE(questions.all(), QStringList());
    page.closeDialog();
    page.tapNetwork("Works Hall Guests");
    QCOMPARE(questions.all(), QStringList(QStringLiteral(R"(connectWifi("Works Hall Guests", ""))")));
}

void TestWifiReadings::networkTappedDuringAnAttempt()
{
    HmiSimulator::setNetworks({{"open", "", 80}, {"secured", "secret", 70}});
    const Page page;
    page.tapNetwork("open");
    page.closeDialog();
    Questions questions;
    page.tapNetwork("secured");
    QCOMPARE(questions.repeated(), QStringList());
    // No link, hence no strength.
    QCOMPARE(questions.all(), linkRead().mid(0, 2));
}

void TestWifiReadings::reports_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("offline") << 0 << true;
    QTest::newRow("connecting") << 1 << false;
    QTest::newRow("connected") << 2 << true;
    QTest::newRow("timed out") << 3 << true;
    QTest::newRow("wrong password") << 4 << true;
    QTest::newRow("unknown") << 5 << false;
}

void TestWifiReadings::reports()
{
    QFETCH(int, state);
    QFETCH(bool, isRead);
    HmiSimulator::change([state](HmiSimulator::Panel &panel) { panel.faults.connect = {state}; });
    const Page page;
    page.tapNetwork("Works Hall Guests");
    Questions questions;
    report("connectWifi");
    QCOMPARE(questions.repeated().join('\n'), QString());
    QCOMPARE(questions.all().filter("isWifiConnected").size(), isRead ? 1 : 0);
}

void TestWifiReadings::lease()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::WIFI].dhcp = true;
        panel.faults.connect = {2};
    });
    const Page page;
    page.tapNetwork("Works Hall Guests");
    report("connectWifi");
    Questions questions;
    report("setDHCP");
    QCOMPARE(questions.repeated().join('\n'), QString());
    QCOMPARE(questions.all().filter("isWifiConnected").size(), 1);
}

void TestWifiReadings::joinedWithAnAddress()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::WIFI].dhcp = false;
        panel.faults.connect = {2};
    });
    const Page page;
    page.tapNetwork("Works Hall Guests");
    HmiSimulator::joinNetwork("Works Hall Guests");
    HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, HMI::IP(0x0A000002), HMI::IP(0xFFFFFF00),
                                 HMI::IP(0x0A000001));
    Questions questions;
    report("connectWifi");
    QCOMPARE(questions.repeated().join('\n'), QString());
    QCOMPARE(questions.all().filter("getIp(WIFI)").size(), 1);
    QCOMPARE(questions.all().filter("setDHCP"), QStringList());
}

void TestWifiReadings::shownAgainByTheHost()
{
    const Page page;
    page.root()->setVisible(false);
    Questions questions;
    page.root()->setVisible(true);
    QCOMPARE(questions.repeated().join('\n'), QString());
    QCOMPARE(ofLink(questions.all()).filter("Ssid").size(), 1);
}

void TestWifiReadings::deletedByTheHost()
{
    const Page page;
    Questions questions;
    delete page.root();
    QCOMPARE(questions.all().join('\n'), QString());
}

void TestWifiReadings::reset()
{
    Page page;
    Questions questions;
    page.tapText(QStringLiteral("Reset"));
    QCOMPARE(questions.repeated(), QStringList());
    QCOMPARE(questions.all().value(0), QStringLiteral("resetWifi()"));
}

PANEL_TEST_MAIN(TestWifiReadings)

#include "test_wifi_readings.moc"
