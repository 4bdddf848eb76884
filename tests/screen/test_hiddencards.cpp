#include "tests/screen/networkpage.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QVariantMap without(const QStringList &cards)
{
    return {{QStringLiteral("panelHiddenCards"), cards}};
}

enum class Page { General, Network, Wifi, Language, Version };

QStringList cardsOf(std::initializer_list<Page> pages)
{
    static const QMap<Page, QStringList> names{
        {Page::General, {"brightness", "time", "buzzer"}},
        {Page::Network, {"network", "dns", "defaultAdapter"}},
        {Page::Wifi, {"wifi"}},
        {Page::Language, {"language"}},
        {Page::Version, {"version"}},
    };
    QStringList cards;
    for (const Page page : pages)
        cards << names[page];
    return cards;
}

QStringList allCards()
{
    return cardsOf({Page::General, Page::Network, Page::Wifi, Page::Language, Page::Version});
}

QVector<QQuickItem *> entries(const ScreenFixture &fixture)
{
    return Operator::allByClass(fixture.root()->property("menuBar").value<QQuickItem *>(), "QSP::BeepButton");
}

QStringList entryTexts(const ScreenFixture &fixture)
{
    QStringList texts;
    const auto buttons = entries(fixture);
    for (const QQuickItem *button : buttons)
        texts << button->property("text").toString();
    return texts;
}

QStringList marked(const ScreenFixture &fixture)
{
    QStringList texts;
    const auto buttons = entries(fixture);
    for (const QQuickItem *button : buttons) {
        const auto *ground = button->property("background").value<QQuickItem *>();
        if (ground->property("color").value<QColor>() == QColor(0xF2, 0xF3, 0xF5))
            texts << button->property("text").toString();
    }
    return texts;
}

/// The classes of the cards that can be seen, from above.
QStringList shownCards(const ScreenFixture &fixture)
{
    QStringList classes;
    const QList<QQuickItem *> cards =
        fixture.root()->property("cardsParent").value<QQuickItem *>()->childItems();
    for (const QQuickItem *card : cards) {
        const QMetaObject *type = card->metaObject();
        // A document is a class of its own on top.
        while (type && !QByteArray(type->className()).startsWith("QSP::"))
            type = type->superClass();
        if (card->isVisible() && type)
            classes << QString::fromLatin1(type->className());
    }
    return classes;
}

/// Visits all that there is, and returns the operations that were asked of the service.
QStringList askedOnAVisit(const QVariantMap &options)
{
    HmiSimulator::reset();
    HmiSimulator::setGettersRecorded(true);
    ScreenFixture fixture(plugin, {1024, 600}, options);
    fixture.open();
    QStringList operations;
    const auto take = [&operations] {
        for (const HmiSimulator::Entry &entry : HmiSimulator::journal())
            operations << QString::fromStdString(entry.operation);
        HmiSimulator::clearJournal();
    };
    // Taps ask whether keys beep; what is asked before the first one is the cards'.
    take();
    const bool buzzer = operations.contains(QStringLiteral("isBuzzerOn"));
    const auto buttons = entries(fixture);
    for (QQuickItem *button : buttons) {
        if (button->property("text").toString() == QLatin1String("Reboot"))
            continue;
        Operator::tap(button);
        Operator::settle();
    }
    fixture.close();
    take();
    HmiSimulator::setGettersRecorded(false);
    operations.removeDuplicates();
    if (!buzzer)
        operations.removeAll(QStringLiteral("isBuzzerOn"));
    return operations;
}

} // namespace

/// A host for a panel that does not have all that the screen shows.
class TestHiddenCards : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void othersOfThePageStay();
    void emptyPagesLeaveTheMenu();
    void firstPageIsTheFirstThatThereIs_data();
    void firstPageIsTheFirstThatThereIs();
    void narrowMenuHasNoEntryForThem();
    void nothingIsAskedForThem_data();
    void nothingIsAskedForThem();
    void withoutAnyCard_data();
    void withoutAnyCard();
    void wifiTileLeadsNowhere();
    void wifiAloneOnAPanelLeadsNowhere();
    void networkPageWithoutItsFirstCard();
    void tunnelWithoutTheNetworkCard();
    void screensOfTwoEnginesHaveTheirOwn();
    void unknownCardHidesNone();
};

void TestHiddenCards::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
}

void TestHiddenCards::othersOfThePageStay()
{
    ScreenFixture fixture(plugin, {1024, 600}, without({"time", "defaultAdapter"}));
    fixture.open();
    QCOMPARE(shownCards(fixture), (QStringList{"QSP::CardBrightness", "QSP::CardBuzzer"}));
    // The upper one moves up.
    QCOMPARE(fixture.card("QSP::CardBrightness")->y(), 0.0);
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(shownCards(fixture), (QStringList{"QSP::CardNetwork", "QSP::CardDNS"}));
    // It comes and goes with the adapter, and brings the hidden one with it no more than at first.
    fixture.tapText(QStringLiteral("VPN"));
    QCOMPARE(shownCards(fixture), QStringList{"QSP::CardNetwork"});
    fixture.tapText(QStringLiteral("LAN1"));
    QCOMPARE(shownCards(fixture), (QStringList{"QSP::CardNetwork", "QSP::CardDNS"}));
    QCOMPARE(entryTexts(fixture), (QStringList{"General", "Network", "Language", "Version", "Reboot"}));
}

void TestHiddenCards::emptyPagesLeaveTheMenu()
{
    ScreenFixture fixture(plugin, {1024, 600}, without(cardsOf({Page::Network, Page::Wifi, Page::Language})));
    fixture.open();
    QCOMPARE(entryTexts(fixture), (QStringList{"General", "Version", "Reboot"}));
    // No gap where an entry was.
    const auto buttons = entries(fixture);
    QCOMPARE(buttons[1]->y(), buttons[0]->y() + buttons[0]->height() + 12.0);
    fixture.tapMenu(QStringLiteral("Version"));
    QCOMPARE(fixture.title(), QStringLiteral("Version"));
}

void TestHiddenCards::firstPageIsTheFirstThatThereIs_data()
{
    QTest::addColumn<QStringList>("hidden");
    QTest::addColumn<QString>("first");
    QTest::newRow("Network") << cardsOf({Page::General}) << "Network";
    QTest::newRow("Language") << cardsOf({Page::General, Page::Network}) << "Language";
    QTest::newRow("Version") << cardsOf({Page::General, Page::Network, Page::Language}) << "Version";
}

void TestHiddenCards::firstPageIsTheFirstThatThereIs()
{
    QFETCH(QStringList, hidden);
    QFETCH(QString, first);
    ScreenFixture fixture(plugin, {1024, 600}, without(hidden));
    fixture.open();
    QCOMPARE(fixture.title(), first);
    QCOMPARE(marked(fixture), QStringList{first});
    const QStringList cards = shownCards(fixture);
    QVERIFY(!cards.isEmpty());
    fixture.tapMenu(QStringLiteral("Version"));
    fixture.close();
    fixture.open();
    QCOMPARE(fixture.title(), first);
    QCOMPARE(marked(fixture), QStringList{first});
    QCOMPARE(shownCards(fixture), cards);
}

void TestHiddenCards::narrowMenuHasNoEntryForThem()
{
    ScreenFixture fixture(plugin, {480, 800}, without(cardsOf({Page::General, Page::Version})));
    fixture.open();
    QCOMPARE(entryTexts(fixture), (QStringList{"Network", "Language", "Reboot"}));
    QCOMPARE(fixture.title(), QString());
    fixture.tapMenu(QStringLiteral("Language"));
    QCOMPARE(shownCards(fixture), QStringList{"QSP::CardLanguage"});
    fixture.close();
    fixture.open();
    QCOMPARE(fixture.title(), QString());
    QCOMPARE(entryTexts(fixture), (QStringList{"Network", "Language", "Reboot"}));
}

void TestHiddenCards::nothingIsAskedForThem_data()
{
    QTest::addColumn<QStringList>("hidden");
    QTest::addColumn<QStringList>("operations");
    QTest::newRow("brightness") << QStringList{"brightness"} << QStringList{"bright"};
    QTest::newRow("buzzer") << QStringList{"buzzer"} << QStringList{"isBuzzerOn"};
    QTest::newRow("network") << QStringList{"network"}
                             << QStringList{"isDhcpOn", "getMac", "getIpFromEE", "setDHCP"};
    QTest::newRow("dns") << QStringList{"dns"} << QStringList{"getDns"};
    QTest::newRow("defaultAdapter") << QStringList{"defaultAdapter"} << QStringList{"getDefaultNIC"};
    QTest::newRow("version") << QStringList{"version"} << QStringList{"getSerialNumber"};
    QTest::newRow("Network page") << cardsOf({Page::Network})
                                  << QStringList{"getAllNIC", "isNicEnabled", "getDns", "getDefaultNIC",
                                                 "getIp"};
}

void TestHiddenCards::nothingIsAskedForThem()
{
    QFETCH(QStringList, hidden);
    QFETCH(QStringList, operations);
    const QStringList usually = askedOnAVisit({});
    const QStringList asked = askedOnAVisit(without(hidden));
    int common = 0;
    for (const QString &operation : qAsConst(operations)) {
        common += usually.contains(operation) ? 1 : 0;
        QVERIFY2(!asked.contains(operation), qPrintable(operation));
    }
    QVERIFY(common > 0);
}

void TestHiddenCards::withoutAnyCard_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1024, 600);
    QTest::newRow("narrow") << QSize(480, 800);
}

void TestHiddenCards::withoutAnyCard()
{
    QFETCH(QSize, size);
    HmiSimulator::setGettersRecorded(true);
    ScreenFixture fixture(plugin, size, without(allCards()));
    HmiSimulator::clearJournal();
    for (int i = 0; i < 2; ++i) {
        fixture.open();
        QCOMPARE(entryTexts(fixture), QStringList{"Reboot"});
        QCOMPARE(fixture.title(), QString());
        QCOMPARE(shownCards(fixture), QStringList());
        fixture.close();
    }
    QCOMPARE(Journal::calls(), (QStringList{"getLanguage()", "getLanguage()"}));
    HmiSimulator::setGettersRecorded(false);
    fixture.open();
    Operator::tap(entries(fixture).constFirst());
    QCOMPARE(Journal::calls("reboot").size(), 1);
}

void TestHiddenCards::wifiTileLeadsNowhere()
{
    ScreenFixture fixture(plugin, {1024, 600}, without({"wifi"}));
    HmiSimulator::joinNetwork("Works Hall");
    fixture.open();
    fixture.tapMenu(QStringLiteral("Network"));
    fixture.tapText(QStringLiteral("Wi-Fi"));
    QQuickItem *tile = Operator::byClass(fixture.root(), "QSP::WifiTile");
    QVERIFY(tile);
    // The state is told still, in the middle of what is left of the tile.
    QCOMPARE(Operator::visibleTexts(tile).size(), 1);
    QVERIFY(!Operator::byIcon(tile, QStringLiteral("rightArrow0@2x.png")));
    const QQuickItem *state = Operator::byText(tile, QStringLiteral("Online"));
    QVERIFY(state);
    QVERIFY(qAbs(state->y() + state->height() / 2.0 - tile->height() / 2.0) <= 1.0);
    HmiSimulator::clearJournal();
    Operator::tap(fixture.window(), Operator::centerOf(tile));
    Operator::settle();
    QCOMPARE(fixture.title(), QStringLiteral("Network"));
    QCOMPARE(Journal::calls(), QStringList());
    // Nor when the adapter was off and is on again.
    QQuickItem *off = Operator::byClass(fixture.card("QSP::CardNetwork"), "QSP::BeepSwitch");
    Operator::tap(off);
    Operator::settle();
    Operator::tap(off);
    Operator::settle();
    QVERIFY(!tile->isEnabled());
    QCOMPARE(tile->opacity(), 1.0);
    QVERIFY(!Operator::byIcon(tile, QStringLiteral("rightArrow0@2x.png")));
}

void TestHiddenCards::wifiAloneOnAPanelLeadsNowhere()
{
    HmiSimulator::setAdapters(HMI::SystemSet::WIFI);
    ScreenFixture fixture(plugin, {1024, 600}, without({"wifi"}));
    fixture.open();
    fixture.tapMenu(QStringLiteral("Network"));
    const QQuickItem *tile = Operator::byClass(fixture.root(), "QSP::WifiTile");
    QVERIFY(tile && !tile->isEnabled());
}

void TestHiddenCards::networkPageWithoutItsFirstCard()
{
    HmiSimulator::setAdapters(HMI::SystemSet::LAN1 | HMI::SystemSet::WIFI);
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.adapters[HMI::SystemSet::LAN1].dns = {0x09090909, 0x08080808};
    });
    ScreenFixture fixture(plugin, {1024, 600}, without({"network"}));
    fixture.open();
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(shownCards(fixture), (QStringList{"QSP::CardNIC", "QSP::CardDNS"}));
    // The servers of the first adapter; how it gets its addresses nobody can see or change here, so neither these.
    auto *input = fixture.card("QSP::CardDNS")->property("dns1Input").value<QQuickItem *>();
    QCOMPARE(input->property("ip").toString(), QStringLiteral("9.9.9.9"));
    QVERIFY(!input->isEnabled());
}

void TestHiddenCards::tunnelWithoutTheNetworkCard()
{
    HmiSimulator::setAdapters(HMI::SystemSet::VPN);
    ScreenFixture fixture(plugin, {1024, 600}, without({"network"}));
    fixture.open();
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(shownCards(fixture), QStringList());
    QCOMPARE(fixture.title(), QStringLiteral("Network"));
}

void TestHiddenCards::screensOfTwoEnginesHaveTheirOwn()
{
    ScreenFixture first(plugin, {1024, 600}, without(cardsOf({Page::Version}) << "brightness"));
    ScreenFixture second(plugin, {1024, 600}, without({"buzzer"}));
    second.open();
    first.root()->setVisible(true);
    Operator::settle();
    QCOMPARE(shownCards(first), (QStringList{"QSP::CardTime", "QSP::CardBuzzer"}));
    QCOMPARE(shownCards(second), (QStringList{"QSP::CardBrightness", "QSP::CardTime"}));
    QCOMPARE(entryTexts(first), (QStringList{"General", "Network", "Language", "Reboot"}));
    QCOMPARE(entryTexts(second), (QStringList{"General", "Network", "Language", "Version", "Reboot"}));
}

void TestHiddenCards::unknownCardHidesNone()
{
    expectMessage(
        QStringLiteral("goes without panelHiddenCards: \"bright\" is no card; there are brightness, "));
    ScreenFixture fixture(plugin, {1024, 600}, without({"buzzer", "bright"}));
    fixture.open();
    QCOMPARE(shownCards(fixture), (QStringList{"QSP::CardBrightness", "QSP::CardTime", "QSP::CardBuzzer"}));
}

PANEL_TEST_MAIN(TestHiddenCards)

#include "test_hiddencards.moc"
