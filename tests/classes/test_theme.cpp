#include "shell/base/palettecolors.h"
#include "shell/base/theme.h"
#include "tests/support/paneltest.h"

#include <QtGui/QFontDatabase>

using QSP::PaletteColors;
using QSP::Theme;

/// What a host may choose of the looks.
class TestTheme : public PanelTest
{
    Q_OBJECT

private slots:
    void contrast_data();
    void contrast();
    void everyEntryIsRead();
    void nothingChosenChangesNothing();
    void othersFollow_data();
    void othersFollow();
    void wrongThemeIsRefused_data();
    void wrongThemeIsRefused();
};

namespace {

Theme read(const QVariantMap &map, QString *fault)
{
    return Theme::readFrom(map, fault);
}

QString someFamily()
{
    return QFontDatabase().families().constLast();
}

} // namespace

void TestTheme::contrast_data()
{
    QTest::addColumn<QColor>("one");
    QTest::addColumn<QColor>("other");
    QTest::addColumn<double>("expected");
    QTest::newRow("black and white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("the same") << QColor(0x12, 0x34, 0x56) << QColor(0x12, 0x34, 0x56) << 1.0;
    // Figures that are printed in many tables.
    QTest::newRow("the grey that can just be read") << QColor(0x76, 0x76, 0x76) << QColor(Qt::white) << 4.54;
    QTest::newRow("red") << QColor(Qt::white) << QColor(0xFF, 0, 0) << 4.00;
}

void TestTheme::contrast()
{
    QFETCH(QColor, one);
    QFETCH(QColor, other);
    QFETCH(double, expected);
    QVERIFY(std::abs(QSP::contrastOf(one, other) - expected) < 0.005);
    std::swap(one, other);
    QVERIFY(std::abs(QSP::contrastOf(one, other) - expected) < 0.005);
}

void TestTheme::everyEntryIsRead()
{
    QString fault;
    const Theme theme = read({{"accent", QColor(0xC0, 0x20, 0x20)},
                              {"background", "#E0E8E0"},
                              {"surface", "#F8FFF8"},
                              {"text", "#002000"},
                              {"font", someFamily()},
                              {"titleFont", someFamily()}},
                             &fault);
    QCOMPARE(fault, QString());
    QCOMPARE(theme.accent, std::optional<QColor>(QColor(0xC0, 0x20, 0x20)));
    QCOMPARE(theme.background, std::optional<QColor>(QColor(0xE0, 0xE8, 0xE0)));
    QCOMPARE(theme.surface, std::optional<QColor>(QColor(0xF8, 0xFF, 0xF8)));
    QCOMPARE(theme.text, std::optional<QColor>(QColor(0x00, 0x20, 0x00)));
    QCOMPARE(theme.font, someFamily());
    QCOMPARE(theme.titleFont, someFamily());
}

void TestTheme::nothingChosenChangesNothing()
{
    QString fault;
    const PaletteColors usual;
    const PaletteColors colors = PaletteColors::of(read({}, &fault));
    QCOMPARE(fault, QString());
    QCOMPARE(colors.accent, usual.accent);
    QCOMPARE(colors.strongAccent, usual.strongAccent);
    QCOMPARE(colors.text, usual.text);
    QCOMPARE(colors.fieldText, usual.fieldText);
    QCOMPARE(colors.markedSurface, usual.markedSurface);
    QCOMPARE(colors.background, usual.background);
}

void TestTheme::othersFollow_data()
{
    QTest::addColumn<QVariantMap>("theme");
    QTest::newRow("an accent") << QVariantMap{{"accent", "#D06000"}};
    QTest::newRow("a text") << QVariantMap{{"text", "#203040"}};
    QTest::newRow("a surface") << QVariantMap{{"surface", "#FFF4E0"}};
    QTest::newRow("all") << QVariantMap{
        {"accent", "#007A5A"}, {"background", "#E4ECE8"}, {"surface", "#F4FFF8"}, {"text", "#10201A"}};
}

void TestTheme::othersFollow()
{
    QFETCH(QVariantMap, theme);
    QString fault;
    const PaletteColors colors = PaletteColors::of(read(theme, &fault));
    QCOMPARE(fault, QString());
    const auto contrast = [&colors](const QColor &color) { return QSP::contrastOf(color, colors.surface); };
    QVERIFY(QSP::contrastOf(colors.strongAccent, Qt::white) >= 4.5);
    QVERIFY(contrast(colors.focus) >= 4.5);
    // From the strongest to the weakest, as without a theme.
    const QVector<QColor> weaker{colors.text,         colors.strongHint,  colors.hint,   colors.caption,
                                 colors.disabledText, colors.fieldBorder, colors.surface};
    for (int i = 1; i < weaker.size(); ++i)
        QVERIFY2(contrast(weaker[i - 1]) > contrast(weaker[i]), qPrintable(QString::number(i)));
    QVERIFY(contrast(colors.markedSurface) > 1.0);
    // What a colour means does not depend on the taste.
    QCOMPARE(colors.failure, PaletteColors().failure);
    QCOMPARE(colors.success, PaletteColors().success);
}

void TestTheme::wrongThemeIsRefused_data()
{
    QTest::addColumn<QVariantMap>("theme");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no colour") << QVariantMap{{"accent", "bleu"}} << "accent is no opaque colour";
    QTest::newRow("a number") << QVariantMap{{"accent", 7.5}} << "accent is no opaque colour";
    QTest::newRow("one that is seen through")
        << QVariantMap{{"surface", "#80FFFFFF"}} << "surface is no opaque colour";
    QTest::newRow("no family") << QVariantMap{{"font", "Nowhere Sans"}}
                               << "font is no family that is installed";
    QTest::newRow("an empty family") << QVariantMap{{"titleFont", ""}}
                                     << "titleFont is no family that is installed";
    QTest::newRow("no such entry") << QVariantMap{{"Accent", "#3482FF"}}
                                   << R"(there is no "Accent" in a theme)";
    QTest::newRow("a long name") << QVariantMap{{QString(5000, 'x'), "#3482FF"}}
                                 << "there is no \"" + QString(40, 'x') + "\" in a theme";
    QTest::newRow("text that fades away") << QVariantMap{{"text", "#9098A0"}}
                                          << "text on the surface: contrast 2.92, but at least 4.5 is needed";
    QTest::newRow("text that fades away in the background")
        << QVariantMap{{"text", "#404040"}, {"background", "#808080"}}
        << "text on the background: contrast 2.63, but at least 4.5 is needed";
    QTest::newRow("accent that is nearly white")
        << QVariantMap{{"accent", "#FFE8A0"}}
        << "the accent on the surface: contrast 1.21, but at least 3.0 is needed";
    QTest::newRow("icons in the dark")
        << QVariantMap{{"surface", "#202020"}, {"text", "#FFFFFF"}, {"background", "#101010"}}
        << "dark icons on the surface: luminance 0.01, but at least 0.6 is needed";
    QTest::newRow("one of two is wrong")
        << QVariantMap{{"accent", "#C02020"}, {"text", "nothing"}} << "text is no opaque colour";
}

void TestTheme::wrongThemeIsRefused()
{
    QFETCH(QVariantMap, theme);
    QString fault;
    QVERIFY(read(theme, &fault) == Theme());
    QTEST(fault, "reason");
}

PANEL_TEST_MAIN(TestTheme)
#include "test_theme.moc"
