#include "cards/general/cardbrightness.h"

#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

using QSP::CardBrightness;

class TestCardBrightness : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void rowHeight_data();
    void rowHeight();
    void readsTheLevelOnce();
    void clamps_data();
    void clamps();
    void sameLevelWritesNothing();
    void tellsBeforeItWrites();
    void savesInAnyCase();
    void nonsenseIsNotStored_data();
    void nonsenseIsNotStored();
    void nonsenseIsShownAndNotWritten_data();
    void nonsenseIsShownAndNotWritten();
    void interface();
};

void TestCardBrightness::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardBrightness::rowHeight_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<int>("height");
    QTest::newRow("480x800") << QSize(480, 800) << 43;
    QTest::newRow("599x600") << QSize(599, 600) << 43;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54;
    QTest::newRow("800x480") << QSize(800, 480) << 42;
    QTest::newRow("1024x600") << QSize(1024, 600) << 54;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68;
    QTest::newRow("600x600") << QSize(600, 600) << 31;
}

void TestCardBrightness::rowHeight()
{
    QFETCH(QSize, screen);
    const CardScene scene(screen);
    const CardBrightness card;
    QTEST(card.brightnessTitleRowHeight(), "height");
}

void TestCardBrightness::readsTheLevelOnce()
{
    HmiSimulator::setBright(7);
    CardBrightness card;
    QCOMPARE(card.brightnessValue(), 7);
    HmiSimulator::setBright(9);
    QCOMPARE(card.brightnessValue(), 7);
}

void TestCardBrightness::clamps_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("level");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("-5") << -5 << 1;
    QTest::newRow("40") << 40 << 32;
    QTest::newRow("least") << INT_MIN << 1;
    QTest::newRow("most") << INT_MAX << 32;
    QTest::newRow("32") << 32 << 32;
    QTest::newRow("2") << 2 << 2;
}

void TestCardBrightness::clamps()
{
    QFETCH(int, value);
    QFETCH(int, level);
    HmiSimulator::setBright(20);
    CardBrightness card;
    QSignalSpy changed(&card, &CardBrightness::brightnessValueChanged);
    card.setBrightnessValue(value);
    QCOMPARE(card.brightnessValue(), level);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(Journal::calls(), QStringList{QStringLiteral("setBright(%1, no save)").arg(level)});
}

void TestCardBrightness::sameLevelWritesNothing()
{
    HmiSimulator::setBright(32);
    CardBrightness card;
    QSignalSpy changed(&card, &CardBrightness::brightnessValueChanged);
    card.setBrightnessValue(32);
    card.setBrightnessValue(33);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardBrightness::tellsBeforeItWrites()
{
    HmiSimulator::setBright(20);
    CardBrightness card;
    int callsAtTheSignal = -1;
    connect(&card, &CardBrightness::brightnessValueChanged, this,
            [&callsAtTheSignal] { callsAtTheSignal = Journal::calls().size(); });
    card.setBrightnessValue(21);
    QCOMPARE(callsAtTheSignal, 0);
    QCOMPARE(Journal::calls().size(), 1);
}

void TestCardBrightness::savesInAnyCase()
{
    HmiSimulator::setBright(5);
    CardBrightness card;
    card.saveBrightness();
    card.saveBrightness();
    QCOMPARE(Journal::calls(), (QStringList{"setBright(5, save)", "setBright(5, save)"}));
}

void TestCardBrightness::nonsenseIsNotStored_data()
{
    QTest::addColumn<int>("told");
    QTest::addColumn<int>("stored");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("99") << 99 << 32;
    QTest::newRow("-1000") << -1000 << 1;
}

void TestCardBrightness::nonsenseIsNotStored()
{
    QFETCH(int, told);
    QFETCH(int, stored);
    HmiSimulator::setBright(told);
    CardBrightness card;
    card.saveBrightness();
    QCOMPARE(card.brightnessValue(), stored);
    QCOMPARE(Journal::calls(), (QStringList{QStringLiteral("setBright(%1, no save)").arg(stored),
                                            QStringLiteral("setBright(%1, save)").arg(stored)}));
}

void TestCardBrightness::nonsenseIsShownAndNotWritten_data()
{
    QTest::addColumn<int>("told");
    QTest::addColumn<int>("afterPlus");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("99") << 99 << 32;
    QTest::newRow("-1000") << -1000 << 1;
}

void TestCardBrightness::nonsenseIsShownAndNotWritten()
{
    QFETCH(int, told);
    QFETCH(int, afterPlus);
    HmiSimulator::setBright(told);
    const CardScene scene;
    auto *card = scene.card<CardBrightness>("QSP::CardBrightness");
    QCOMPARE(card->brightnessValue(), told);
    QVERIFY(Operator::byText(card, QString::number(told)));
    QCOMPARE(Journal::calls("setBright"), QStringList());
    card->setBrightnessValue(told + 1);
    QCOMPARE(card->brightnessValue(), afterPlus);
    QVERIFY(Operator::byText(card, QString::number(afterPlus)));
    QCOMPARE(Journal::calls("setBright"),
             QStringList{QStringLiteral("setBright(%1, no save)").arg(afterPlus)});
}

void TestCardBrightness::interface()
{
    const QMetaObject &meta = CardBrightness::staticMetaObject;
    const QMetaProperty height = meta.property(meta.indexOfProperty("brightnessTitleRowHeight"));
    QVERIFY(height.isConstant() && !height.isWritable());
    const QMetaProperty value = meta.property(meta.indexOfProperty("brightnessValue"));
    QVERIFY(value.isWritable());
    QCOMPARE(value.notifySignal().name(), QByteArray("brightnessValueChanged"));
    for (const char *method : {"setBrightnessValue(int)", "saveBrightness()", "beepIfOn()"})
        QVERIFY2(meta.indexOfMethod(method) >= 0, method);

    HmiSimulator::setBuzzerOn(true);
    CardBrightness card;
    card.beepIfOn();
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
}

PANEL_TEST_MAIN(TestCardBrightness)

#include "test_cardbrightness.moc"
