#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QQuickItem *part(const ScreenFixture &fixture, const char *alias)
{
    return fixture.root()->property(alias).value<QQuickItem *>();
}

QQuickItem *entry(const ScreenFixture &fixture, const char *text)
{
    return Operator::ancestorOf(Operator::byText(part(fixture, "menuBar"), QLatin1String(text)),
                                "QSP::BeepButton");
}

QQuickItem *returnButton(const ScreenFixture &fixture)
{
    return Operator::byClass(part(fixture, "titleBar"), "QSP::BeepButton");
}

} // namespace

/// The frame of a narrow screen, where menu and page take turns.
class TestNarrow : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void geometry_data();
    void geometry();
    void startsWithTheBareMenu();
    void menuAndPageTakeTurns();
    void samePageAgain();
    void titleOfTheBareMenuStaysEmpty();
    void closingBuildsNoPage();
    void closeReturnsToTheMenu();
    void rebootFromTheMenu();
    void landscapeBelowTheLimit();
};

void TestNarrow::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestNarrow::geometry_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("titleHeight");
    QTest::newRow("480x800") << QSize(480, 800) << 56.0;
    QTest::newRow("599x1024") << QSize(599, 1024) << 56.0;
    QTest::newRow("600x1024") << QSize(600, 1024) << 72.0;
    QTest::newRow("799x800") << QSize(799, 800) << 72.0;
}

void TestNarrow::geometry()
{
    QFETCH(QSize, size);
    QFETCH(qreal, titleHeight);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    QCOMPARE(part(fixture, "menuBar")->width(), qreal(size.width()));
    QCOMPARE(part(fixture, "titleBar")->height(), titleHeight);
    const QQuickItem *general = entry(fixture, "General");
    QVERIFY(general);
    QCOMPARE(general->height(), 0.13333333333333333 * size.width());
    QCOMPARE(general->x(), 0.025 * size.width());
    Operator::tap(entry(fixture, "General"));
    const QQuickItem *pool = part(fixture, "cardPool");
    QCOMPARE(pool->position(), QPointF(12, titleHeight + 12));
    QCOMPARE(pool->width(), size.width() - 24.0);
    QCOMPARE(pool->height(), size.height() - titleHeight - 12.0);
    QCOMPARE(returnButton(fixture)->size(), QSizeF(titleHeight, titleHeight));
    const QQuickItem *title = part(fixture, "titleText");
    QCOMPARE(title->x(), (size.width() - title->width()) / 2.0);
}

void TestNarrow::startsWithTheBareMenu()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    QCOMPARE(fixture.title(), QString());
    QVERIFY(part(fixture, "menuBar")->isVisible());
    QVERIFY(!part(fixture, "cardPool")->isVisible());
    QCOMPARE(part(fixture, "cardsParent")->childItems().size(), 0);
    QVERIFY(!returnButton(fixture));
    QCOMPARE(fixture.root()->property("currentPage").isValid(), false);
}

void TestNarrow::menuAndPageTakeTurns()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    for (const char *page : {"General", "Network", "Language", "Version"}) {
        Operator::tap(entry(fixture, page));
        QVERIFY(!part(fixture, "menuBar")->isVisible());
        QVERIFY(part(fixture, "cardPool")->isVisible());
        QCOMPARE(fixture.title(), QLatin1String(page));
        QVERIFY(returnButton(fixture));
        Operator::tap(returnButton(fixture));
        QVERIFY(part(fixture, "menuBar")->isVisible());
        QVERIFY(!part(fixture, "cardPool")->isVisible());
        QVERIFY(!returnButton(fixture));
        QCOMPARE(fixture.title(), QString());
    }
}

void TestNarrow::samePageAgain()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    for (int i = 0; i < 3; ++i) {
        Operator::tap(entry(fixture, "General"));
        QCOMPARE(fixture.title(), QStringLiteral("General"));
        QVERIFY(fixture.card("QSP::CardTime"));
        Operator::tap(returnButton(fixture));
    }
    QCOMPARE(part(fixture, "cardsParent")->childItems().size(), 3);
}

void TestNarrow::titleOfTheBareMenuStaysEmpty()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    Operator::tap(entry(fixture, "General"));
    Operator::tap(returnButton(fixture));
    fixture.screen()->close();
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    fixture.open();
    QCOMPARE(fixture.title(), QString());
    QVERIFY(Operator::byText(part(fixture, "menuBar"), QStringLiteral("通用设置")));
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    fixture.close();
    fixture.open();
    QCOMPARE(fixture.title(), QString());
}

void TestNarrow::closingBuildsNoPage()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    fixture.close();
    QCOMPARE(part(fixture, "cardsParent")->childItems().size(), 0);
    fixture.open();
    Operator::tap(entry(fixture, "Version"));
    fixture.close();
    QCOMPARE(part(fixture, "cardsParent")->childItems().size(), 1);
}

void TestNarrow::closeReturnsToTheMenu()
{
    ScreenFixture fixture(plugin, {600, 1024});
    fixture.open();
    Operator::tap(entry(fixture, "General"));
    QVERIFY(fixture.card("QSP::CardBuzzer"));
    fixture.close();
    fixture.open();
    QVERIFY(part(fixture, "menuBar")->isVisible());
    QVERIFY(!fixture.card("QSP::CardBuzzer"));
    QVERIFY(!returnButton(fixture));
    Operator::tap(entry(fixture, "General"));
    QVERIFY(fixture.card("QSP::CardBuzzer"));
    QCOMPARE(fixture.title(), QStringLiteral("General"));
}

void TestNarrow::rebootFromTheMenu()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    HmiSimulator::clearJournal();
    Operator::tap(entry(fixture, "Reboot"));
    QCOMPARE(Journal::callsButBeeps(), QStringList{QStringLiteral("reboot()")});
    QVERIFY(part(fixture, "menuBar")->isVisible());
}

void TestNarrow::landscapeBelowTheLimit()
{
    ScreenFixture fixture(plugin, {799, 480});
    fixture.open();
    QCOMPARE(part(fixture, "menuBar")->width(), 0.205078125 * 799);
    QCOMPARE(fixture.title(), QString());
    Operator::tap(entry(fixture, "General"));
    QVERIFY(!part(fixture, "menuBar")->isVisible());
    const QQuickItem *pool = part(fixture, "cardPool");
    QCOMPARE(pool->x(), 40.0);
    QCOMPARE(pool->width(), 799.0 - 80.0);
}

PANEL_TEST_MAIN(TestNarrow)

#include "test_narrow.moc"
