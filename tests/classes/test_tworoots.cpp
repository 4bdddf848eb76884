#include "cards/general/cardbuzzer.h"
#include "cards/general/cardtime.h"
#include "cards/network/carddns.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/cardnic.h"
#include "controls/beepbutton.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "controls/dialog.h"
#include "controls/timeeditpopup.h"
#include "tests/classes/wifiscene.h"

using QSP::AppRootItem;
using Cards = AppRootItem::Cards;
using Page = AppRootItem::MenuIndex;

namespace {

const QSize size(1024, 600);
constexpr HMI::SystemSet::NIC lan0 = HMI::SystemSet::LAN0;
constexpr HMI::SystemSet::NIC lan1 = HMI::SystemSet::LAN1;

void setDns(HMI::SystemSet::NIC nic, quint32 first)
{
    HmiSimulator::change([=](HmiSimulator::Panel &panel) { panel.adapters[nic].dns = {first, first + 1}; });
}

/// Two screens one above the other. What the older one shows first was not made before the newer one was there.
struct TwoScreens : CardScene {
    TwoScreens() : CardScene(size), older(AppRootItem::instance())
    {
        window()->resize(size.width(), 2 * size.height());
        newer = qobject_cast<AppRootItem *>(another.init(engine(), size.width(), size.height(), 1000));
        newer->setParent(window()->contentItem());
        newer->setParentItem(window()->contentItem());
        newer->setY(size.height());
        newer->open();
        HmiSimulator::clearJournal();
    }

    template <class Card> static Card *cardOf(const AppRootItem *root, Cards kind)
    {
        return qobject_cast<Card *>(root->getCardItem(kind));
    }
    static QSP::CIpInput *dnsInput(const AppRootItem *root)
    {
        return qobject_cast<QSP::CIpInput *>(
            root->getCardItem(Cards::DNS)->property("dns1Input").value<QObject *>());
    }
    static QString firstDns(const AppRootItem *root) { return dnsInput(root)->ip(); }

    /// The password dialog on the older screen.
    QSP::Dialog *askForPassword() const
    {
        older->setCurrentPage(Page::Network);
        cardOf<QSP::CardNetwork>(older, Cards::Network)->setCurrentNIC(HMI::SystemSet::WIFI);
        older->setCurrentPage(Page::Wifi);
        auto *page = cardOf<QSP::CardWifi>(older, Cards::Wifi);
        Operator::settle();
        Operator::tap(page->property("scanButton").value<QQuickItem *>());
        WifiScene::report("scanWifi");
        Operator::settle();
        Operator::tap(
            Operator::ancestorOf(Operator::byText(page, QStringLiteral("Maintenance")), "QSP::WifiRow"));
        Operator::settle();
        return page->findChild<QSP::Dialog *>();
    }

    ImplSystemSet another;
    AppRootItem *older;
    AppRootItem *newer = nullptr;
};

} // namespace

/// A host that builds the screen anew while the old one is still there: each card works with its own screen.
class TestTwoRoots : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cardsFollowTheirNetworkCard();
    void openingRereads();
    void popupsStandOnTheirScreen();
    void popupsCloseWithTheirScreen();
    void passwordDialogClosesWithItsScreen();
    void popupsAreDisabledWithTheirScreen();
    void wifiPageStandsOnItsScreen();
    void joiningTellsItsNetworkCard();
    void editEndsOnItsScreen();
    void editGoesOnWhileAnotherScreenIsHidden();
    void editGoesOnWhileAnotherScreenIsBuilt();
};

void TestTwoRoots::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setManual(true);
}

void TestTwoRoots::cardsFollowTheirNetworkCard()
{
    setDns(lan0, 0x01010101);
    setDns(lan1, 0x02020201);
    TwoScreens screens;
    screens.older->setCurrentPage(Page::Network);
    screens.newer->setCurrentPage(Page::Network);
    auto *olderNetwork = TwoScreens::cardOf<QSP::CardNetwork>(screens.older, Cards::Network);
    QCOMPARE(TwoScreens::firstDns(screens.older), QStringLiteral("1.1.1.1"));
    olderNetwork->setCurrentNIC(lan1);
    QCOMPARE(TwoScreens::firstDns(screens.older), QStringLiteral("2.2.2.1"));
    QCOMPARE(TwoScreens::firstDns(screens.newer), QStringLiteral("1.1.1.1"));

    // The tick and the report that show the live addresses let the servers be shown again.
    setDns(lan1, 0x03030301);
    olderNetwork->updateNetInfoDisplay(lan1);
    QCOMPARE(TwoScreens::firstDns(screens.older), QStringLiteral("3.3.3.1"));

    // Switching an adapter off on one screen takes it from the list on that screen.
    const auto listed = [](const AppRootItem *root) {
        const auto *box = root->getCardItem(Cards::NIC)->property("combobox").value<QObject *>();
        return box->property("model").toList().size();
    };
    const int before = listed(screens.older);
    olderNetwork->rowsOf(lan1).enable->setOn(true);
    QCOMPARE(listed(screens.older), before - 1);
    QVERIFY(!TwoScreens::dnsInput(screens.older)->isEnabled());
    QVERIFY(TwoScreens::dnsInput(screens.newer)->isEnabled());
}

void TestTwoRoots::openingRereads()
{
    TwoScreens screens;
    screens.older->setCurrentPage(Page::Network);
    auto *network = TwoScreens::cardOf<QSP::CardNetwork>(screens.older, Cards::Network);
    QSignalSpy buzzerOfOlder(screens.older->getCardItem(Cards::Buzzer), SIGNAL(buzzerOnChanged()));
    QSignalSpy buzzerOfNewer(screens.newer->getCardItem(Cards::Buzzer), SIGNAL(buzzerOnChanged()));
    screens.older->close();
    HmiSimulator::setNicEnabled(lan0, false);
    setDns(lan0, 0x04040401);
    screens.older->open();
    QVERIFY(network->rowsOf(lan0).enable->on());
    QCOMPARE(TwoScreens::firstDns(screens.older), QStringLiteral("4.4.4.1"));
    QCOMPARE(buzzerOfOlder.count(), 1);
    QCOMPARE(buzzerOfNewer.count(), 0);
    screens.newer->close();
    screens.newer->open();
    QCOMPARE(buzzerOfOlder.count(), 1);
    QCOMPARE(buzzerOfNewer.count(), 1);
}

void TestTwoRoots::popupsStandOnTheirScreen()
{
    TwoScreens screens;
    auto *clock = TwoScreens::cardOf<QSP::CardTime>(screens.older, Cards::Time);
    clock->openDialog();
    auto *editor = clock->findChild<QSP::TimeEditPopup *>();
    QCOMPARE(editor->parentItem(), screens.older);
    editor->close();

    screens.older->setCurrentPage(Page::Network);
    auto *adapters = TwoScreens::cardOf<QSP::CardNIC>(screens.older, Cards::NIC);
    adapters->onPingTestResult(true);
    auto *result = adapters->findChild<QSP::Dialog *>();
    QVERIFY(result);
    QCOMPARE(result->parentItem(), screens.older);
}

void TestTwoRoots::popupsCloseWithTheirScreen()
{
    TwoScreens screens;
    auto *clock = TwoScreens::cardOf<QSP::CardTime>(screens.older, Cards::Time);
    clock->openDialog();
    auto *editor = clock->findChild<QSP::TimeEditPopup *>();
    QTRY_VERIFY(editor->isOpened());
    screens.older->close();
    QTRY_VERIFY(!editor->isVisible());

    screens.older->open();
    screens.older->setCurrentPage(Page::Network);
    auto *adapters = TwoScreens::cardOf<QSP::CardNIC>(screens.older, Cards::NIC);
    adapters->onPingTestResult(true);
    auto *result = adapters->findChild<QSP::Dialog *>();
    QTRY_VERIFY(result->isOpened());
    screens.older->close();
    QTRY_VERIFY(!result->isVisible());

    screens.older->open();
    screens.older->setCurrentPage(Page::Network);
    Operator::settle();
    Operator::tap(adapters->property("combobox").value<QQuickItem *>());
    const auto isListShown = [&screens] {
        return Operator::byClass(screens.window()->contentItem(), "QQuickItemDelegate") != nullptr;
    };
    QTRY_VERIFY(isListShown());
    screens.older->close();
    QTRY_VERIFY(!isListShown());
}

void TestTwoRoots::passwordDialogClosesWithItsScreen()
{
    TwoScreens screens;
    QSP::Dialog *dialog = screens.askForPassword();
    screens.newer->close();
    QVERIFY(dialog->isOpened());
    screens.older->close();
    QTRY_VERIFY(!dialog->isVisible());
}

void TestTwoRoots::popupsAreDisabledWithTheirScreen()
{
    TwoScreens screens;
    QSP::Dialog *dialog = screens.askForPassword();
    QQuickItem *button = Operator::byClass(dialog->contentItem(), "QSP::BeepButton");
    screens.older->setEnabled(false);
    Operator::tap(button);
    QVERIFY(dialog->isOpened());
    screens.older->setEnabled(true);
    screens.newer->setEnabled(false);
    Operator::tap(button);
    QTRY_VERIFY(!dialog->isVisible());

    // One that is opened later is no exception.
    screens.older->setEnabled(false);
    dialog->open();
    QTRY_VERIFY(dialog->isOpened());
    QVERIFY(!dialog->isEnabled());
}

void TestTwoRoots::wifiPageStandsOnItsScreen()
{
    TwoScreens screens;
    screens.older->setCurrentPage(Page::Network);
    TwoScreens::cardOf<QSP::CardNetwork>(screens.older, Cards::Network)->setCurrentNIC(HMI::SystemSet::WIFI);
    screens.older->setCurrentPage(Page::Wifi);
    auto *page = TwoScreens::cardOf<QSP::CardWifi>(screens.older, Cards::Wifi);
    QVERIFY(screens.older->isAncestorOf(page->returnButton()));
    Operator::settle();
    Operator::tap(page->returnButton());
    QCOMPARE(screens.older->currentPage(), Page::Network);
    QCOMPARE(screens.newer->currentPage(), Page::General);
}

void TestTwoRoots::joiningTellsItsNetworkCard()
{
    TwoScreens screens;
    screens.older->setCurrentPage(Page::Network);
    auto *network = TwoScreens::cardOf<QSP::CardNetwork>(screens.older, Cards::Network);
    network->setCurrentNIC(HMI::SystemSet::WIFI);
    screens.older->setCurrentPage(Page::Wifi);
    auto *page = TwoScreens::cardOf<QSP::CardWifi>(screens.older, Cards::Wifi);
    QSignalSpy status(network, &QSP::CardNetwork::wifiStatusChanged);
    network->updateWifiStatus();
    QCOMPARE(status.count(), 1);
    page->connectWifi({'x'}, QString());
    // In the middle of an attempt the tile keeps still.
    network->updateWifiStatus();
    QCOMPARE(status.count(), 1);
}

void TestTwoRoots::editEndsOnItsScreen()
{
    TwoScreens screens;
    screens.older->setCurrentPage(Page::Network);
    auto *network = TwoScreens::cardOf<QSP::CardNetwork>(screens.older, Cards::Network);
    QQuickItem *field = Operator::allByClass(TwoScreens::dnsInput(screens.older), "QQuickTextInput").value(3);
    Operator::settle();
    field->forceActiveFocus();
    Operator::type(screens.window(), QStringLiteral("9"));
    HmiSimulator::clearJournal();
    // What was typed for one adapter is not written to the next.
    network->setCurrentNIC(lan1);
    QVERIFY(!field->hasActiveFocus());
    QCOMPARE(Journal::calls("setDns").size(), 1);
    QVERIFY(Journal::calls("setDns").constFirst().startsWith(QLatin1String("setDns(LAN0")));
}

void TestTwoRoots::editGoesOnWhileAnotherScreenIsHidden()
{
    TwoScreens screens;
    screens.newer->setCurrentPage(Page::Network);
    QQuickItem *field = Operator::allByClass(TwoScreens::dnsInput(screens.newer), "QQuickTextInput").value(3);
    Operator::settle();
    field->forceActiveFocus();
    Operator::type(screens.window(), QStringLiteral("9"));
    screens.older->setVisible(false);
    QVERIFY(field->hasActiveFocus());
    QVERIFY(screens.keyboardKey(QStringLiteral("7")));
    QCOMPARE(Journal::calls("setDns").size(), 0);
}

void TestTwoRoots::editGoesOnWhileAnotherScreenIsBuilt()
{
    HmiSimulator::setDhcpOn(lan0, false);
    CardScene scene(size);
    auto *shown = AppRootItem::instance();
    shown->setCurrentPage(Page::Network);
    auto *network = TwoScreens::cardOf<QSP::CardNetwork>(shown, Cards::Network);
    QSP::CIpInput *input = network->rowsOf(lan0).ip;
    const auto boxes = Operator::allByClass(input, "QQuickTextInput");
    Operator::settle();
    Operator::tap(boxes.value(0));
    // It has no window yet.
    ImplSystemSet another;
    const std::unique_ptr<QQuickItem> built(another.init(scene.engine(), size.width(), size.height(), 1000));

    Operator::tap(boxes.value(1));
    QVERIFY(scene.keyboardKey(QStringLiteral("7")));
    Operator::type(scene.window(), QStringLiteral("9"));
    HmiSimulator::clearJournal();
    Operator::tap(Operator::ancestorOf(Operator::byText(shown, "LAN0"), "QSP::BeepButton"));
    QVERIFY(!input->editing());
    QVERIFY(!scene.keyboardKey(QStringLiteral("7")));
    QCOMPARE(Journal::calls("setIp").size(), 1);
    // Nor was the keyboard lost.
    Operator::tap(boxes.value(0));
    QVERIFY(scene.keyboardKey(QStringLiteral("7")));
}

PANEL_TEST_MAIN(TestTwoRoots)

#include "test_tworoots.moc"
