#include "cards/network/cardnetwork.h"
#include "panel/nic.h"
#include "tests/classes/networkscene.h"
#include "tests/support/journal.h"

#include <functional>

using QSP::CardNetwork;
using QSP::NIC;

namespace {

using Operation = std::function<void(CardNetwork *)>;

constexpr NIC lan0 = HMI::SystemSet::LAN0;

const QVector<QPair<const char *, Operation>> &operations()
{
    static const QVector<QPair<const char *, Operation>> all{
        {"showItems", [](CardNetwork *card) { card->showItems(lan0, true); }},
        {"isEnable_FromSwitch", [](CardNetwork *card) { QVERIFY(!card->isEnable_FromSwitch(lan0)); }},
        {"isStatic_FromSwitch", [](CardNetwork *card) { QVERIFY(!card->isStatic_FromSwitch(lan0)); }},
        {"allow_ModifyIPInfo", [](CardNetwork *card) { QVERIFY(!card->allow_ModifyIPInfo(lan0)); }},
        {"updateEnable_IP", [](CardNetwork *card) { card->updateEnable_IP(lan0); }},
        {"updateEnable_SubnetMask", [](CardNetwork *card) { card->updateEnable_SubnetMask(lan0); }},
        {"updateEnable_Gateway", [](CardNetwork *card) { card->updateEnable_Gateway(lan0); }},
        {"updateDisplay_IP", [](CardNetwork *card) { card->updateDisplay_IP(lan0); }},
        {"updateDisplay_SubnetMask", [](CardNetwork *card) { card->updateDisplay_SubnetMask(lan0); }},
        {"updateDisplay_Gateway", [](CardNetwork *card) { card->updateDisplay_Gateway(lan0); }},
        {"updateNetInfoDisplay", [](CardNetwork *card) { card->updateNetInfoDisplay(lan0); }},
        {"updateSwitchDisplay", [](CardNetwork *card) { card->updateSwitchDisplay(lan0); }},
        {"updateSwitchDisplay_EnableDisable",
         [](CardNetwork *card) { card->updateSwitchDisplay_EnableDisable(lan0); }},
        {"onEnableDHCP", [](CardNetwork *card) { card->onEnableDHCP(lan0, HMI::SystemSet::DHCP_OK); }},
        {"clear4GDisplay", [](CardNetwork *card) { card->clear4GDisplay(); }},
        {"update4GSignal", [](CardNetwork *card) { card->update4GSignal(); }},
        {"updateVPNStatus", [](CardNetwork *card) { card->updateVPNStatus(); }},
        {"updateWifiStatus", [](CardNetwork *card) { card->updateWifiStatus(); }},
        {"updateWifiTimer", [](CardNetwork *card) { card->updateWifiTimer(); }},
        {"setWifiConnecting", [](CardNetwork *card) { card->setWifiConnecting(false); }},
        {"wifiReset", [](CardNetwork *card) { emit card->wifiReset(); }},
        {"setFontPixelSize", [](CardNetwork *card) { card->setFontPixelSize(7); }},
        {"changeNIC", [](CardNetwork *card) { card->changeNIC(HMI::SystemSet::WIFI, lan0); }},
    };
    return all;
}

} // namespace

Q_DECLARE_METATYPE(Operation)

/// The network card while its document is not complete: there are no rows, and nothing happens to them.
class TestCardNetworkBare : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void operationsBeforeCompletion_data();
    void operationsBeforeCompletion();
    void cardsOfAScreenAreLeftAlone();
    void choiceBeforeCompletion();
};

void TestCardNetworkBare::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setManual(true);
}

void TestCardNetworkBare::operationsBeforeCompletion_data()
{
    QTest::addColumn<Operation>("operation");
    for (const auto &operation : operations())
        QTest::newRow(operation.first) << operation.second;
}

void TestCardNetworkBare::operationsBeforeCompletion()
{
    QFETCH(Operation, operation);
    CardNetwork card;
    HmiSimulator::clearJournal();
    operation(&card);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardNetworkBare::cardsOfAScreenAreLeftAlone()
{
    const NetworkScene screen;
    NetworkScene::appRoot()->setCurrentPage(QSP::AppRootItem::MenuIndex::Network);
    HmiSimulator::clearJournal();
    CardNetwork card;
    for (const auto &operation : operations())
        operation.second(&card);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardNetworkBare::choiceBeforeCompletion()
{
    CardNetwork card;
    QSignalSpy changed(&card, &CardNetwork::currentNICChanged);
    card.setCurrentNIC(HMI::SystemSet::LAN1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(card.currentNIC(), HMI::SystemSet::LAN1);
    // What is written is written; only the rows have nothing to follow with.
    card.enableNIC(HMI::SystemSet::LAN1, true);
    card.enableStatic(HMI::SystemSet::LAN1, true);
    QCOMPARE(Journal::calls(),
             (QStringList{"enableNIC(LAN1, false, persist)", "setDHCP(LAN1, false, persist)"}));
}

PANEL_TEST_MAIN(TestCardNetworkBare)

#include "test_cardnetwork_bare.moc"
