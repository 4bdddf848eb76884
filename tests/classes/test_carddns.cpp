#include "cards/network/carddns.h"
#include "cards/network/cardnetwork.h"
#include "controls/cipinput.h"
#include "tests/classes/networkscene.h"
#include "tests/support/journal.h"

using QSP::CardDNS;
using Cards = QSP::AppRootItem::Cards;

/// The DNS card by its own interface.
class TestCardDns : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void saveTakesWhatIsNoAddressForZero_data();
    void saveTakesWhatIsNoAddressForZero();
    void disableShowsZeroAndWritesNothing();
    void loadsWhenCompleted();
    void partsOfTheDocument();
    void withoutTheNetworkCard();
};

void TestCardDns::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(1);
}

void TestCardDns::saveTakesWhatIsNoAddressForZero_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("call");
    QTest::newRow("two") << "9.9.9.9"
                         << "255.255.255.255"
                         << "setDns(LAN0, 9.9.9.9, 255.255.255.255)";
    QTest::newRow("empty") << ""
                           << "1.2.3.4"
                           << "setDns(LAN0, 0.0.0.0, 1.2.3.4)";
    QTest::newRow("words") << "no address"
                           << "1.2.3.4.5"
                           << "setDns(LAN0, 0.0.0.0, 0.0.0.0)";
    QTest::newRow("IPv6") << "fe80::1"
                          << "0.0.0.0"
                          << "setDns(LAN0, 0.0.0.0, 0.0.0.0)";
}

void TestCardDns::saveTakesWhatIsNoAddressForZero()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    const NetworkScene screen;
    auto *card = NetworkScene::networkCard<CardDNS>(Cards::DNS);
    QVERIFY(card);
    HmiSimulator::clearJournal();
    card->saveDns({first, second});
    QTEST(Journal::calls().join(';'), "call");
}

void TestCardDns::disableShowsZeroAndWritesNothing()
{
    const NetworkScene screen;
    auto *card = NetworkScene::networkCard<CardDNS>(Cards::DNS);
    HmiSimulator::clearJournal();
    card->disableDns();
    for (const char *input : {"dns1Input", "dns2Input"})
        QCOMPARE(card->property(input).value<QSP::CIpInput *>()->ip(), QString("0.0.0.0"));
    QCOMPARE(Journal::calls(), QStringList());
    card->loadDnsAndShow();
    QCOMPARE(card->property("dns1Input").value<QSP::CIpInput *>()->ip(), QString("192.168.1.1"));
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardDns::loadsWhenCompleted()
{
    const NetworkScene screen;
    auto *card = NetworkScene::networkCard<CardDNS>(Cards::DNS);
    QCOMPARE(card->property("dns1Input").value<QSP::CIpInput *>()->ip(), QString("192.168.1.1"));
    QCOMPARE(card->property("dns2Input").value<QSP::CIpInput *>()->ip(), QString("192.168.1.2"));
}

void TestCardDns::partsOfTheDocument()
{
    const NetworkScene screen;
    auto *card = NetworkScene::networkCard<CardDNS>(Cards::DNS);
    QVERIFY(card->findChild<QQuickItem *>("dns1Row"));
    QVERIFY(card->findChild<QQuickItem *>("dns2Row"));
    const auto *title = card->property("titleText").value<QQuickItem *>();
    QCOMPARE(title->property("text").toString(), QString("DNS Server"));
    const int size = title->property("font").value<QFont>().pixelSize();
    QCOMPARE(size, qRound(0.383 * card->titleRowHeight()));
    QCOMPARE(card->property("dns1Input").value<QSP::CIpInput *>()->fontPixelSize(), size);
}

void TestCardDns::withoutTheNetworkCard()
{
    const NetworkScene screen;
    QVERIFY(!NetworkScene::appRoot()->getCardItem(Cards::Network));
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
    CardDNS card;
    card.loadDnsAndShow();
    card.saveDns({"1.1.1.1", "2.2.2.2"});
    card.updateEnable_DNS();
    card.disableDns();
    QCOMPARE(Journal::calls(), QStringList());
}

PANEL_TEST_MAIN(TestCardDns)

#include "test_carddns.moc"
