#include "tests/screen/networkpage.h"
#include "tests/screen/wifiscreen.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QQuickItem *part(const ScreenFixture &fixture, const char *alias)
{
    return fixture.root()->property(alias).value<QQuickItem *>();
}

QVector<QQuickItem *> entries(const ScreenFixture &fixture)
{
    return Operator::allByClass(part(fixture, "menuBar"), "QSP::BeepButton");
}

QQuickItem *returnButton(const ScreenFixture &fixture)
{
    return Operator::byClass(part(fixture, "titleBar"), "QSP::BeepButton");
}

QRectF placeOf(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF({0, 0}, item->size()));
}

} // namespace

/// A narrow glass that lies, of a host that wants it laid out as one that stands.
class TestCompact : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void menuFillsTheScreen_data() { sizes(); }
    void menuFillsTheScreen();
    void menuAndPageTakeTurns_data() { sizes(); }
    void menuAndPageTakeTurns();
    void rowsAreHighEnough_data() { sizes(); }
    void rowsAreHighEnough();
    void dialogsHaveRoom_data() { sizes(); }
    void dialogsHaveRoom();
    void keyboardCoversNoField_data() { sizes(); }
    void keyboardCoversNoField();
    void hiddenPagesLeaveNoGap();
    void otherSizesAreAsEver_data();
    void otherSizesAreAsEver();
    void withoutTheOptionNothingChanges();

private:
    static void sizes();
};

void TestCompact::sizes()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(480, 272), QSize(640, 480), QSize(799, 480), QSize(600, 600)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestCompact::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
}

void TestCompact::menuFillsTheScreen()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    QCOMPARE(part(fixture, "menuBar")->width(), double(size.width()));
    QCOMPARE(fixture.title(), QString());
    QVERIFY(part(fixture, "titleBar")->height() >= 44.0);
    const auto buttons = entries(fixture);
    QCOMPARE(buttons.size(), 5);
    const QRectF glass({0, 0}, QSizeF(size));
    for (int i = 0; i < buttons.size(); ++i) {
        QVERIFY(buttons[i]->height() >= 44.0);
        QVERIFY(glass.contains(placeOf(buttons[i])));
        for (int j = 0; j < i; ++j)
            QVERIFY(!placeOf(buttons[i]).intersects(placeOf(buttons[j])));
    }
    // Two and two, in the order in which one reads.
    QCOMPARE(placeOf(buttons[0]).top(), placeOf(buttons[1]).top());
    QVERIFY(placeOf(buttons[0]).right() < placeOf(buttons[1]).left());
    QVERIFY(placeOf(buttons[0]).bottom() < placeOf(buttons[2]).top());
    QVERIFY(Operator::byIcon(buttons[0], QStringLiteral("rightArrow0@2x.png")));
}

void TestCompact::menuAndPageTakeTurns()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    for (const char *page : {"General", "Network", "Language", "Version"}) {
        fixture.tapMenu(QLatin1String(page));
        QVERIFY(!part(fixture, "menuBar")->isVisible());
        QCOMPARE(fixture.title(), QLatin1String(page));
        const QQuickItem *pool = part(fixture, "cardPool");
        QCOMPARE(pool->x(), 12.0);
        QCOMPARE(pool->width(), size.width() - 24.0);
        QVERIFY(returnButton(fixture)->height() >= 44.0);
        Operator::touch(returnButton(fixture));
        QVERIFY(part(fixture, "menuBar")->isVisible());
        QVERIFY(!pool->isVisible());
        QCOMPARE(fixture.title(), QString());
    }
    fixture.tapMenu(QStringLiteral("General"));
    fixture.close();
    fixture.open();
    QVERIFY(part(fixture, "menuBar")->isVisible());
    HmiSimulator::clearJournal();
    Operator::touch(entries(fixture).constLast());
    QCOMPARE(Journal::calls("reboot").size(), 1);
}

void TestCompact::rowsAreHighEnough()
{
    QFETCH(QSize, size);
    NetworkPage page(size);
    const QStringList adapters = page.adapterLabels();
    for (const QString &adapter : adapters) {
        page.select(adapter);
        const QStringList labels = page.rowLabels();
        for (const QString &label : labels)
            QVERIFY2(page.row(label)->height() >= 44.0, qPrintable(label));
    }
    page.select(QStringLiteral("LAN0"));
    for (const QQuickItem *field : {page.dnsInput(1), page.dnsInput(2)})
        QVERIFY(field->parentItem()->height() >= 44.0);
    const auto *box = page.defaultAdapter()->property("combobox").value<QQuickItem *>();
    QVERIFY(box->parentItem()->height() >= 44.0);

    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    fixture.tapMenu(QStringLiteral("Language"));
    QVERIFY(Operator::byClass(fixture.card("QSP::CardLanguage"), "QSP::BeepButton")->height() >= 44.0);
}

void TestCompact::dialogsHaveRoom()
{
    QFETCH(QSize, size);
    const QRectF glass({0, 0}, QSizeF(size));
    WifiScreen screen(size, false);
    screen.toWifi();
    screen.scan();
    Operator::tap(screen.row(QStringLiteral("Maintenance")));
    Operator::settle();
    QQuickItem *dialog = Operator::ancestorOf(screen.dialogBody(), "QQuickPopupItem");
    QVERIFY(glass.contains(placeOf(dialog)));

    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    fixture.tapMenu(QStringLiteral("General"));
    Operator::tap(Operator::byClass(fixture.card("QSP::CardTime"), "QSP::BeepButton"));
    QTRY_VERIFY(Operator::byText(fixture.glass(), QStringLiteral("OK")));
    const auto *editor =
        Operator::ancestorOf(Operator::byText(fixture.glass(), QStringLiteral("OK")), "QQuickPopupItem");
    QVERIFY(glass.contains(placeOf(editor)));
}

void TestCompact::keyboardCoversNoField()
{
    QFETCH(QSize, size);
    const auto check = [](const ScreenFixture &screen, QQuickItem *field) {
        Operator::settle();
        const QQuickItem *keyboard = Operator::byName(screen.glass(), QStringLiteral("vkbKeyboard"));
        QVERIFY(keyboard && field->hasActiveFocus());
        QVERIFY2(placeOf(field).bottom() <= placeOf(keyboard).top(), field->metaObject()->className());
        QVERIFY(placeOf(field).top() >= 0.0);
        Operator::key(screen.window(), 0x100000);
    };
    WifiScreen screen(size, false);
    screen.toWifi();
    screen.scan();
    Operator::tap(screen.row(QStringLiteral("Maintenance")));
    Operator::settle();
    QQuickItem *password = Operator::byClass(screen.dialogBody(), "QQuickTextInput");
    Operator::tap(password);
    check(screen, password);

    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    fixture.tapMenu(QStringLiteral("General"));
    Operator::tap(Operator::byClass(fixture.card("QSP::CardTime"), "QSP::BeepButton"));
    QTRY_VERIFY(Operator::byText(fixture.glass(), QStringLiteral("OK")));
    const auto fields = Operator::allByClass(fixture.glass(), "QQuickTextInput");
    for (QQuickItem *field : fields) {
        Operator::tap(field);
        check(fixture, field);
    }
}

void TestCompact::hiddenPagesLeaveNoGap()
{
    QVariantMap options = compactOptions();
    options.insert(QStringLiteral("panelHiddenCards"), QStringList{"language"});
    ScreenFixture fixture(plugin, {480, 272}, options);
    fixture.open();
    const auto buttons = entries(fixture);
    QCOMPARE(buttons.size(), 4);
    QCOMPARE(placeOf(buttons[2]).left(), placeOf(buttons[0]).left());
    QVERIFY(placeOf(buttons[2]).top() > placeOf(buttons[0]).bottom());
}

void TestCompact::otherSizesAreAsEver_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(800, 480), QSize(480, 800), QSize(799, 800), QSize(1024, 600)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestCompact::otherSizesAreAsEver()
{
    QFETCH(QSize, size);
    const auto picture = [size](const QVariantMap &options) {
        ScreenFixture fixture(plugin, size, options);
        fixture.open();
        fixture.tapMenu(QStringLiteral("Version"));
        return Operator::picture(fixture.window());
    };
    QCOMPARE(picture(compactOptions()), picture({}));
}

void TestCompact::withoutTheOptionNothingChanges()
{
    const ScreenFixture compact(plugin, {799, 480}, compactOptions());
    ScreenFixture fixture(plugin, {799, 480});
    fixture.open();
    QCOMPARE(part(fixture, "menuBar")->width(), 0.205078125 * 799);
    fixture.tapMenu(QStringLiteral("General"));
    QCOMPARE(part(fixture, "cardPool")->x(), 40.0);
    QCOMPARE(part(fixture, "titleBar")->height(), 0.07 * 799);
}

PANEL_TEST_MAIN(TestCompact)

#include "test_compact.moc"
