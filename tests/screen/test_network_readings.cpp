#include "tests/screen/networkpage.h"
#include "tests/screen/questions.h"

#include <QtCore/QRegularExpression>

namespace {

constexpr int statusInterval = 2000;
constexpr int vpnInterval = 3000;

void addAdapters()
{
    QTest::addColumn<QString>("adapter");
    for (const char *adapter : {"LAN0", "LAN1", "Wi-Fi", "4G", "VPN"})
        QTest::newRow(adapter) << adapter;
}

} // namespace

/// With a service that takes its time for an answer, each question costs: nothing is asked twice at once.
class TestNetworkReadings : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void pageShown_data();
    void pageShown();
    void opening_data();
    void opening();
    void openingWithAllRows();
    void openingInAnotherLanguage();
    void poll_data();
    void poll();
    void selection_data();
    void selection();
    void switches_data();
    void switches();
    void leaseReport();
    void defaultAdapterChosen();
};

void TestNetworkReadings::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
    HmiSimulator::joinNetwork("Plant");
}

void TestNetworkReadings::pageShown_data()
{
    QTest::addColumn<int>("adapters");
    QTest::newRow("wired") << NetworkPage::allAdapters;
    QTest::newRow("Wi-Fi alone") << 4;
}

void TestNetworkReadings::pageShown()
{
    QFETCH(int, adapters);
    HmiSimulator::setAdapters(adapters);
    ScreenFixture screen(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    screen.open();
    Questions questions;
    screen.tapMenu("Network");
    QCOMPARE(questions.repeated().join('\n'), QString());
    QVERIFY2(questions.all().size() <= 14, qPrintable(questions.all().join('\n')));
    questions.begin();
    screen.tapMenu("Version");
    screen.tapMenu("Network");
    QCOMPARE(questions.repeated().join('\n'), QString());
}

void TestNetworkReadings::opening_data()
{
    addAdapters();
}

void TestNetworkReadings::opening()
{
    QFETCH(QString, adapter);
    NetworkPage page;
    page.select(adapter);
    page.screen().close();
    Questions questions;
    page.screen().open();
    QCOMPARE(questions.repeated().join('\n'), QString());
    QVERIFY(!questions.all().isEmpty());
}

void TestNetworkReadings::openingWithAllRows()
{
    NetworkPage page;
    for (const char *adapter : {"LAN1", "4G", "VPN", "Wi-Fi"})
        page.select(adapter);
    page.screen().close();
    Questions questions;
    page.screen().open();
    QCOMPARE(questions.repeated().join('\n'), QString());
    // Also what was switched elsewhere meanwhile.
    page.screen().close();
    HmiSimulator::setNicEnabled(HMI::SystemSet::LAN0, false);
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN1, false);
    questions.begin();
    page.screen().open();
    QCOMPARE(questions.repeated().join('\n'), QString());
    QVERIFY(questions.all().contains("enableNIC(LAN0, false, persist)"));
}

void TestNetworkReadings::openingInAnotherLanguage()
{
    NetworkPage page;
    page.screen().close();
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    Questions questions;
    page.screen().open();
    QCOMPARE(questions.repeated().join('\n'), QString());
    page.screen().close();
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    page.screen().open();
}

void TestNetworkReadings::poll_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<int>("interval");
    QTest::addColumn<bool>("joined");
    QTest::newRow("4G") << "4G" << statusInterval << true;
    QTest::newRow("VPN") << "VPN" << vpnInterval << true;
    QTest::newRow("Wi-Fi") << "Wi-Fi" << statusInterval << true;
    QTest::newRow("Wi-Fi beside its page") << "Wi-Fi" << statusInterval << true;
    QTest::newRow("Wi-Fi offline") << "Wi-Fi" << statusInterval << false;
}

void TestNetworkReadings::poll()
{
    QFETCH(QString, adapter);
    QFETCH(int, interval);
    QFETCH(bool, joined);
    NetworkPage page;
    page.select(adapter);
    if (QByteArray(QTest::currentDataTag()).endsWith("page"))
        page.tap(page.row("Wi-Fi Settings"));
    Operator::settle();
    if (!joined)
        HmiSimulator::leaveNetwork();
    Questions questions;
    NetworkPage::expire(page.timer(interval));
    QCOMPARE(questions.repeated().join('\n'), QString());
    QVERIFY(!questions.all().isEmpty());
}

void TestNetworkReadings::selection_data()
{
    addAdapters();
}

void TestNetworkReadings::selection()
{
    QFETCH(QString, adapter);
    NetworkPage page;
    const QString other = adapter == "LAN0" ? QStringLiteral("LAN1") : QStringLiteral("LAN0");
    if (adapter == "LAN0")
        page.select(other);
    Questions questions;
    page.select(adapter);
    QCOMPARE(questions.repeated().join('\n'), QString());
    page.select(other);
    questions.begin();
    page.select(adapter);
    QCOMPARE(questions.repeated().join('\n'), QString());
    QVERIFY(!questions.all().isEmpty());
}

void TestNetworkReadings::switches_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<QString>("label");
    for (const char *adapter : {"LAN0", "LAN1", "Wi-Fi"}) {
        for (const char *label : {"Disable Network", "Static IP"})
            QTest::addRow("%s %s", adapter, label) << adapter << label;
    }
    QTest::newRow("4G") << "4G"
                        << "4G";
    QTest::newRow("VPN") << "VPN"
                         << "VPN";
}

void TestNetworkReadings::switches()
{
    QFETCH(QString, adapter);
    QFETCH(QString, label);
    NetworkPage page;
    page.select(adapter);
    Questions questions;
    page.tapToggle(label);
    QCOMPARE(questions.repeated().join('\n'), QString());
    questions.begin();
    page.tapToggle(label);
    QCOMPARE(questions.repeated().join('\n'), QString());
    const QRegularExpression writes("^(enableNIC|setDHCP)");
    QCOMPARE(questions.all().filter(writes).size(), 1);
}

void TestNetworkReadings::leaseReport()
{
    NetworkPage page;
    for (const char *adapter : {"LAN1", "Wi-Fi"}) {
        page.select(adapter);
        Questions questions;
        while (HmiSimulator::fireNext("setDHCP"))
            Operator::settle(20);
        QCOMPARE(questions.repeated().join('\n'), QString());
        QVERIFY(!questions.all().filter("getIp(").isEmpty());
    }
}

void TestNetworkReadings::defaultAdapterChosen()
{
    NetworkPage page;
    auto *box = Operator::byClass(page.defaultAdapter(), "QSP::ComboBox");
    Questions questions;
    box->setProperty("currentIndex", 1);
    QCOMPARE(questions.repeated().join('\n'), QString());
    QCOMPARE(questions.all().filter("setDefaultNIC"), QStringList("setDefaultNIC(LAN1, no restart)"));
}

PANEL_TEST_MAIN(TestNetworkReadings)

#include "test_network_readings.moc"
