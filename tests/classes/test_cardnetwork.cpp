#include "cards/network/cardnetwork.h"
#include "cards/network/networkmetrics.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "controls/combobox.h"
#include "shell/base/globalinfo.h"
#include "tests/classes/networkscene.h"
#include "tests/support/journal.h"

#include <QtCore/QMetaMethod>

using QSP::CardNetwork;
using QSP::NIC;

namespace {

constexpr NIC lan0 = HMI::SystemSet::LAN0;
constexpr NIC lan1 = HMI::SystemSet::LAN1;
constexpr NIC wifi = HMI::SystemSet::WIFI;
constexpr NIC mobile = HMI::SystemSet::MOBILE_4G;
constexpr NIC vpn = HMI::SystemSet::VPN;

} // namespace

/// The network card by its own interface.
class TestCardNetwork : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void signalsInTheirOrder();
    void properties();
    void metrics_data();
    void metrics();
    void selectionSignal();
    void adapterSurvivesAQueuedConnection();
    void changeFromNoAdapter();
    void switchesDecideWhatMayBeEdited();
    void rulesBeforeTheRowsAreBuilt();
    void fieldsOneByOne();
    void disabledAdapterKeepsItsDisplay();
    void switchRefreshes();
    void adaptersWithoutSuchRows_data();
    void adaptersWithoutSuchRows();
    void mobileTimer();
    void wifiTimerNeedsTheSelection();
    void addressAnswerOfAnUnknownAdapter();
    void rowsOfUnknownValues();
    void wifiTellsBeforeItSwitches();
    void tinyScreens_data();
    void tinyScreens();

private:
    QTimer *timer(int interval) const;

    std::unique_ptr<NetworkScene> m_screen;
    CardNetwork *m_card = nullptr;
};

void TestCardNetwork::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(87);
    HmiSimulator::setManual(true);
    m_screen = std::make_unique<NetworkScene>();
    m_card = NetworkScene::networkCard<CardNetwork>(QSP::AppRootItem::Cards::Network);
    QVERIFY(m_card);
    HmiSimulator::clearJournal();
}

void TestCardNetwork::cleanup()
{
    m_screen.reset();
    endWatch();
}

QTimer *TestCardNetwork::timer(int interval) const
{
    const auto timers = m_card->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTimer *candidate : timers) {
        if (candidate->interval() == interval)
            return candidate;
    }
    return nullptr;
}

void TestCardNetwork::signalsInTheirOrder()
{
    QStringList names;
    const QMetaObject &meta = CardNetwork::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            names << QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(names,
             QStringList({"rowHeightChanged()", "fontPixelSizeChanged()",
                          "currentNICChanged(HMI::SystemSet::NIC,HMI::SystemSet::NIC)",
                          "nicButtonClicked(HMI::SystemSet::NIC)", "netDisabledChanged()",
                          "useStaticIpChanged(HMI::SystemSet::NIC)", "switchToWifiCard()",
                          "wifiEnableChanged(bool)", "wifiReset()", "wifiStatusChanged(bool,QString)"}));
}

void TestCardNetwork::properties()
{
    QSignalSpy height(m_card, &CardNetwork::rowHeightChanged);
    QSignalSpy size(m_card, &CardNetwork::fontPixelSizeChanged);
    m_card->setCurrentNIC(vpn);
    auto *servers = m_card->findChild<QSP::ComboBox *>();
    QVERIFY(servers);
    QCOMPARE(servers->fontPixelSize(), 20);
    m_card->setProperty("rowHeight", 70);
    m_card->setProperty("rowHeight", 70);
    m_card->setProperty("fontPixelSize", 23);
    m_card->setProperty("fontPixelSize", 23);
    QCOMPARE(m_card->rowHeight(), 70);
    QCOMPARE(servers->fontPixelSize(), 23);
    QCOMPARE(height.count(), 1);
    QCOMPARE(size.count(), 1);
}

void TestCardNetwork::metrics_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QVector<int>>("expected");
    QTest::newRow("landscape") << QSize(1024, 600) << QVector<int>{62, 20, 52};
    QTest::newRow("small") << QSize(800, 480) << QVector<int>{48, 15, 40};
    QTest::newRow("large") << QSize(1920, 1080) << QVector<int>{116, 37, 98};
    QTest::newRow("square") << QSize(800, 800) << QVector<int>{48, 15, 40};
    QTest::newRow("portrait") << QSize(600, 1024) << QVector<int>{62, 20, 52};
    QTest::newRow("narrow portrait") << QSize(599, 1024) << QVector<int>{62, 20, 41};
}

void TestCardNetwork::metrics()
{
    QFETCH(QSize, size);
    QFETCH(QVector<int>, expected);
    QSP::GlobalInfo &info = QSP::GlobalInfo::instance();
    info.setScreenWidth(size.width());
    info.setScreenHeight(size.height());
    const auto metrics = QSP::NetworkMetrics::ofScreen();
    QCOMPARE(QVector<int>({metrics.rowHeight, metrics.fontPixelSize, metrics.titleRowHeight}), expected);
    const CardNetwork card;
    QCOMPARE(card.rowHeight(), expected.at(0));
    QCOMPARE(card.fontPixelSize(), expected.at(1));
}

void TestCardNetwork::selectionSignal()
{
    QSignalSpy changed(m_card, &CardNetwork::currentNICChanged);
    QCOMPARE(m_card->currentNIC(), lan0);
    m_card->setCurrentNIC(lan0);
    QCOMPARE(changed.count(), 0);
    m_card->setCurrentNIC(wifi);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<NIC>(), wifi);
    QCOMPARE(changed.at(0).at(1).value<NIC>(), lan0);
    QCOMPARE(m_card->currentNIC(), wifi);
}

void TestCardNetwork::adapterSurvivesAQueuedConnection()
{
    QVector<int> seen;
    connect(
        m_card, &CardNetwork::currentNICChanged, this,
        [seen = &seen](NIC now, NIC before) { *seen << now << before; }, Qt::QueuedConnection);
    m_card->setCurrentNIC(mobile);
    QCoreApplication::processEvents();
    QCOMPARE(seen, QVector<int>({16, 1}));
}

void TestCardNetwork::changeFromNoAdapter()
{
    const int rows = m_card->layout()->childItems().size();
    m_card->changeNIC(lan0, QSP::g_noAdapter);
    m_card->changeNIC(QSP::g_noAdapter, QSP::g_noAdapter);
    QCOMPARE(m_card->layout()->childItems().size(), rows);
    QVERIFY(m_card->rowsOf(lan0).ip->isVisible());
}

void TestCardNetwork::switchesDecideWhatMayBeEdited()
{
    const QSP::AdapterRows rows = m_card->rowsOf(lan0);
    QVERIFY(m_card->isEnable_FromSwitch(lan0));
    QVERIFY(m_card->isStatic_FromSwitch(lan0));
    QVERIFY(m_card->allow_ModifyIPInfo(lan0));
    rows.enable->setOn(true);
    QVERIFY(!m_card->isEnable_FromSwitch(lan0));
    QVERIFY(m_card->isStatic_FromSwitch(lan0));
    QVERIFY(!m_card->allow_ModifyIPInfo(lan0));
    QVERIFY(!rows.ip->isEnabled());
    // The service still says "disabled", the switch counts.
    rows.enable->setOn(false);
    HmiSimulator::setNicEnabled(lan0, false);
    QVERIFY(m_card->allow_ModifyIPInfo(lan0));
    rows.fixed->setOn(false);
    QVERIFY(!m_card->allow_ModifyIPInfo(lan0));
}

void TestCardNetwork::rulesBeforeTheRowsAreBuilt()
{
    QVERIFY(!m_card->isEnable_FromSwitch(lan1));
    QVERIFY(!m_card->isStatic_FromSwitch(lan1));
    QVERIFY(!m_card->allow_ModifyIPInfo(lan1));
    m_card->updateNetInfoDisplay(lan1);
    m_card->updateSwitchDisplay(lan1);
    m_card->updateSwitchDisplay_EnableDisable(lan1);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardNetwork::fieldsOneByOne()
{
    const QSP::AdapterRows rows = m_card->rowsOf(lan0);
    HmiSimulator::setLiveAddress(lan0, 0x0A000002, 0xFF000000, 0x0A000001);
    m_card->updateDisplay_IP(lan0);
    QCOMPARE(rows.ip->ip(), QString("10.0.0.2"));
    QCOMPARE(rows.mask->ip(), QString("255.255.255.0"));
    m_card->updateDisplay_SubnetMask(lan0);
    QCOMPARE(rows.mask->ip(), QString("255.0.0.0"));
    m_card->updateDisplay_Gateway(lan0);
    QCOMPARE(rows.gateway->ip(), QString("10.0.0.1"));
    for (auto *field : {rows.ip, rows.mask, rows.gateway})
        field->setEnabled(false);
    m_card->updateEnable_SubnetMask(lan0);
    QVERIFY(!rows.ip->isEnabled() && rows.mask->isEnabled() && !rows.gateway->isEnabled());
    m_card->updateEnable_IP(lan0);
    m_card->updateEnable_Gateway(lan0);
    QVERIFY(rows.ip->isEnabled() && rows.gateway->isEnabled());
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardNetwork::disabledAdapterKeepsItsDisplay()
{
    const QSP::AdapterRows rows = m_card->rowsOf(lan0);
    HmiSimulator::setLiveAddress(lan0, 0x0A000002, 0xFF000000, 0x0A000001);
    // Disabled as the service says, or as the switch says.
    HmiSimulator::setNicEnabled(lan0, false);
    m_card->updateDisplay_IP(lan0);
    m_card->updateNetInfoDisplay(lan0);
    QCOMPARE(rows.ip->ip(), QString("192.168.1.10"));
    rows.enable->setOn(true);
    HmiSimulator::setNicEnabled(lan0, true);
    HmiSimulator::setLiveAddress(lan0, 0x0A000002, 0xFF000000, 0x0A000001);
    m_card->updateNetInfoDisplay(lan0);
    QCOMPARE(rows.ip->ip(), QString("192.168.1.10"));
}

void TestCardNetwork::switchRefreshes()
{
    const QSP::AdapterRows rows = m_card->rowsOf(lan0);
    HmiSimulator::setDhcpOn(lan0, true);
    m_card->updateSwitchDisplay(lan0);
    QVERIFY(!rows.fixed->on());
    m_card->updateSwitchDisplay(lan0);
    m_card->updateSwitchDisplay_static(lan0);
    QCOMPARE(Journal::calls(), QStringList("setDHCP(LAN0, true, persist)"));
    HmiSimulator::clearJournal();
    HmiSimulator::setNicEnabled(lan0, false);
    m_card->updateSwitchDisplay_EnableDisable(lan0);
    QVERIFY(rows.enable->on());
    m_card->setCurrentNIC(vpn);
    HmiSimulator::setNicEnabled(vpn, true);
    m_card->updateSwitchDisplay_EnableDisable(vpn);
    QVERIFY(m_card->rowsOf(vpn).enable->on());
    QCOMPARE(Journal::calls(),
             QStringList({"enableNIC(LAN0, false, persist)", "enableNIC(VPN, true, persist)"}));
}

void TestCardNetwork::adaptersWithoutSuchRows_data()
{
    QTest::addColumn<int>("nic");
    for (const int nic : {0, 2, 3, 8, 16, 32, 64, 128, -1})
        QTest::newRow(qPrintable(QString::number(nic))) << nic;
}

void TestCardNetwork::adaptersWithoutSuchRows()
{
    QFETCH(int, nic);
    const NIC adapter = static_cast<NIC>(nic);
    m_card->updateEnable_IP(adapter);
    m_card->updateEnable_SubnetMask(adapter);
    m_card->updateEnable_Gateway(adapter);
    m_card->updateDisplay_IP(adapter);
    m_card->updateDisplay_SubnetMask(adapter);
    m_card->updateDisplay_Gateway(adapter);
    m_card->updateNetInfoDisplay(adapter);
    m_card->updateSwitchDisplay_static(adapter);
    m_card->updateSwitchDisplay_EnableDisable(adapter);
    QVERIFY(!m_card->allow_ModifyIPInfo(adapter));
    m_card->update4GSignal();
    m_card->updateVPNStatus();
    m_card->updateWifiStatus();
    m_card->clear4GDisplay();
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardNetwork::mobileTimer()
{
    HmiSimulator::setMobile(2, 50);
    m_card->setup4GTimer(false);
    QVERIFY(!timer(2000));
    m_card->setCurrentNIC(mobile);
    QVERIFY(timer(2000)->isActive());
    QTimer *first = timer(2000);
    m_card->setup4GTimer(true);
    QCOMPARE(timer(2000), first);
    m_card->setup4GTimer(false);
    QVERIFY(!first->isActive());
    m_card->setup4GTimer(true);
    QVERIFY(first->isActive());
    QCOMPARE(first->parent(), m_card);
}

void TestCardNetwork::wifiTimerNeedsTheSelection()
{
    m_card->updateWifiTimer();
    QVERIFY(!timer(2000));
    m_card->setCurrentNIC(wifi);
    QVERIFY(timer(2000)->isActive());
    m_card->setCurrentNIC(lan0);
    QVERIFY(!timer(2000)->isActive());
    // A status asked for while another adapter is selected starts no watch.
    m_card->updateWifiStatus();
    m_card->setWifiConnecting(false);
    m_card->updateWifiTimer();
    QVERIFY(!timer(2000)->isActive());
}

void TestCardNetwork::addressAnswerOfAnUnknownAdapter()
{
    m_card->onEnableDHCP(static_cast<NIC>(8), HMI::SystemSet::DHCP_OK);
    m_card->onEnableDHCP(lan0, static_cast<HMI::SystemSet::DHCP_STATE>(99));
    m_card->enableNIC(static_cast<NIC>(8), true);
    m_card->enableStatic(vpn, true);
    m_card->enableStatic(static_cast<NIC>(128), false);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardNetwork::rowsOfUnknownValues()
{
    m_card->setCurrentNIC(static_cast<NIC>(128));
    const int rows = m_card->layout()->childItems().size();
    QVERIFY(m_card->rowsOf(vpn).enable->isVisible());
    m_card->setCurrentNIC(static_cast<NIC>(8));
    QVERIFY(!m_card->rowsOf(vpn).enable->isVisible());
    QVERIFY(m_card->rowsOf(mobile).enable->isVisible());
    m_card->setCurrentNIC(static_cast<NIC>(128));
    m_card->setCurrentNIC(static_cast<NIC>(8));
    m_card->setCurrentNIC(lan0);
    QCOMPARE(m_card->layout()->childItems().size(), rows + 3);
    QVERIFY(!m_card->rowsOf(mobile).enable->isVisible());
}

void TestCardNetwork::wifiTellsBeforeItSwitches()
{
    m_card->setCurrentNIC(wifi);
    QStringList seen;
    const auto note = [&seen](const char *what) {
        seen
            << QStringLiteral("%1 after %2").arg(QLatin1String(what)).arg(Journal::calls("enableNIC").size());
    };
    connect(m_card, &CardNetwork::wifiEnableChanged, this, [note] { note("tile"); });
    connect(m_card, &CardNetwork::netDisabledChanged, this, [note] { note("switch"); });
    QSP::BeepSwitch *disable = m_card->rowsOf(wifi).enable;
    disable->setOn(true);
    disable->setOn(false);
    QCOMPARE(seen, QStringList({"tile after 0", "switch after 1", "tile after 1", "switch after 2"}));
}

void TestCardNetwork::tinyScreens_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(1, 1), QSize(40, 30), QSize(30, 60), QSize(100, 80)})
        QTest::newRow(qPrintable(QString("%1x%2").arg(size.width()).arg(size.height()))) << size;
}

void TestCardNetwork::tinyScreens()
{
    QFETCH(QSize, size);
    m_screen.reset();
    m_screen = std::make_unique<NetworkScene>(size);
    m_card = NetworkScene::networkCard<CardNetwork>(QSP::AppRootItem::Cards::Network);
    QVERIFY(m_card);
    for (const NIC nic : {lan1, wifi, mobile, vpn, lan0})
        m_card->setCurrentNIC(nic);
}

PANEL_TEST_MAIN(TestCardNetwork)

#include "test_cardnetwork.moc"
