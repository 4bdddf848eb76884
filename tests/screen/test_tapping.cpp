#include "tests/screen/networkpage.h"
#include "tests/screen/wifiscreen.h"

#include <QtGui/QGuiApplication>

namespace {

/// How a finger taps that is not a machine's.
constexpr std::array<const char *, 4> fingers{"still", "moving by a pixel", "held",
                                              "held, moving by a pixel"};

// A page that scrolls keeps a press to itself at first.
bool isHandedOn(const QQuickWindow *window)
{
    const QQuickItem *grabber = window->mouseGrabberItem();
    return grabber && !grabber->inherits("QQuickFlickable");
}

void tap(QQuickItem *item, const QString &finger)
{
    QVERIFY2(item, "there is no such item to tap");
    QQuickWindow *window = item->window();
    const QPoint point = Operator::centerOf(item);
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, point);
    QCoreApplication::processEvents();
    QPoint end = point;
    if (finger.startsWith("held")) {
        QTRY_VERIFY(isHandedOn(window));
        Operator::settle(0);
    }
    if (finger.endsWith("moving by a pixel")) {
        end += QPoint(1, 0);
        QMouseEvent move(QEvent::MouseMove, end, window->mapToGlobal(end), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(window, &move);
    }
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, end);
    QCoreApplication::processEvents();
}

void addFingers(const QVector<QSize> &sizes)
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("finger");
    for (const QSize &size : sizes) {
        for (const char *finger : fingers)
            QTest::addRow("%dx%d, %s", size.width(), size.height(), finger) << size << QString(finger);
    }
}

bool isKeyboardShown(const ScreenFixture &screen)
{
    return !Operator::items(screen.glass(), [](const QQuickItem *item) {
                return item->isVisible() && item->objectName().startsWith(QLatin1String("vkbKey_"));
            }).isEmpty();
}

} // namespace

/// Taps while the keyboard is up and has moved what is tapped: each of them counts, and the keyboard goes
/// with the click and not with the press.
class TestTapping : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void confirmingTheClock_data() { addFingers({{800, 480}, {1024, 600}}); }
    void confirmingTheClock();
    void closingThePasswordDialog_data() { addFingers({{800, 480}, {1024, 600}}); }
    void closingThePasswordDialog();
    void switchInASlidColumn_data() { addFingers({{800, 480}, {1024, 600}}); }
    void switchInASlidColumn();
    void listInASlidColumn_data() { addFingers({{800, 480}, {1024, 600}}); }
    void listInASlidColumn();
    void menuEntryEndsTheEdit();
    void holdingPlusGoesOn();
};

void TestTapping::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN0, false);
    HmiSimulator::setDelays(1);
}

void TestTapping::confirmingTheClock()
{
    QFETCH(QSize, size);
    QFETCH(QString, finger);
    ScreenFixture screen(QStringLiteral(PANEL_PLUGIN), size);
    screen.open();
    Operator::tap(Operator::byClass(screen.card("QSP::CardTime"), "QSP::BeepButton"));
    Operator::settle();
    QQuickItem *ok = Operator::ancestorOf(Operator::byText(screen.glass(), "OK"), "QSP::BeepButton");
    const QPoint resting = Operator::centerOf(ok);
    Operator::tap(Operator::byClass(Operator::ancestorOf(ok, "QQuickPopupItem"), "QQuickTextInput"));
    QVERIFY(isKeyboardShown(screen));
    if (size.height() < 600)
        QVERIFY2(Operator::centerOf(ok) != resting, "the keyboard moved nothing");
    HmiSimulator::clearJournal();
    tap(ok, finger);
    QCOMPARE(Journal::calls("setSystemTime").size(), 1);
    QVERIFY(!isKeyboardShown(screen));
}

void TestTapping::closingThePasswordDialog()
{
    QFETCH(QSize, size);
    QFETCH(QString, finger);
    WifiScreen screen(size, false);
    screen.toWifi();
    screen.scan();
    Operator::tap(screen.row("Maintenance"));
    Operator::settle();
    QQuickItem *dialog = Operator::ancestorOf(screen.dialogBody(), "QQuickPopupItem");
    Operator::tap(Operator::byClass(dialog, "QQuickTextInput"));
    QVERIFY(isKeyboardShown(screen));
    // The first button of the dialog is the one that closes it.
    tap(Operator::byClass(dialog, "QSP::BeepButton"), finger);
    QTRY_VERIFY(!screen.dialogBody());
    QVERIFY(!isKeyboardShown(screen));
}

void TestTapping::switchInASlidColumn()
{
    QFETCH(QSize, size);
    QFETCH(QString, finger);
    NetworkPage page(size);
    page.edit(page.addressOf("Default Gateway"), 0, "10");
    QVERIFY(isKeyboardShown(page.screen()));
    HmiSimulator::clearJournal();
    auto *column = page.screen().root()->property("cardsParent").value<QQuickItem *>();
    QVERIFY2(column->y() < 0.0, "the keyboard moved nothing");
    QQuickItem *toggle = page.toggleOf("Static IP");
    QVERIFY(page.isOn("Static IP"));
    page.reveal(toggle);
    tap(toggle, finger);
    QVERIFY(!page.isOn("Static IP"));
    QVERIFY(!isKeyboardShown(page.screen()));
    // The edit ended before, and with what was typed.
    QCOMPARE(Journal::callsButBeeps().size(), 2);
    QVERIFY(Journal::callsButBeeps().constFirst().startsWith("setGateway(LAN0, 10."));
    QCOMPARE(Journal::callsButBeeps().constLast(), QStringLiteral("setDHCP(LAN0, true, persist)"));
}

void TestTapping::listInASlidColumn()
{
    QFETCH(QSize, size);
    QFETCH(QString, finger);
    NetworkPage page(size);
    page.edit(page.dnsInput(2), 0, "9");
    QVERIFY(isKeyboardShown(page.screen()));
    auto *column = page.screen().root()->property("cardsParent").value<QQuickItem *>();
    QVERIFY2(column->y() < 0.0, "the keyboard moved nothing");
    auto *list = page.defaultAdapter()->property("combobox").value<QQuickItem *>();
    // What is scrolled out of sight cannot be tapped.
    page.reveal(list);
    tap(list, finger);
    Operator::settle();
    QVERIFY2(Operator::byClass(page.glass(), "QQuickItemDelegate"), "the list did not open");
    QVERIFY(!isKeyboardShown(page.screen()));
}

void TestTapping::menuEntryEndsTheEdit()
{
    NetworkPage page;
    page.edit(page.addressOf("IP Address"), 0, "10");
    HmiSimulator::clearJournal();
    QQuickItem *entry = Operator::ancestorOf(Operator::byText(page.glass(), "Version"), "QSP::BeepButton");
    Operator::press(entry);
    QVERIFY(isKeyboardShown(page.screen()));
    QCOMPARE(Journal::calls(), QStringList());
    Operator::release(entry);
    QVERIFY(!isKeyboardShown(page.screen()));
    QCOMPARE(Journal::callsButBeeps().size(), 1);
    QCOMPARE(page.screen().title(), QStringLiteral("Version"));
}

void TestTapping::holdingPlusGoesOn()
{
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.bright = 10; });
    NetworkPage page;
    // The keyboard was there once.
    page.edit(page.addressOf("IP Address"), 0, "10");
    Operator::key(page.window(), Qt::Key_Escape);
    page.screen().tapMenu("General");
    QQuickItem *plus = Operator::allByClass(page.screen().root(), "QSP::BrightButton").value(1);
    QQuickItem *card = page.screen().card("QSP::CardBrightness");
    Operator::press(plus);
    QTRY_VERIFY(card->property("brightnessValue").toInt() >= 15);
    Operator::release(plus);
}

PANEL_TEST_MAIN(TestTapping)

#include "test_tapping.moc"
