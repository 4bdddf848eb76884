#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);
const QColor highlight(0xF2, 0xF3, 0xF5);

QQuickItem *alias(const QObject *object, const char *name)
{
    return object->property(name).value<QQuickItem *>();
}

QColor colorOf(const QQuickItem *item)
{
    return item->property("color").value<QColor>();
}

QVector<QQuickItem *> entries(const ScreenFixture &fixture)
{
    return Operator::allByClass(alias(fixture.root(), "menuBar"), "QSP::BeepButton");
}

QString sourceOf(const QQuickItem *image)
{
    return image->property("source").toUrl().fileName();
}

QQuickItem *imageOf(QQuickItem *button, const QString &file)
{
    return Operator::items(button, [file](QQuickItem *item) { return sourceOf(item) == file; }).value(0);
}

/// The entries that are marked, by their texts.
QStringList marked(const ScreenFixture &fixture)
{
    QStringList texts;
    const auto buttons = entries(fixture);
    for (const QQuickItem *button : buttons) {
        if (colorOf(alias(button, "background")) == highlight)
            texts << button->property("text").toString();
    }
    return texts;
}

} // namespace

/// How the menu, the title bar and what is in them are drawn.
class TestMenu : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void entryIsDrawnByItsHeight_data();
    void entryIsDrawnByItsHeight();
    void arrowsLeadToPagesOfNarrowScreens();
    void wideScreensHaveNoArrows();
    void separatorStandsBelowTheEntries_data();
    void separatorStandsBelowTheEntries();
    void narrowPortraitMarksNoEntry();
    void narrowLandscapeMarksThePage();
    void wifiPageMarksNetwork();
    void rebootTakesTheHighlight();
    void pageAfterRebootIsMarkedAlone_data();
    void pageAfterRebootIsMarkedAlone();
    void pageThatRebootLeftIsMarkedAgain();
    void barsHaveTheirColours_data();
    void barsHaveTheirColours();
    void titleBarAndMenuEndAlike_data();
    void titleBarAndMenuEndAlike();
};

void TestMenu::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestMenu::entryIsDrawnByItsHeight_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1024, 600);
    QTest::newRow("narrow") << QSize(480, 800);
}

void TestMenu::entryIsDrawnByItsHeight()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    const auto buttons = entries(fixture);
    const QStringList texts{"General", "Network", "Language", "Version", "Reboot"};
    const QStringList icons{"newsetting.png", "newnetwork.png", "newlanguage.png", "newversion.png",
                            "newrestart.png"};
    QCOMPARE(buttons.size(), texts.size());
    for (int i = 0; i < buttons.size(); ++i) {
        QQuickItem *button = buttons.at(i);
        QCOMPARE(alias(button, "background")->property("radius").toReal(), 12.0);
        const QQuickItem *icon = imageOf(button, icons.at(i));
        QVERIFY2(icon, qPrintable(icons.at(i)));
        const qreal side = 0.57 * button->height();
        QCOMPARE(icon->size(), QSizeF(side, side));
        QCOMPARE(icon->x(), side / 2.0 - 4.0);
        QVERIFY(qAbs(icon->y() - (button->height() - side) / 2.0) <= 1.0);
        const QQuickItem *label = Operator::byText(button, texts.at(i));
        QVERIFY(label);
        QCOMPARE(label->x(), side * 1.875 - 4.0);
        QCOMPARE(label->property("font").value<QFont>().pixelSize(), qRound(0.357 * button->height()));
        QVERIFY(qAbs(label->y() - (button->height() - label->height()) / 2.0) <= 1.0);
    }
    QQuickItem *bottom = alias(alias(fixture.root(), "menuBar"), "bottomContainer");
    const QQuickItem *last = buttons.last();
    QCOMPARE(last->parentItem(), bottom);
    QCOMPARE(bottom->height(), 54.0);
    QVERIFY(qAbs(last->y() - (bottom->height() - last->height()) / 2.0) <= 1.0);
}

void TestMenu::arrowsLeadToPagesOfNarrowScreens()
{
    const QString file = QStringLiteral("rightArrow0@2x.png");
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    const auto buttons = entries(fixture);
    for (int i = 0; i < 4; ++i) {
        const QQuickItem *button = buttons.at(i);
        const QQuickItem *arrow = imageOf(buttons.at(i), file);
        QVERIFY(arrow);
        const qreal side = 0.4 * button->height();
        QCOMPARE(arrow->size(), QSizeF(side, side));
        QCOMPARE(arrow->x(), button->width() - side - 32.0);
        QCOMPARE(arrow->property("sourceSize").toSize(), QSize(64, 64));
    }
    QVERIFY(!imageOf(buttons.at(4), file));
    Operator::tap(buttons.at(0));
    QQuickItem *titleBar = alias(fixture.root(), "titleBar");
    QVERIFY(imageOf(Operator::byClass(titleBar, "QSP::BeepButton"), QStringLiteral("leftArrow0@2x.png")));
}

void TestMenu::wideScreensHaveNoArrows()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    QVERIFY(!imageOf(alias(fixture.root(), "menuBar"), QStringLiteral("rightArrow0@2x.png")));
}

void TestMenu::separatorStandsBelowTheEntries_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("marginOfWidth");
    QTest::newRow("wide") << QSize(1024, 600) << 0.05714285714285714;
    QTest::newRow("narrow") << QSize(480, 800) << 0.025;
}

void TestMenu::separatorStandsBelowTheEntries()
{
    QFETCH(QSize, size);
    QFETCH(qreal, marginOfWidth);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    const QQuickItem *column = alias(alias(fixture.root(), "menuBar"), "column");
    const auto rows = column->childItems();
    QCOMPARE(rows.size(), 5);
    const QQuickItem *line = rows.last();
    const qreal margin = marginOfWidth * column->width();
    QCOMPARE(line->x(), margin);
    QCOMPARE(line->size(), QSizeF(column->width() - 2.0 * margin, 1.0));
    QCOMPARE(colorOf(line), QColor(0xF4, 0xF5, 0xF5));
    QCOMPARE(line->y(), rows.at(3)->y() + rows.at(3)->height() + 12.0);
    QCOMPARE(column->y(), 12.0);
}

void TestMenu::narrowPortraitMarksNoEntry()
{
    ScreenFixture fixture(plugin, {480, 800});
    fixture.open();
    QCOMPARE(colorOf(alias(fixture.root(), "menuBar")), QColor(0xF4, 0xF5, 0xF5));
    Operator::tap(entries(fixture).at(1));
    QQuickItem *titleBar = alias(fixture.root(), "titleBar");
    Operator::tap(Operator::byClass(titleBar, "QSP::BeepButton"));
    const auto buttons = entries(fixture);
    for (const QQuickItem *button : buttons)
        QCOMPARE(colorOf(alias(button, "background")), QColor(Qt::white));
}

void TestMenu::narrowLandscapeMarksThePage()
{
    ScreenFixture fixture(plugin, {799, 480});
    fixture.open();
    QCOMPARE(colorOf(alias(fixture.root(), "menuBar")), QColor(Qt::white));
    Operator::tap(entries(fixture).at(1));
    QQuickItem *titleBar = alias(fixture.root(), "titleBar");
    Operator::tap(Operator::byClass(titleBar, "QSP::BeepButton"));
    QCOMPARE(colorOf(alias(entries(fixture).at(1), "background")), highlight);
    fixture.close();
    fixture.open();
    const auto buttons = entries(fixture);
    for (const QQuickItem *button : buttons)
        QCOMPARE(colorOf(alias(button, "background")), QColor(Qt::white));
}

void TestMenu::wifiPageMarksNetwork()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    const auto buttons = entries(fixture);
    const auto toWifi = [&fixture] {
        fixture.tapMenu(QStringLiteral("Network"));
        fixture.tapText(QStringLiteral("Wi-Fi"));
        Operator::tap(Operator::byText(fixture.glass(), QStringLiteral("Wi-Fi Settings")));
        Operator::settle();
    };
    toWifi();
    QCOMPARE(fixture.title(), QStringLiteral("Wi-Fi"));
    QCOMPARE(colorOf(alias(buttons.at(1), "background")), highlight);
    QVERIFY(!fixture.card("QSP::CardNetwork"));
    // The entry of the marked button is another page than the one that marks it.
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(fixture.title(), QStringLiteral("Network"));
    QCOMPARE(colorOf(alias(buttons.at(1), "background")), highlight);
    QVERIFY(!fixture.card("QSP::CardWifi"));
    toWifi();
    fixture.close();
    QCOMPARE(colorOf(alias(buttons.at(1), "background")), QColor(Qt::white));
    fixture.open();
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    QVERIFY(!fixture.card("QSP::CardWifi"));
}

void TestMenu::rebootTakesTheHighlight()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    const auto buttons = entries(fixture);
    Operator::tap(buttons.last());
    QCOMPARE(colorOf(alias(buttons.first(), "background")), QColor(Qt::white));
    QCOMPARE(colorOf(alias(buttons.last(), "background")), highlight);
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    fixture.close();
    QCOMPARE(colorOf(alias(buttons.first(), "background")), highlight);
    QCOMPARE(colorOf(alias(buttons.last(), "background")), QColor(Qt::white));
}

void TestMenu::pageAfterRebootIsMarkedAlone_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1024, 600);
    QTest::newRow("narrow landscape") << QSize(799, 480);
}

void TestMenu::pageAfterRebootIsMarkedAlone()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    Operator::tap(entries(fixture).constLast());
    QCOMPARE(marked(fixture), QStringList{QStringLiteral("Reboot")});
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(fixture.title(), QStringLiteral("Network"));
    if (!alias(fixture.root(), "menuBar")->isVisible())
        Operator::tap(Operator::byClass(alias(fixture.root(), "titleBar"), "QSP::BeepButton"));
    QCOMPARE(marked(fixture), QStringList{QStringLiteral("Network")});
}

void TestMenu::pageThatRebootLeftIsMarkedAgain()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    Operator::tap(entries(fixture).constLast());
    QCOMPARE(marked(fixture), QStringList{QStringLiteral("Reboot")});
    // It was the current page all the time.
    fixture.tapMenu(QStringLiteral("General"));
    QCOMPARE(marked(fixture), QStringList{QStringLiteral("General")});
    QCOMPARE(fixture.title(), QStringLiteral("General"));
}

void TestMenu::barsHaveTheirColours_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QColor>("right");
    QTest::newRow("wide") << QSize(1024, 600) << QColor(0xF4, 0xF5, 0xF5);
    QTest::newRow("wide portrait") << QSize(800, 1280) << QColor(0xF4, 0xF5, 0xF5);
    QTest::newRow("narrow portrait") << QSize(480, 800) << QColor(Qt::white);
    QTest::newRow("narrow landscape") << QSize(799, 480) << QColor(0xF4, 0xF5, 0xF5);
}

void TestMenu::barsHaveTheirColours()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    QCOMPARE(colorOf(fixture.root()), QColor(0xF4, 0xF5, 0xF5));
    QQuickItem *titleBar = alias(fixture.root(), "titleBar");
    const QQuickItem *settings = alias(fixture.root(), "settingsText");
    const QQuickItem *left = settings->parentItem();
    const QQuickItem *right = titleBar->childItems().constFirst();
    QCOMPARE(colorOf(left), QColor(Qt::white));
    QCOMPARE(left->width(), alias(fixture.root(), "menuBar")->width());
    QTEST(colorOf(right), "right");
    QCOMPARE(right->x(), left->width());
    QCOMPARE(right->width(), size.width() - left->width());
    QCOMPARE(settings->property("text").toString(), QStringLiteral("Settings"));
    for (const char *text : {"settingsText", "titleText"})
        QCOMPARE(alias(fixture.root(), text)->property("font").value<QFont>().pixelSize(),
                 qRound(titleBar->height() / 3.0));
    if (size.width() >= 800)
        return;
    Operator::tap(entries(fixture).constFirst());
    QCOMPARE(left->width(), 0.0);
    QCOMPARE(right->width(), qreal(size.width()));
}

void TestMenu::titleBarAndMenuEndAlike_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size :
         {QSize(800, 480), QSize(1024, 600), QSize(1280, 800), QSize(1366, 768), QSize(850, 1280)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestMenu::titleBarAndMenuEndAlike()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    const QImage glass = Operator::picture(fixture.window());
    const auto whiteEnd = [&glass](int y) {
        int x = 0;
        while (x < glass.width() && glass.pixelColor(x, y) == QColor(Qt::white))
            ++x;
        return x;
    };
    const int edge = qRound(alias(fixture.root(), "titleBar")->height());
    const int inTitle = whiteEnd(edge - 3);
    QVERIFY(inTitle > size.width() / 10 && inTitle < size.width() / 2);
    QCOMPARE(whiteEnd(edge + 3), inTitle);
}

PANEL_TEST_MAIN(TestMenu)

#include "test_menu.moc"
