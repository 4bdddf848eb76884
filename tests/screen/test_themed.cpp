#include "tests/screen/screenfixture.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);
constexpr QRgb accent = 0xFF007A5A;
constexpr QRgb background = 0xFFD8E4DE;
constexpr QRgb surface = 0xFFF4FFF8;
constexpr QRgb text = 0xFF10301F;

// One that the host does not have.
QString family()
{
    const QStringList families = QFontDatabase().families();
    for (const QString &name : families) {
        if (name != QGuiApplication::font().family())
            return name;
    }
    return {};
}

QVariantMap theme()
{
    return {{QStringLiteral("accent"), QColor(accent)},   {QStringLiteral("background"), QColor(background)},
            {QStringLiteral("surface"), QColor(surface)}, {QStringLiteral("text"), QColor(text)},
            {QStringLiteral("font"), family()},           {QStringLiteral("titleFont"), family()}};
}

QVariantMap themed()
{
    return {{QStringLiteral("panelTheme"), theme()}};
}

int count(const QImage &picture, QRgb color)
{
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        found += int(std::count(line, line + picture.width(), color));
    }
    return found;
}

QImage pictureOf(const ScreenFixture &fixture)
{
    return Operator::picture(fixture.window()).convertToFormat(QImage::Format_RGB32);
}

/// The texts below @p item that can be seen and are not in the family of the theme.
QStringList inAnotherFamily(const QQuickItem *item)
{
    QStringList texts;
    if (!item->isVisible())
        return texts;
    if (item->inherits("QQuickText") || item->inherits("QQuickTextInput")) {
        if (item->property("font").value<QFont>().family() != family())
            texts << item->property("text").toString();
    }
    const QList<QQuickItem *> children = item->childItems();
    for (const QQuickItem *child : children)
        texts << inAnotherFamily(child);
    return texts;
}

} // namespace

/// A screen in the colours and letters of its host.
class TestThemed : public PanelTest
{
    Q_OBJECT

private slots:
    void init() { beginWatch(); }
    void cleanup() { endWatch(); }
    void coloursAreTheHosts();
    void everyTextIsInTheFamily();
    void anotherScreenChangesNothing();
};

void TestThemed::coloursAreTheHosts()
{
    ScreenFixture fixture(plugin, {1024, 600}, themed());
    QVERIFY(fixture.isBuilt());
    fixture.open();
    const QImage picture = pictureOf(fixture);
    QVERIFY(count(picture, background) > 10000);
    QVERIFY(count(picture, surface) > 100000);
    QVERIFY(count(picture, accent) > 300);
    QVERIFY(count(picture, text) > 100);
    QCOMPARE(count(picture, 0xFFF4F5F5), 0);
    QVERIFY(count(picture, 0xFF3482FF) < count(picture, accent)); // the icons keep theirs
}

void TestThemed::everyTextIsInTheFamily()
{
    QVariantMap options = themed();
    options.insert(QStringLiteral("panelConfirmReboot"), true);
    ScreenFixture fixture(plugin, {1024, 600}, options);
    QVERIFY(fixture.isBuilt());
    fixture.open();
    for (const char *page : {"General", "Network", "Version", "Language"}) {
        fixture.tapMenu(QString::fromLatin1(page));
        Operator::settle();
        QCOMPARE(inAnotherFamily(fixture.glass()), QStringList());
    }
    fixture.tapText(QStringLiteral("Reboot"));
    Operator::settle();
    QVERIFY(Operator::byText(fixture.glass(), QStringLiteral("Restart the panel now?")));
    QCOMPARE(inAnotherFamily(fixture.glass()), QStringList());
    // Not by the second half of a double tap.
    QTRY_VERIFY(Operator::byText(fixture.glass(), QStringLiteral("Cancel"))->isEnabled());
    fixture.tapText(QStringLiteral("Cancel"));
    QTRY_VERIFY(!Operator::byText(fixture.glass(), QStringLiteral("Cancel")));

    fixture.tapMenu(QStringLiteral("Network"));
    for (const char *adapter : {"LAN1", "4G", "VPN", "Wi-Fi"}) {
        fixture.tapText(QString::fromLatin1(adapter));
        Operator::settle();
        QCOMPARE(inAnotherFamily(fixture.glass()), QStringList());
    }
    fixture.tapText(QStringLiteral("Wi-Fi Settings"));
    Operator::settle();
    Operator::tap(fixture.card("QSP::CardWifi")->property("scanButton").value<QQuickItem *>());
    QTRY_VERIFY(Operator::byText(fixture.glass(), QStringLiteral("Works Hall Guests")));
    QCOMPARE(inAnotherFamily(fixture.glass()), QStringList());
    fixture.tapText(QStringLiteral("Maintenance"));
    QTRY_VERIFY(Operator::byText(fixture.glass(), QStringLiteral("Enter password")));
    QCOMPARE(inAnotherFamily(fixture.glass()), QStringList());
}

void TestThemed::anotherScreenChangesNothing()
{
    QVariantMap other = theme();
    other.insert(QStringLiteral("accent"), QStringLiteral("#C02020"));
    expectMessage(QStringLiteral("goes without panelTheme: the first screen of the process chose the theme"));
    ScreenFixture fixture(plugin, {1024, 600}, {{QStringLiteral("panelTheme"), other}});
    QVERIFY(fixture.isBuilt());
    fixture.open();
    QVERIFY(count(pictureOf(fixture), accent) > 300);
    QCOMPARE(count(pictureOf(fixture), 0xFFC02020), 0);
}

PANEL_TEST_MAIN(TestThemed)
#include "test_themed.moc"
