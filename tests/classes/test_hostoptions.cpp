#include "shell/base/hostoptions.h"
#include "shell/cardinfo.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using QSP::HostOptions;

/// What is read from the properties of an engine, and what is refused.
class TestHostOptions : public PanelTest
{
    Q_OBJECT

private slots:
    void nothingSaidIsTheUsual();
    void everyOptionIsRead();
    void languages_data();
    void languages();
    void hiddenCards_data();
    void hiddenCards();
    void wrongValueIsRefused_data();
    void wrongValueIsRefused();
    void eachWrongValueIsToldOnItsOwn();
    void cardsHaveNames();
};

namespace {

HostOptions readFrom(const QVariantMap &properties)
{
    QObject engine;
    for (auto property = properties.begin(); property != properties.end(); ++property)
        engine.setProperty(qPrintable(property.key()), property.value());
    return HostOptions::readFrom(engine, {QStringLiteral("first"), QStringLiteral("second")});
}

void compareWithUsual(const HostOptions &options)
{
    const HostOptions usual;
    QCOMPARE(options.languages, usual.languages);
    QCOMPARE(options.keepsLanguage, usual.keepsLanguage);
    QCOMPARE(options.confirmsReboot, usual.confirmsReboot);
    QCOMPARE(options.wantsCompactLandscape, usual.wantsCompactLandscape);
    QCOMPARE(options.hiddenCards, usual.hiddenCards);
    QVERIFY(options.theme == usual.theme);
}

} // namespace

void TestHostOptions::nothingSaidIsTheUsual()
{
    const HostOptions usual;
    QCOMPARE(usual.languages, QVector<QLocale::Language>{QLocale::English});
    QVERIFY(!usual.keepsLanguage);
    QVERIFY(!usual.confirmsReboot);
    QVERIFY(!usual.wantsCompactLandscape);
    QVERIFY(usual.hiddenCards.isEmpty());
    compareWithUsual(readFrom({}));
    // What a host calls its own is none of the screen's business.
    compareWithUsual(readFrom({{"panel", 1}, {"panelist", 2}, {"panel_Languages", 3}, {"mine", 4}}));
}

void TestHostOptions::everyOptionIsRead()
{
    const HostOptions options = readFrom({{"panelLanguages", QStringList{"en", "zh_CN"}},
                                          {"panelKeepLanguage", true},
                                          {"panelConfirmReboot", true},
                                          {"panelCompactLandscape", true},
                                          {"panelHiddenCards", QStringList{"second"}},
                                          {"panelTheme", QVariantMap{{"accent", "#C02020"}}}});
    QCOMPARE(options.theme.accent, std::optional<QColor>(QColor(0xC0, 0x20, 0x20)));
    QCOMPARE(options.languages, (QVector<QLocale::Language>{QLocale::English, QLocale::Chinese}));
    QVERIFY(options.keepsLanguage);
    QVERIFY(options.confirmsReboot);
    QVERIFY(options.wantsCompactLandscape);
    QCOMPARE(options.hiddenCards, QStringList{"second"});
    // As before is a value as well.
    compareWithUsual(readFrom({{"panelLanguages", QStringList{"en"}},
                               {"panelKeepLanguage", false},
                               {"panelConfirmReboot", false},
                               {"panelCompactLandscape", false},
                               {"panelHiddenCards", QStringList{}},
                               {"panelTheme", QVariantMap{}}}));
}

void TestHostOptions::languages_data()
{
    using Languages = QVector<QLocale::Language>;
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<Languages>("read");
    QTest::newRow("in their order") << QStringList{"zh_CN", "en"}
                                    << Languages{QLocale::Chinese, QLocale::English};
    QTest::newRow("without a country") << QStringList{"zh"} << Languages{QLocale::Chinese};
    QTest::newRow("with a catalogue of its own")
        << QStringList{"en", "eo"} << Languages{QLocale::English, QLocale::Esperanto};
}

void TestHostOptions::languages()
{
    QFETCH(QStringList, names);
    QTEST(readFrom({{"panelLanguages", names}}).languages, "read");
}

void TestHostOptions::hiddenCards_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{"first"};
    QTest::newRow("all") << QStringList{"second", "first"};
    QTest::newRow("twice") << QStringList{"first", "first"};
}

void TestHostOptions::hiddenCards()
{
    QFETCH(QStringList, names);
    QCOMPARE(readFrom({{"panelHiddenCards", names}}).hiddenCards, names);
}

void TestHostOptions::wrongValueIsRefused_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("reason");
    int count = 0;
    const auto add = [&count](const char *option, const QVariant &value, const char *reason) {
        QTest::addRow("%s %d", option, ++count)
            << QString::fromLatin1(option) << value << QString::fromLatin1(reason);
    };
    for (const char *flag : {"panelKeepLanguage", "panelConfirmReboot", "panelCompactLandscape"}) {
        for (const QVariant &value : {QVariant(1), QVariant("true"), QVariant(QStringList{"true"}),
                                      QVariant(1.0), QVariant::fromValue<QObject *>(nullptr)})
            add(flag, value, "it is no bool");
    }
    for (const char *list : {"panelLanguages", "panelHiddenCards"}) {
        for (const QVariant &value :
             {QVariant("en"), QVariant(true), QVariant(QVariantList{"en"}), QVariant(QByteArray("first"))})
            add(list, value, "it is no QStringList");
    }
    add("panelLanguages", QStringList(), "the list is empty");
    for (const char *name : {"", " ", "C", "xx", "klingon", "english", "en zh", "../en", "zh\nen"})
        add("panelLanguages", QStringList{"zh", QString::fromLatin1(name)}, "is no language");
    add("panelLanguages", QStringList{QString(100000, 'e')}, "is no language");
    // Qt knows it; the screen does not, and never will.
    add("panelLanguages", QStringList{"en", "vo"}, "\"vo\" has no catalogue");
    add("panelLanguages", QStringList{"en", "zh", "en"}, "\"en\" names a language that the list has already");
    add("panelLanguages", QStringList{"zh_CN", "zh"}, "\"zh\" names a language that the list has already");
    for (const char *name : {"", "First", "first ", "0", "third"})
        add("panelHiddenCards", QStringList{"second", QString::fromLatin1(name)},
            "is no card; there are first, second");
    for (const QVariant &value : {QVariant("dark"), QVariant(0x3482FF), QVariant(QVariantList{}),
                                  QVariant(QVariantHash{{"accent", "#3482FF"}})})
        add("panelTheme", value, "it is no QVariantMap");
    // What is wrong in it stands in the test of the themes.
    add("panelTheme", QVariantMap{{"acent", "#3482FF"}}, "there is no \"acent\" in a theme");
    add("panelLanguage", QStringList{"en"}, "there is no such option");
    add("panelHideCards", QStringList{}, "there is no such option");
}

void TestHostOptions::wrongValueIsRefused()
{
    QFETCH(QString, option);
    QFETCH(QVariant, value);
    QFETCH(QString, reason);
    expectMessage(QStringLiteral("\\AThe settings screen goes without %1: .*%2")
                      .arg(option, QRegularExpression::escape(reason)));
    compareWithUsual(readFrom({{option, value}}));
}

void TestHostOptions::eachWrongValueIsToldOnItsOwn()
{
    expectMessage(QStringLiteral("without panelLanguages"));
    expectMessage(QStringLiteral("without panelConfirmReboot"));
    const HostOptions options = readFrom({{"panelLanguages", QStringList{"vo", "xx"}},
                                          {"panelKeepLanguage", true},
                                          {"panelConfirmReboot", "yes"},
                                          {"panelHiddenCards", QStringList{"first"}}});
    // What is right counts all the same.
    QCOMPARE(options.languages, HostOptions().languages);
    QVERIFY(options.keepsLanguage);
    QVERIFY(!options.confirmsReboot);
    QCOMPARE(options.hiddenCards, QStringList{"first"});
}

// Hosts have them in their programs.
void TestHostOptions::cardsHaveNames()
{
    QCOMPARE(QSP::cardNames(), (QStringList{"brightness", "time", "buzzer", "network", "defaultAdapter",
                                            "dns", "version", "language", "wifi"}));
}

PANEL_TEST_MAIN(TestHostOptions)

#include "test_hostoptions.moc"
