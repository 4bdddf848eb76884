#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"
#include "tests/support/layoutcheck.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);
QVariantMap asking()
{
    return {{QStringLiteral("panelConfirmReboot"), true}};
}
const QString question = QStringLiteral("Restart the panel now?");

QQuickItem *dialog(const ScreenFixture &fixture, const QString &asked = question)
{
    return Operator::ancestorOf(Operator::byText(fixture.glass(), asked), "QQuickPopupItem");
}

QQuickItem *button(const ScreenFixture &fixture, int index)
{
    QQuickItem *shown = dialog(fixture);
    return shown ? Operator::allByClass(shown, "QSP::BeepButton").value(index) : nullptr;
}

QQuickItem *cancel(const ScreenFixture &fixture)
{
    return button(fixture, 0);
}

QQuickItem *restart(const ScreenFixture &fixture)
{
    return button(fixture, 1);
}

QQuickItem *entry(const ScreenFixture &fixture)
{
    auto *menu = fixture.root()->property("menuBar").value<QQuickItem *>();
    return Operator::ancestorOf(Operator::byText(menu, QStringLiteral("Reboot")), "QSP::BeepButton");
}

void ask(const ScreenFixture &fixture)
{
    Operator::touch(entry(fixture));
    QVERIFY(dialog(fixture));
    QTRY_VERIFY(restart(fixture)->isEnabled());
    Operator::settle();
}

QStringList reboots()
{
    return Journal::calls("reboot");
}

} // namespace

/// A host that wants the operator asked before the panel restarts.
class TestReboot : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void usualHostIsNotAsked();
    void yesRestarts();
    void noLeavesAllAsItWas();
    void doubleTapAsksOnce_data();
    void doubleTapAsksOnce();
    void onlyItsButtonsAnswer();
    void goesWithTheScreen_data();
    void goesWithTheScreen();
    void speaksChinese();
    void everySizeHasRoom_data();
    void everySizeHasRoom();
    void screensOfTwoEnginesHaveTheirOwn();
    void askedAgainAndAgainNothingGrows();
};

void TestReboot::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestReboot::usualHostIsNotAsked()
{
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    Operator::touch(entry(fixture));
    QCOMPARE(reboots().size(), 1);
    QVERIFY(!dialog(fixture));
}

void TestReboot::yesRestarts()
{
    ScreenFixture fixture(plugin, {1024, 600}, asking());
    fixture.open();
    ask(fixture);
    QCOMPARE(reboots(), QStringList());
    HmiSimulator::clearJournal();
    Operator::touch(restart(fixture));
    QCOMPARE(Journal::callsButBeeps(), QStringList{QStringLiteral("reboot()")});
    QTRY_VERIFY(!dialog(fixture));
    Operator::settle();
    // A panel that does not restart can be asked again.
    ask(fixture);
    Operator::touch(restart(fixture));
    QCOMPARE(reboots().size(), 2);
}

void TestReboot::noLeavesAllAsItWas()
{
    ScreenFixture fixture(plugin, {1024, 600}, asking());
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    const QImage before = Operator::picture(fixture.window());
    ask(fixture);
    HmiSimulator::clearJournal();
    Operator::touch(cancel(fixture));
    QTRY_VERIFY(!dialog(fixture));
    QCOMPARE(Journal::callsButBeeps(), QStringList());
    Operator::settle();
    QCOMPARE(Operator::picture(fixture.window()), before);
}

void TestReboot::doubleTapAsksOnce_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("byTouch");
    QTest::newRow("finger") << QSize(1024, 600) << true;
    QTest::newRow("mouse") << QSize(1024, 600) << false;
    // So low that the dialog comes to lie over the entry, and its answer under the finger.
    QTest::newRow("finger on a low glass") << QSize(480, 272) << true;
    QTest::newRow("mouse on a low glass") << QSize(480, 272) << false;
}

void TestReboot::doubleTapAsksOnce()
{
    QFETCH(QSize, size);
    QFETCH(bool, byTouch);
    QVariantMap options = asking();
    options.insert(compactOptions());
    ScreenFixture fixture(plugin, size, options);
    fixture.open();
    const QPoint place =
        Operator::centerOf(entry(fixture)) + QPoint(qRound(entry(fixture)->width() / 4.0), 0);
    for (int tap = 0; tap < 4; ++tap) {
        Operator::pressAt(fixture.window(), place, byTouch);
        Operator::liftAt(fixture.window(), place, byTouch);
    }
    QVERIFY(dialog(fixture));
    QCOMPARE(reboots(), QStringList());
    const auto questions = Operator::items(fixture.glass(), [](QQuickItem *item) {
        return item->isVisible() && item->property("text").toString() == question;
    });
    QCOMPARE(questions.size(), 1);
    if (size.width() < 800) {
        const QRectF answer = restart(fixture)->mapRectToScene(QRectF({0, 0}, restart(fixture)->size()));
        QVERIFY(answer.contains(place));
    }
    QTRY_VERIFY(restart(fixture)->isEnabled());
    Operator::touch(cancel(fixture));
    QTRY_VERIFY(!dialog(fixture));
}

void TestReboot::onlyItsButtonsAnswer()
{
    ScreenFixture fixture(plugin, {1024, 600}, asking());
    fixture.open();
    ask(fixture);
    HmiSimulator::clearJournal();
    // Beside it, where another entry is.
    auto *menu = fixture.root()->property("menuBar").value<QQuickItem *>();
    Operator::tap(fixture.window(), Operator::centerOf(Operator::byText(menu, QStringLiteral("Network"))));
    Operator::tap(fixture.window(), Operator::centerOf(Operator::byText(fixture.glass(), question)));
    Operator::key(fixture.window(), Qt::Key_Escape);
    Operator::settle();
    QVERIFY(dialog(fixture));
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    QCOMPARE(Journal::calls(), QStringList());
}

void TestReboot::goesWithTheScreen_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"closed", "hidden", "out of its window"})
        QTest::newRow(how) << how;
}

void TestReboot::goesWithTheScreen()
{
    QFETCH(QString, how);
    ScreenFixture fixture(plugin, {1024, 600}, asking());
    fixture.open();
    ask(fixture);
    if (how == QLatin1String("closed")) {
        fixture.close();
    } else if (how == QLatin1String("hidden")) {
        fixture.root()->setVisible(false);
    } else {
        fixture.root()->setParentItem(nullptr);
        fixture.root()->setParentItem(fixture.window()->contentItem());
    }
    QTRY_VERIFY(!dialog(fixture));
    QCOMPARE(reboots(), QStringList());
    fixture.open();
    ask(fixture);
}

void TestReboot::speaksChinese()
{
    ScreenFixture fixture(plugin, {1024, 600}, asking());
    fixture.open();
    ask(fixture);
    Operator::touch(cancel(fixture));
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    fixture.close();
    fixture.open();
    fixture.tapMenu(QStringLiteral("重启设备"));
    QQuickItem *shown = dialog(fixture, QStringLiteral("现在重启设备吗？"));
    QVERIFY(shown);
    // Title and button.
    QCOMPARE(Operator::visibleTexts(shown).count(QStringLiteral("重启设备")), 2);
    QVERIFY(Operator::byText(shown, QStringLiteral("取消")));
}

void TestReboot::everySizeHasRoom_data()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes() + QVector<QSize>{{1920, 1080}};
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestReboot::everySizeHasRoom()
{
    QFETCH(QSize, size);
    QVariantMap options = asking();
    options.insert(compactOptions());
    ScreenFixture fixture(plugin, size, options);
    fixture.open();
    ask(fixture);
    QCOMPARE(LayoutCheck::faults(fixture.glass()).join("; "), QString());
    const QRectF room = dialog(fixture)->mapRectToScene(QRectF({0, 0}, dialog(fixture)->size()));
    QVERIFY(QRectF({0, 0}, size).contains(room));
    for (QQuickItem *one : {cancel(fixture), restart(fixture)}) {
        QVERIFY(one->height() >= 60.0);
        QVERIFY(one->width() >= 120.0);
        QVERIFY(room.contains(one->mapRectToScene(QRectF({0, 0}, one->size()))));
    }
    QVERIFY(restart(fixture)->x() >= cancel(fixture)->x() + cancel(fixture)->width() + 16.0);
}

void TestReboot::screensOfTwoEnginesHaveTheirOwn()
{
    ScreenFixture first(plugin, {1024, 600}, asking());
    ScreenFixture second(plugin, {1024, 600});
    first.root()->setVisible(true);
    second.open();
    Operator::touch(entry(second));
    QCOMPARE(reboots().size(), 1);
    ask(first);
    QVERIFY(!dialog(second));
    QCOMPARE(reboots().size(), 1);
}

void TestReboot::askedAgainAndAgainNothingGrows()
{
    ScreenFixture fixture(plugin, {800, 480}, asking());
    fixture.open();
    const auto visit = [&fixture] {
        ask(fixture);
        fixture.close();
        fixture.open();
    };
    visit();
    const auto count = [&fixture] { return fixture.root()->findChildren<QObject *>().size(); };
    const int before = count();
    for (int i = 0; i < 8; ++i)
        visit();
    QTRY_COMPARE(count(), before);
}

PANEL_TEST_MAIN(TestReboot)

#include "test_reboot.moc"
