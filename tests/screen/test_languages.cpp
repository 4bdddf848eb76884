#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"
#include "tests/support/layoutcheck.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);
QVariantMap withChinese()
{
    return {{QStringLiteral("panelLanguages"), QStringList{"en", "zh_CN"}}};
}
const QString chinese = QStringLiteral("简体中文");
const QString english = QStringLiteral("English");

QStringList listed(const ScreenFixture &fixture)
{
    return Operator::visibleTexts(fixture.card("QSP::CardLanguage"));
}

QQuickItem *row(const ScreenFixture &fixture, const QString &name)
{
    return Operator::ancestorOf(Operator::byText(fixture.card("QSP::CardLanguage"), name), "QSP::BeepButton");
}

QString ticked(const ScreenFixture &fixture)
{
    for (const QString &name : {english, chinese}) {
        if (Operator::byIcon(row(fixture, name), QStringLiteral("newtickgreen.png")))
            return name;
    }
    return {};
}

} // namespace

/// A host that offers more languages than English.
class TestLanguages : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void operatorChoosesAndComesBack_data();
    void operatorChoosesAndComesBack();
    void choiceSurvivesTheVisit();
    void englishAloneIsNotMissed();
    void screensOfTwoEnginesHaveTheirOwn();
    void listIsReadOnce();
    void wrongListIsEnglishAlone();
};

void TestLanguages::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestLanguages::operatorChoosesAndComesBack_data()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestLanguages::operatorChoosesAndComesBack()
{
    QFETCH(QSize, size);
    QVariantMap options = withChinese();
    options.insert(compactOptions());
    ScreenFixture fixture(plugin, size, options);
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    QCOMPARE(listed(fixture), (QStringList{english, chinese}));
    QCOMPARE(ticked(fixture), english);
    HmiSimulator::clearJournal();

    Operator::touch(row(fixture, chinese));
    QCOMPARE(Journal::callsButBeeps(), QStringList{QStringLiteral("setLanguage(CHINESE)")});
    QCOMPARE(fixture.title(), QStringLiteral("语言设置"));
    QCOMPARE(ticked(fixture), chinese);
    // Each under its own name, whatever the language.
    QCOMPARE(listed(fixture), (QStringList{english, chinese}));
    Operator::settle();
    QCOMPARE(LayoutCheck::faults(fixture.glass()), QStringList());

    HmiSimulator::clearJournal();
    Operator::touch(row(fixture, english));
    QCOMPARE(Journal::callsButBeeps(), QStringList{QStringLiteral("setLanguage(ENGLISH)")});
    QCOMPARE(fixture.title(), QStringLiteral("Language"));
    QCOMPARE(ticked(fixture), english);
}

void TestLanguages::choiceSurvivesTheVisit()
{
    ScreenFixture fixture(plugin, {1024, 600}, withChinese());
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    Operator::tap(row(fixture, chinese));
    fixture.close();
    fixture.open();
    fixture.tapMenu(QStringLiteral("语言设置"));
    QCOMPARE(ticked(fixture), chinese);
    Operator::tap(row(fixture, english));
    fixture.tapMenu(QStringLiteral("General"));
    QCOMPARE(fixture.title(), QStringLiteral("General"));
}

void TestLanguages::englishAloneIsNotMissed()
{
    ScreenFixture fixture(plugin, {1024, 600}, {{QStringLiteral("panelLanguages"), QStringList{"zh_CN"}}});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    QCOMPARE(listed(fixture), QStringList{chinese});
    QVERIFY(!Operator::byIcon(row(fixture, chinese), QStringLiteral("newtickgreen.png")));
    Operator::tap(row(fixture, chinese));
    QVERIFY(Operator::byIcon(row(fixture, chinese), QStringLiteral("newtickgreen.png")));
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    fixture.open();
    QCOMPARE(fixture.title(), QStringLiteral("Language"));
}

void TestLanguages::screensOfTwoEnginesHaveTheirOwn()
{
    ScreenFixture first(plugin, {1024, 600}, withChinese());
    ScreenFixture second(plugin, {1024, 600});
    second.open();
    second.tapMenu(QStringLiteral("Language"));
    // The page of the older screen is made while the newer one is there.
    first.root()->setVisible(true);
    Operator::settle();
    first.tapMenu(QStringLiteral("Language"));
    QCOMPARE(listed(first), (QStringList{english, chinese}));
    QCOMPARE(listed(second), QStringList{english});
    // The language is the panel's, not a screen's.
    Operator::tap(row(first, chinese));
    QCOMPARE(second.title(), QStringLiteral("语言设置"));
    Operator::tap(row(second, english));
    QCOMPARE(ticked(first), english);
}

void TestLanguages::listIsReadOnce()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.engine()->setProperty("panelLanguages", QStringList{"en", "zh_CN"});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    QCOMPARE(listed(fixture), QStringList{english});
}

void TestLanguages::wrongListIsEnglishAlone()
{
    expectMessage(QStringLiteral("goes without panelLanguages: \"fr\" has no catalogue"));
    ScreenFixture fixture(plugin, {1024, 600},
                          {{QStringLiteral("panelLanguages"), QStringList{"zh_CN", "fr"}}});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    QCOMPARE(listed(fixture), QStringList{english});
}

PANEL_TEST_MAIN(TestLanguages)

#include "test_languages.moc"
