#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

#include <algorithm>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QQuickItem *part(const ScreenFixture &fixture, const char *alias)
{
    return fixture.root()->property(alias).value<QQuickItem *>();
}

QQuickItem *menuButton(const ScreenFixture &fixture, const QString &text)
{
    return Operator::ancestorOf(Operator::byText(part(fixture, "menuBar"), text), "QSP::BeepButton");
}

QColor backgroundOf(const ScreenFixture &fixture, const QString &text)
{
    const QQuickItem *button = menuButton(fixture, text);
    const auto *background = button ? button->property("background").value<QQuickItem *>() : nullptr;
    return background ? background->property("color").value<QColor>() : QColor();
}

int itemCount(const ScreenFixture &fixture)
{
    return Operator::items(fixture.glass(), [](QQuickItem *) { return true; }).size();
}

} // namespace

/// The frame of a wide screen: geometry, menu, title, pages.
class TestRoot : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void hiddenUntilOpened();
    void geometry_data();
    void geometry();
    void startsOnGeneral();
    void menuSwitchesPages();
    void fingersWorkLikeTheMouse();
    void sameEntryTwiceChangesNothing();
    void rebootActsAtOnce();
    void closeReturnsToGeneral();
    void openedComesWithEachOpening();
    void languageChosenElsewhereIsFollowed();
    void tapsDoNotFallThrough();
    void openingsLeaveNothingBehind();
    void resizeKeepsProportions();
    void hostMayDeleteTheScreen();
};

void TestRoot::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestRoot::hiddenUntilOpened()
{
    ScreenFixture fixture(plugin, {1024, 600});
    QVERIFY(fixture.isBuilt());
    QVERIFY(!fixture.root()->isVisible());
    QCOMPARE(fixture.root()->size(), QSizeF(1024, 600));
    fixture.open();
    QVERIFY(fixture.root()->isVisible());
    fixture.close();
    QVERIFY(!fixture.root()->isVisible());
}

void TestRoot::geometry_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("menuWidth");
    QTest::addColumn<qreal>("titleHeight");
    QTest::addColumn<QRectF>("pool");
    QTest::newRow("1024x600") << QSize(1024, 600) << 210.0 << 71.68 << QRectF(230, 71.68, 774, 528.32);
    QTest::newRow("800x480") << QSize(800, 480) << 164.0625 << 56.0 << QRectF(184.0625, 56, 595.9375, 424);
    QTest::newRow("1280x800") << QSize(1280, 800) << 262.5 << 89.6 << QRectF(282.5, 89.6, 977.5, 710.4);
    QTest::newRow("800x1280") << QSize(800, 1280) << 210.0 << 72.0 << QRectF(230, 72, 550, 1208);
}

void TestRoot::geometry()
{
    QFETCH(QSize, size);
    QFETCH(qreal, menuWidth);
    QFETCH(qreal, titleHeight);
    QFETCH(QRectF, pool);
    ScreenFixture fixture(plugin, size);
    for (const bool open : {false, true}) {
        if (open)
            fixture.open();
        const QQuickItem *menu = part(fixture, "menuBar");
        const QQuickItem *cardPool = part(fixture, "cardPool");
        QCOMPARE(menu->width(), menuWidth);
        QCOMPARE(menu->y(), titleHeight);
        QCOMPARE(menu->height(), size.height() - titleHeight);
        QCOMPARE(part(fixture, "titleBar")->height(), titleHeight);
        QCOMPARE(cardPool->position(), pool.topLeft());
        QCOMPARE(cardPool->width(), pool.width());
        QCOMPARE(cardPool->height(), pool.height());
        QCOMPARE(part(fixture, "cardsParent")->width(), pool.width());
        const QQuickItem *title = part(fixture, "titleText");
        QCOMPARE(title->x(), menuWidth + (size.width() - menuWidth - title->width()) / 2.0);
    }
    const QQuickItem *general = menuButton(fixture, QStringLiteral("General"));
    QVERIFY(general);
    QCOMPARE(general->height(), menuWidth * 0.2571428571428571);
    QCOMPARE(general->x(), menuWidth * 0.05714285714285714);
    QCOMPARE(general->width(), menuWidth - 2.0 * menuWidth * 0.05714285714285714);
}

void TestRoot::startsOnGeneral()
{
    ScreenFixture fixture(plugin, {1024, 600});
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    QCOMPARE(part(fixture, "cardsParent")->childItems().size(), 3);
    fixture.open();
    QVERIFY(fixture.card("QSP::CardBrightness"));
    QVERIFY(fixture.card("QSP::CardTime"));
    QVERIFY(fixture.card("QSP::CardBuzzer"));
    QCOMPARE(backgroundOf(fixture, QStringLiteral("General")), QColor(0xF2, 0xF3, 0xF5));
    QCOMPARE(backgroundOf(fixture, QStringLiteral("Network")), QColor(Qt::white));
    QVERIFY(menuButton(fixture, QStringLiteral("Reboot")));
    QVERIFY(!menuButton(fixture, QStringLiteral("Exit")));
}

void TestRoot::menuSwitchesPages()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    QSignalSpy changes(fixture.root(),
                       SIGNAL(currentPageChanged(QSP::AppRootItem::MenuIndex, QSP::AppRootItem::MenuIndex)));
    QVERIFY(changes.isValid());
    QString previous = QStringLiteral("General");
    for (const char *name : {"Network", "Language", "Version", "General"}) {
        const QString page = QLatin1String(name);
        fixture.tapMenu(page);
        QCOMPARE(fixture.title(), page);
        QCOMPARE(backgroundOf(fixture, page), QColor(0xF2, 0xF3, 0xF5));
        QCOMPARE(backgroundOf(fixture, previous), QColor(Qt::white));
        QCOMPARE(fixture.card("QSP::CardBrightness") != nullptr, page == QLatin1String("General"));
        previous = page;
    }
    QCOMPARE(changes.size(), 4);
}

void TestRoot::fingersWorkLikeTheMouse()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    Operator::touch(menuButton(fixture, QStringLiteral("Version")));
    QCOMPARE(fixture.title(), QStringLiteral("Version"));
}

void TestRoot::sameEntryTwiceChangesNothing()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    QSignalSpy changes(fixture.root(),
                       SIGNAL(currentPageChanged(QSP::AppRootItem::MenuIndex, QSP::AppRootItem::MenuIndex)));
    fixture.tapMenu(QStringLiteral("Version"));
    QCOMPARE(changes.size(), 0);
    QCOMPARE(fixture.title(), QStringLiteral("Version"));
}

void TestRoot::rebootActsAtOnce()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    HmiSimulator::clearJournal();
    fixture.tapMenu(QStringLiteral("Reboot"));
    QCOMPARE(Journal::callsButBeeps(), QStringList{QStringLiteral("reboot()")});
    QCOMPARE(backgroundOf(fixture, QStringLiteral("Reboot")), QColor(0xF2, 0xF3, 0xF5));
    QCOMPARE(backgroundOf(fixture, QStringLiteral("Version")), QColor(Qt::white));
    // The visit after it starts like any other.
    fixture.close();
    fixture.open();
    QCOMPARE(backgroundOf(fixture, QStringLiteral("Reboot")), QColor(Qt::white));
    QCOMPARE(backgroundOf(fixture, QStringLiteral("General")), QColor(0xF2, 0xF3, 0xF5));
    QCOMPARE(fixture.title(), QStringLiteral("General"));
}

void TestRoot::closeReturnsToGeneral()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    fixture.close();
    fixture.open();
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    QVERIFY(fixture.card("QSP::CardTime"));
    QVERIFY(!fixture.card("QSP::CardVersion"));
}

void TestRoot::openedComesWithEachOpening()
{
    ScreenFixture fixture(plugin, {1024, 600});
    QSignalSpy opened(fixture.root(), SIGNAL(opened()));
    QVERIFY(opened.isValid());
    fixture.open();
    QCOMPARE(opened.size(), 1);
    fixture.screen()->open();
    QCOMPARE(opened.size(), 1);
    fixture.close();
    QCOMPARE(opened.size(), 1);
    fixture.open();
    QCOMPARE(opened.size(), 2);
}

void TestRoot::languageChosenElsewhereIsFollowed()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    HmiSimulator::clearJournal();
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(fixture.title(), QStringLiteral("网络设置"));
    QVERIFY(menuButton(fixture, QStringLiteral("通用设置")));
    fixture.close();
    HmiSimulator::setLanguage(7);
    fixture.open();
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    QCOMPARE(Journal::calls("setLanguage"), QStringList());
}

void TestRoot::tapsDoNotFallThrough()
{
    ScreenFixture fixture(plugin, {1024, 600});
    QQuickItem host(fixture.glass());
    host.setSize({1024, 600});
    host.setZ(-1.0);
    host.setAcceptedMouseButtons(Qt::LeftButton);
    int reached = 0;
    struct Catcher : QObject {
        int *count;
        explicit Catcher(int *count) : count(count) {}
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::MouseButtonPress)
                ++*count;
            return false;
        }
    } catcher(&reached);
    host.installEventFilter(&catcher);
    Operator::tap(fixture.window(), {600, 590});
    QCOMPARE(reached, 1);
    fixture.open();
    Operator::tap(fixture.window(), {600, 590});
    Operator::tap(fixture.window(), {20, 450});
    QCOMPARE(reached, 1);
}

void TestRoot::openingsLeaveNothingBehind()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    for (const char *page : {"Network", "Language", "Version", "General"})
        fixture.tapMenu(QLatin1String(page));
    fixture.close();
    HmiSimulator::waitIdle();
    QCoreApplication::processEvents();
    const int items = itemCount(fixture);
    const int objects = fixture.root()->findChildren<QObject *>().size();
    for (int i = 0; i < 1000; ++i) {
        fixture.screen()->open();
        fixture.screen()->close();
        QCoreApplication::processEvents();
    }
    QCOMPARE(itemCount(fixture), items);
    QCOMPARE(fixture.root()->findChildren<QObject *>().size(), objects);
}

void TestRoot::resizeKeepsProportions()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.root()->setWidth(1280);
    QCOMPARE(part(fixture, "menuBar")->width(), 262.5);
    QCOMPARE(part(fixture, "titleBar")->height(), 89.6);
    QCOMPARE(part(fixture, "cardPool")->width(), 1280 - 262.5 - 40);
    const QList<QQuickItem *> cards = part(fixture, "cardsParent")->childItems();
    for (const QQuickItem *card : cards)
        QCOMPARE(card->width(), 1280 - 262.5 - 40);
}

void TestRoot::hostMayDeleteTheScreen()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    const auto timers = timersBelow(fixture.root());
    QVERIFY(!timers.isEmpty());
    delete fixture.root();
    fixture.screen()->open();
    fixture.screen()->close();
    Operator::settle();
    // No tick of a clock that is gone.
    QVERIFY(std::all_of(timers.begin(), timers.end(), [](const auto &timer) { return timer.isNull(); }));
    QQuickItem *root = fixture.screen()->init(fixture.engine(), 800, 480, 5);
    QVERIFY(root);
    root->setParentItem(fixture.glass());
    fixture.screen()->open();
    Operator::settle();
    QVERIFY(root->isVisible());
    QCOMPARE(root->size(), QSizeF(800, 480));
    Operator::tap(Operator::ancestorOf(Operator::byText(root, QStringLiteral("Version")), "QSP::BeepButton"));
    QCOMPARE(root->property("titleText").value<QQuickItem *>()->property("text").toString(),
             QStringLiteral("Version"));
    delete root;
}

PANEL_TEST_MAIN(TestRoot)

#include "test_root.moc"
