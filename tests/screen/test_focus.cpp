#include "tests/screen/networkpage.h"

#include <QtGui/QGuiApplication>

namespace {

/// An item of the host's that takes keys, as a page does that is operated by keys beside the glass.
class KeyTaker : public QQuickItem
{
public:
    explicit KeyTaker(QQuickItem *parent) : QQuickItem(parent) { setActiveFocusOnTab(true); }
};

} // namespace

/// Who has the keys of the window: the host, but for the time in which a field of the screen is edited.
class TestFocus : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void keysThatMoveTheFocusComeToAnEnd_data();
    void keysThatMoveTheFocusComeToAnEnd();
    void tappingTakesNoFocus();
    void nothingIsATabStop_data();
    void nothingIsATabStop();
    void hiddenScreenReturnsTheFocus_data();
    void hiddenScreenReturnsTheFocus();
    void hiddenScreenHasNoFocusToGiveAway();
    void hostsOwnChoiceStays();
    void hostsFieldKeepsTheFocusItTook();

private:
    static void editAddress(NetworkPage &page);
    static void editClock(NetworkPage &page);
};

void TestFocus::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN0, false);
}

void TestFocus::editAddress(NetworkPage &page)
{
    Operator::tap(NetworkPage::octet(page.addressOf("IP Address"), 0));
    QVERIFY(page.window()->activeFocusItem()->inherits("QQuickTextInput"));
}

void TestFocus::editClock(NetworkPage &page)
{
    page.screen().tapMenu("General");
    page.tap(Operator::byClass(page.screen().card("QSP::CardTime"), "QSP::BeepButton"));
    Operator::settle();
    QQuickItem *ok = Operator::byText(page.glass(), "OK");
    Operator::tap(Operator::byClass(Operator::ancestorOf(ok, "QQuickPopupItem"), "QQuickTextInput"));
    QVERIFY(page.window()->activeFocusItem()->inherits("QQuickTextInput"));
}

void TestFocus::keysThatMoveTheFocusComeToAnEnd_data()
{
    QTest::addColumn<QString>("work");
    QTest::addColumn<QString>("state");
    for (const char *work : {"tapped", "edited", "edit ended", "list open", "clock edited"}) {
        for (const char *state :
             {"shown", "closed", "hidden", "page hidden", "disabled", "page disabled", "detached"})
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(work, state))) << work << state;
    }
}

void TestFocus::keysThatMoveTheFocusComeToAnEnd()
{
    QFETCH(QString, work);
    QFETCH(QString, state);
    NetworkPage page;
    QQuickItem around(page.glass());
    QQuickItem *root = page.screen().root();
    root->setParentItem(&around);
    if (work == "list open") {
        page.tap(page.defaultAdapter()->property("combobox").value<QQuickItem *>());
    } else if (work == "clock edited") {
        editClock(page);
    } else if (work != "tapped") {
        editAddress(page);
        if (work == "edit ended")
            page.select("LAN0");
    }
    if (state == "closed")
        page.screen().close();
    else if (state == "hidden")
        root->setVisible(false);
    else if (state == "page hidden")
        around.setVisible(false);
    else if (state == "disabled")
        root->setEnabled(false);
    else if (state == "page disabled")
        around.setEnabled(false);
    else if (state == "detached")
        root->setParentItem(nullptr);
    for (const int key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Up,
                          Qt::Key_Down, Qt::Key_Left, Qt::Key_Right})
        Operator::key(page.window(), key);
    if (!root->isVisible() || !root->window())
        QCOMPARE(page.window()->activeFocusItem(), page.glass());
    root->setParentItem(page.glass());
}

void TestFocus::tappingTakesNoFocus()
{
    NetworkPage page;
    const QQuickItem *before = page.window()->activeFocusItem();
    int pressed = 0;
    const auto pressAllIn = [&](QQuickItem *place) {
        const auto buttons = Operator::allByClass(place, "QQuickAbstractButton");
        for (QQuickItem *button : buttons) {
            if (!button->isVisible() || Operator::byText(button, "Reboot"))
                continue;
            Operator::press(button);
            QCOMPARE(page.window()->activeFocusItem(), before);
            Operator::release(button);
            QCOMPARE(page.window()->activeFocusItem(), before);
            ++pressed;
        }
    };
    page.screen().tapMenu("General");
    pressAllIn(page.screen().card("QSP::CardBrightness"));
    pressAllIn(page.screen().card("QSP::CardBuzzer"));
    // The menu leads away.
    pressAllIn(page.screen().root()->property("menuBar").value<QQuickItem *>());
    page.screen().tapMenu("General");
    // Its editor covers the others.
    pressAllIn(page.screen().card("QSP::CardTime"));
    QCOMPARE(pressed, 2 + 1 + 4 + 1);
}

void TestFocus::nothingIsATabStop_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"General", "Network", "Language", "Version", "Wi-Fi", "clock editor"})
        QTest::newRow(name) << name;
}

void TestFocus::nothingIsATabStop()
{
    QFETCH(QString, name);
    NetworkPage page;
    if (name == "Wi-Fi") {
        page.select(name);
        page.tap(Operator::byClass(page.network(), "QSP::WifiTile"));
    } else if (name == "clock editor") {
        page.screen().tapMenu("General");
        page.tap(Operator::byClass(page.screen().card("QSP::CardTime"), "QSP::BeepButton"));
        QTRY_VERIFY(page.isShown("OK"));
    } else {
        page.screen().tapMenu(name);
    }
    // The text of a list that cannot be edited is disabled, and so no stop.
    QStringList stops;
    const auto isStop = [](const QQuickItem *item) { return item->activeFocusOnTab() && item->isEnabled(); };
    const auto found = Operator::items(page.glass(), isStop);
    for (const QQuickItem *item : found)
        stops << item->metaObject()->className();
    QVERIFY2(stops.isEmpty(), qPrintable(stops.join(QLatin1Char(' '))));
    if (name == "clock editor")
        return;
    // The tab key leads from one stop of the host's to the next.
    KeyTaker first(page.glass());
    KeyTaker second(page.glass());
    first.forceActiveFocus();
    Operator::key(page.window(), Qt::Key_Tab);
    QVERIFY(second.hasActiveFocus());
    Operator::key(page.window(), Qt::Key_Backtab);
    QVERIFY(first.hasActiveFocus());
}

void TestFocus::hiddenScreenReturnsTheFocus_data()
{
    QTest::addColumn<QString>("work");
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("pageHidden");
    for (const char *work : {"edited", "edit ended", "clock edited"}) {
        for (const char *end : {"closed", "hidden", "page hidden"}) {
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(work, end))) << work << end << false;
            // A host may hide its own page while the screen covers it.
            QTest::newRow(qPrintable(QStringLiteral("%1, %2, behind it nothing").arg(work, end)))
                << work << end << true;
        }
    }
}

void TestFocus::hiddenScreenReturnsTheFocus()
{
    QFETCH(QString, work);
    QFETCH(QString, end);
    QFETCH(bool, pageHidden);
    NetworkPage page;
    QQuickItem *root = page.screen().root();
    page.screen().close();
    QQuickItem around(page.glass());
    root->setParentItem(&around);
    KeyTaker hostItem(page.glass());
    hostItem.forceActiveFocus();
    if (pageHidden)
        connect(root, &QQuickItem::visibleChanged, &hostItem,
                [&hostItem, root] { hostItem.setVisible(!root->isVisible()); });
    for (int visit = 0; visit < 2; ++visit) {
        around.setVisible(true);
        page.screen().open();
        QVERIFY(hostItem.hasActiveFocus());
        if (work == "clock edited") {
            editClock(page);
        } else {
            page.screen().tapMenu("Network");
            editAddress(page);
            if (work == "edit ended") {
                page.select("LAN0");
                QCOMPARE(page.window()->activeFocusItem(), root);
            }
        }
        QVERIFY(!hostItem.hasActiveFocus());
        if (end == "closed")
            page.screen().screen()->close();
        else if (end == "hidden")
            root->setVisible(false);
        else
            around.setVisible(false);
        QVERIFY(hostItem.hasActiveFocus());
        QVERIFY(!root->hasFocus());
    }
    page.screen().close();
    root->setParentItem(page.glass());
}

void TestFocus::hiddenScreenHasNoFocusToGiveAway()
{
    NetworkPage page;
    QQuickItem *root = page.screen().root();
    editAddress(page);
    page.screen().close();
    QCOMPARE(page.window()->activeFocusItem(), page.glass());
    // Nor does it get it with a scope of the host's in which it had it.
    class Scope : public QQuickItem
    {
    public:
        explicit Scope(QQuickItem *parent) : QQuickItem(parent) { setFlag(ItemIsFocusScope); }
    } scope(page.glass());
    KeyTaker elsewhere(page.glass());
    root->setParentItem(&scope);
    page.screen().open();
    page.screen().tapMenu("Network");
    editAddress(page);
    page.select("LAN0");
    QVERIFY(root->hasActiveFocus());
    elsewhere.forceActiveFocus();
    page.screen().close();
    scope.forceActiveFocus();
    QCOMPARE(page.window()->activeFocusItem(), &scope);
    root->setParentItem(page.glass());
}

void TestFocus::hostsOwnChoiceStays()
{
    NetworkPage page;
    page.screen().close();
    KeyTaker before(page.glass());
    KeyTaker later(page.glass());
    before.forceActiveFocus();
    page.screen().open();
    page.screen().tapMenu("Network");
    editAddress(page);
    later.forceActiveFocus();
    page.screen().close();
    QVERIFY(later.hasActiveFocus());
}

void TestFocus::hostsFieldKeepsTheFocusItTook()
{
    NetworkPage page;
    KeyTaker hostItem(page.glass());
    editAddress(page);
    hostItem.forceActiveFocus();
    QVERIFY(hostItem.hasActiveFocus());
    QVERIFY2(!Operator::byText(page.glass(), "7"), "the keyboard stayed for a field of the host's");
}

PANEL_TEST_MAIN(TestFocus)

#include "test_focus.moc"
