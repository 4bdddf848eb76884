#include "cards/network/cardnic.h"
#include "controls/beepbutton.h"
#include "controls/combobox.h"
#include "controls/dialog.h"
#include "shell/base/globalinfo.h"
#include "tests/classes/networkscene.h"
#include "tests/support/journal.h"

using QSP::CardNIC;
using Page = QSP::AppRootItem::MenuIndex;
using Cards = QSP::AppRootItem::Cards;

/// The default-adapter card by its own interface.
class TestCardNic : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void model_data();
    void model();
    void emptyModelSelectsNothing();
    void dialogSizes_data();
    void dialogSizes();
    void oneDialogForAllResults();
    void sizesOfTheDocument();
    void resultWithoutARoot();
};

void TestCardNic::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardNic::model_data()
{
    QTest::addColumn<int>("present");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("all") << 87 << QStringList({"LAN0", "LAN1", "Wi-Fi", "4G"});
    QTest::newRow("none") << 0 << QStringList();
    QTest::newRow("VPN only") << 64 << QStringList();
    QTest::newRow("all bits") << -1 << QStringList({"LAN0", "LAN1", "Wi-Fi", "4G"});
    QTest::newRow("unknown bits") << (8 | 32 | 16) << QStringList({"4G"});
}

void TestCardNic::model()
{
    QFETCH(int, present);
    QFETCH(QStringList, keys);
    HmiSimulator::setAdapters(present);
    HmiSimulator::setNicEnabled(HMI::SystemSet::VPN, true);
    const CardNIC card;
    const QVariantList model = card.createModel();
    QStringList seen;
    for (const QVariant &entry : model) {
        const QVariantMap map = entry.toMap();
        QCOMPARE(map.keys(), QStringList({"key", "name", "nic"}));
        QCOMPARE(map.value("name"), map.value("key"));
        seen << map.value("key").toString();
    }
    QCOMPARE(seen, keys);
}

void TestCardNic::emptyModelSelectsNothing()
{
    HmiSimulator::setAdapters(64);
    HmiSimulator::setDefaultNic(0);
    const NetworkScene screen;
    NetworkScene::appRoot()->setCurrentPage(Page::Network);
    NetworkScene::appRoot()->showCard(Cards::NIC, true);
    auto *card = qobject_cast<CardNIC *>(NetworkScene::appRoot()->getCardItem(Cards::NIC));
    QVERIFY(card);
    card->initComboxCurrentIndex();
    QCOMPARE(card->property("combobox").value<QSP::ComboBox *>()->currentIndex(), -1);
    QCOMPARE(Journal::calls("setDefaultNIC"), QStringList());
}

void TestCardNic::dialogSizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSizeF>("expected");
    QTest::addColumn<int>("font");
    QTest::newRow("1024x600") << QSize(1024, 600) << QSizeF(426, 243) << 22;
    QTest::newRow("800x480") << QSize(800, 480) << QSizeF(332.8125, 189.8437) << 17;
    QTest::newRow("480x800") << QSize(480, 800) << QSizeF(426, 243) << 18;
    QTest::newRow("600x1024") << QSize(600, 1024) << QSizeF(426, 243) << 18;
}

void TestCardNic::dialogSizes()
{
    QFETCH(QSize, size);
    QFETCH(QSizeF, expected);
    HmiSimulator::setAdapters(1);
    const NetworkScene screen(size);
    auto *card = NetworkScene::networkCard<CardNIC>(Cards::NIC);
    card->onPingTestResult(true);
    auto *dialog = card->findChild<QSP::Dialog *>();
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    QVERIFY(qAbs(dialog->width() - expected.width()) < 0.01);
    QVERIFY(qAbs(dialog->height() - expected.height()) < 0.01);
    QVERIFY(qAbs(dialog->x() + dialog->width() / 2 - size.width() / 2.0) <= 0.5);
    QVERIFY(qAbs(dialog->y() + dialog->height() / 2 - size.height() / 2.0) <= 0.5);
    QCOMPARE(dialog->parentItem(), screen.root());
    QTEST(dialog->bodyItem()->property("font").value<QFont>().pixelSize(), "font");
}

void TestCardNic::oneDialogForAllResults()
{
    HmiSimulator::setAdapters(1);
    const NetworkScene screen;
    auto *card = NetworkScene::networkCard<CardNIC>(Cards::NIC);
    for (int i = 0; i < 100; ++i) {
        card->onPingTestResult(i % 2 == 0);
        auto *dialog = card->findChild<QSP::Dialog *>();
        QCOMPARE(dialog->bodyItem()->property("text").toString(),
                 QString(i % 2 == 0 ? "Test successful!" : "Test failed!"));
    }
    QCOMPARE(card->findChildren<QSP::Dialog *>().size(), 1);
}

void TestCardNic::sizesOfTheDocument()
{
    HmiSimulator::setAdapters(1);
    const NetworkScene screen;
    auto *card = NetworkScene::networkCard<CardNIC>(Cards::NIC);
    QCOMPARE(card->titleRowHeight(), 52);
    const auto *box = card->property("combobox").value<QSP::ComboBox *>();
    QCOMPARE(box->width(), 3.061 * 52);
    QCOMPARE(box->height(), 0.612 * 52);
    const auto *button = card->property("testBeepButton").value<QSP::BeepButton *>();
    QCOMPARE(button->height(), 0.92 * 52);
    QCOMPARE(button->width(), 1.5 * 0.92 * 52);
    QCOMPARE(card->property("testButtonText").value<QQuickItem *>()->property("color").value<QColor>(),
             QColor(0x32, 0x69, 0xCE));
}

void TestCardNic::resultWithoutARoot()
{
    CardNIC card;
    card.onPingTestResult(true);
    QVERIFY(!card.findChild<QSP::Dialog *>());
}

PANEL_TEST_MAIN(TestCardNic)

#include "test_cardnic.moc"
