#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QQuickItem *languageRow(const ScreenFixture &fixture)
{
    return Operator::ancestorOf(
        Operator::byText(fixture.card("QSP::CardLanguage"), QStringLiteral("English")), "QSP::BeepButton");
}

QQuickItem *tick(const ScreenFixture &fixture)
{
    return Operator::items(languageRow(fixture),
                           [](QQuickItem *item) {
                               return item->isVisible() && item->inherits("QQuickImage") &&
                                      item->property("source").toString().endsWith(
                                          QLatin1String("newtickgreen.png"));
                           })
        .value(0);
}

} // namespace

/// The Language page.
class TestLanguage : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void currentLanguageIsMarked();
    void languageChosenElsewhere();
    void tapSwitches();
    void tapOnTheCurrentRowOnlyBeeps();
    void sizes_data();
    void sizes();
};

void TestLanguage::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestLanguage::currentLanguageIsMarked()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    QCOMPARE(fixture.title(), QStringLiteral("Language"));
    QCOMPARE(Operator::visibleTexts(fixture.card("QSP::CardLanguage")),
             QStringList(QStringLiteral("English")));
    QVERIFY(tick(fixture));
}

void TestLanguage::languageChosenElsewhere()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    fixture.screen()->open();
    QVERIFY(!tick(fixture));
    QVERIFY(languageRow(fixture));
    QCOMPARE(fixture.title(), QStringLiteral("语言设置"));
}

void TestLanguage::tapSwitches()
{
    ScreenFixture fixture(plugin, {1024, 600});
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    fixture.open();
    fixture.tapMenu(QStringLiteral("语言设置"));
    QVERIFY(!tick(fixture));
    HmiSimulator::clearJournal();
    Operator::touch(languageRow(fixture));
    QVERIFY(tick(fixture));
    QCOMPARE(fixture.title(), QStringLiteral("Language"));
    QCOMPARE(Journal::callsButBeeps(), QStringList(QStringLiteral("setLanguage(ENGLISH)")));
}

void TestLanguage::tapOnTheCurrentRowOnlyBeeps()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    HmiSimulator::setBuzzerOn(true);
    HmiSimulator::clearJournal();
    Operator::tap(languageRow(fixture));
    QCOMPARE(Journal::calls(), QStringList(QStringLiteral("beep(true)")));
    QVERIFY(tick(fixture));
}

void TestLanguage::sizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("row");
    QTest::newRow("480x800") << QSize(480, 800) << 43;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68;
    QTest::newRow("480x272") << QSize(480, 272) << 44;
    QTest::newRow("640x480") << QSize(640, 480) << 54;
    QTest::newRow("799x480") << QSize(799, 480) << 54;
}

void TestLanguage::sizes()
{
    QFETCH(QSize, size);
    QFETCH(int, row);
    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    const QQuickItem *card = fixture.card("QSP::CardLanguage");
    QCOMPARE(card->property("languageTitleRowHeight").toInt(), row);
    QCOMPARE(card->property("radius").toReal(), 8.0);
    QCOMPARE(languageRow(fixture)->height(), qreal(qRound(1.1 * row)));
    QCOMPARE(card->height(), languageRow(fixture)->height());
    const QQuickItem *text = Operator::byText(languageRow(fixture), QStringLiteral("English"));
    QCOMPARE(text->x(), 16.0 + qRound(0.3 * row) + 12.0);
    QCOMPARE(tick(fixture)->x(), 16.0);
}

PANEL_TEST_MAIN(TestLanguage)

#include "test_language.moc"
