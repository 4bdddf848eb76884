#include "shell/approotitem.h"
#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

using QSP::AppRootItem;
using QSP::GlobalInfo;

namespace {

QVariantMap withEsperanto()
{
    return {{QStringLiteral("panelLanguages"), QStringList{"en", "eo", "zh_CN"}}};
}

QLocale::Language language()
{
    return GlobalInfo::instance().locale().language();
}

} // namespace

/// A language of the list that the service has no name for: it takes it for English.
class TestThirdLanguage : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void isKeptWhileTheServiceSaysEnglish();
    void goesForWhatIsChosenElsewhere();

private:
    static void tapMenu(const char *english);
    static void choose(const CardScene &scene, const char *name);
};

void TestThirdLanguage::init()
{
    beginWatch();
    HmiSimulator::reset();
}

// The menu in Esperanto has but one word of it.
void TestThirdLanguage::tapMenu(const char *english)
{
    const QString text = QCoreApplication::translate("QSP::AppRootItem", english);
    Operator::tap(
        Operator::ancestorOf(Operator::byText(AppRootItem::instance()->menuBar(), text), "QSP::BeepButton"));
}

void TestThirdLanguage::choose(const CardScene &scene, const char *name)
{
    tapMenu("Language");
    QQuickItem *card = Operator::byClass(scene.root(), "QSP::CardLanguage");
    Operator::tap(Operator::ancestorOf(Operator::byText(card, QString::fromUtf8(name)), "QSP::BeepButton"));
}

void TestThirdLanguage::isKeptWhileTheServiceSaysEnglish()
{
    CardScene scene({1024, 600}, withEsperanto());
    choose(scene, "简体中文");
    HmiSimulator::clearJournal();
    choose(scene, "Esperanto");
    QCOMPARE(Journal::callsButBeeps(), QStringList{QStringLiteral("setLanguage(ENGLISH)")});
    tapMenu("General");
    QCOMPARE(language(), QLocale::Esperanto);
    QVERIFY(Operator::byText(scene.root(), QStringLiteral("Ĝenerala")));
    scene.close();
    scene.open();
    QCOMPARE(language(), QLocale::Esperanto);
    choose(scene, "English");
    QCOMPARE(language(), QLocale::English);
    QVERIFY(Operator::byText(scene.root(), QStringLiteral("General")));
}

void TestThirdLanguage::goesForWhatIsChosenElsewhere()
{
    CardScene scene({1024, 600}, withEsperanto());
    choose(scene, "Esperanto");
    scene.close();
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    scene.open();
    QCOMPARE(language(), QLocale::Chinese);
    scene.close();
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    scene.open();
    QCOMPARE(language(), QLocale::English);
}

PANEL_TEST_MAIN(TestThirdLanguage)

#include "test_thirdlanguage.moc"
