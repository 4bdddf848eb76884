#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);
QVariantMap keeping()
{
    return {{QStringLiteral("panelKeepLanguage"), true}};
}

} // namespace

/// A host that wants its language kept. One process, one beginning: the order of these tests is that of its life.
class TestKeptLanguage : public PanelTest
{
    Q_OBJECT

private slots:
    void firstScreenBeginsInIt();
    void nextScreenHasItStill();
    void laterChangesAreFollowed();
};

void TestKeptLanguage::firstScreenBeginsInIt()
{
    HmiSimulator::reset();
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    ScreenFixture fixture(plugin, {1024, 600}, keeping());
    QCOMPARE(fixture.title(), QStringLiteral("通用设置"));
    fixture.open();
    QCOMPARE(fixture.title(), QStringLiteral("通用设置"));
    QVERIFY(Operator::byText(fixture.root(), QStringLiteral("亮度")));
    QCOMPARE(Journal::calls("setLanguage"), QStringList());
    QCOMPARE(HmiSimulator::panel().language, int(HMI::SystemSet::CHINESE));
}

void TestKeptLanguage::nextScreenHasItStill()
{
    HmiSimulator::clearJournal();
    for (const QVariantMap &options : {keeping(), QVariantMap()}) {
        ScreenFixture fixture(plugin, {1024, 600}, options);
        fixture.open();
        QCOMPARE(fixture.title(), QStringLiteral("通用设置"));
    }
    QCOMPARE(Journal::calls("setLanguage"), QStringList());
}

void TestKeptLanguage::laterChangesAreFollowed()
{
    ScreenFixture fixture(plugin, {1024, 600}, keeping());
    for (const int language : {1, 0, 7}) {
        HmiSimulator::setLanguage(language);
        fixture.open();
        QCOMPARE(fixture.title(), language == 0 ? QStringLiteral("通用设置") : QStringLiteral("General"));
        fixture.close();
    }
    QCOMPARE(Journal::calls("setLanguage"), QStringList());
}

PANEL_TEST_MAIN(TestKeptLanguage)

#include "test_keptlanguage.moc"
