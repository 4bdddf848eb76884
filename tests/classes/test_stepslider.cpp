#include "controls/stepslider.h"

#include "cards/general/cardbrightness.h"
#include "shell/approotitem.h"
#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>

using QSP::AppRootItem;
using QSP::CardBrightness;
using QSP::StepSlider;

/// The slider of the brightness card under a finger.
class TestStepSlider : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void dragOnAPageThatScrolls_data();
    void dragOnAPageThatScrolls();
    void quickDragOnAPageThatScrolls();
    void scrollThatBeginsOnIt();
    void holdOffTheMiddle_data() { addWays(); }
    void holdOffTheMiddle();
    void dragKeepsTheHold();
    void pressOnTheGroove_data() { addWays(); }
    void pressOnTheGroove();
    void dragSoonAfterATap_data() { addWays(); }
    void dragSoonAfterATap();
    void takesNoFocus_data() { addWays(); }
    void takesNoFocus();
    void secondFinger();
    void cancelledTouch();
    void outOfUse_data();
    void outOfUse();

private:
    /// With a page that scrolls, the brightness card stands above those of the network: together
    /// they are higher than the glass.
    void build(bool scrolls = false);
    void showKeyboard();

    QQuickWindow *window() const { return m_scene->window(); }
    AppRootItem *root() const { return qobject_cast<AppRootItem *>(m_scene->root()); }
    CardBrightness *card() const { return m_scene->card<CardBrightness>("QSP::CardBrightness"); }
    StepSlider *slider() const
    {
        return qobject_cast<StepSlider *>(Operator::byClass(card(), "QSP::StepSlider"));
    }
    QQuickItem *pool() const { return root()->property("cardPool").value<QQuickItem *>(); }
    QTest::QTouchEventSequence touch() const { return QTest::touchEvent(window(), Operator::touchScreen()); }
    /// Where the middle of the handle is at that level.
    QPoint at(int level) const;
    static void addWays();
    static QStringList levels() { return Journal::calls("setBright"); }
    static QStringList levels(int from, int to);

    std::unique_ptr<CardScene> m_scene;
};

void TestStepSlider::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestStepSlider::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestStepSlider::build(bool scrolls)
{
    m_scene = std::make_unique<CardScene>(scrolls ? QSize(480, 800) : QSize(1024, 600));
    root()->setCurrentPage(AppRootItem::MenuIndex::General);
    if (scrolls) {
        root()->setCurrentPage(AppRootItem::MenuIndex::Network);
        root()->showCard(AppRootItem::Cards::Brightness, true);
    }
    Operator::settle();
    QVERIFY(slider());
    QCOMPARE(pool()->property("interactive").toBool(), scrolls);
    QCOMPARE(pool()->property("pressDelay").toInt(), 200);
    HmiSimulator::clearJournal();
}

void TestStepSlider::showKeyboard()
{
    auto fields = Operator::allByClass(root(), "QQuickTextInput");
    for (QQuickItem *field : fields) {
        if (!field->isEnabled())
            continue;
        Operator::tap(field);
        QTRY_VERIFY(m_scene->keyboardKey(QStringLiteral("7")));
        Operator::settle();
        return;
    }
    QFAIL("no field to edit");
}

QPoint TestStepSlider::at(int level) const
{
    const qreal handle = slider()->handle()->width();
    const qreal x = handle / 2.0 + (level - 1) / 31.0 * (slider()->width() - handle);
    return slider()->mapToScene({x, slider()->height() / 2.0}).toPoint();
}

// Each level between as a finger passes it, and the last one saved.
QStringList TestStepSlider::levels(int from, int to)
{
    QStringList calls;
    const int step = from < to ? 1 : -1;
    for (int level = from; level != to; level += step)
        calls << QStringLiteral("setBright(%1, no save)").arg(level + step);
    calls << QStringLiteral("setBright(%1, save)").arg(to);
    return calls;
}

void TestStepSlider::dragOnAPageThatScrolls_data()
{
    QTest::addColumn<bool>("keyboard");
    QTest::addColumn<int>("target");
    for (const bool keyboard : {false, true}) {
        for (const int target : {32, 8})
            QTest::addRow("to %d%s", target, keyboard ? ", keyboard up" : "") << keyboard << target;
    }
}

void TestStepSlider::dragOnAPageThatScrolls()
{
    QFETCH(bool, keyboard);
    QFETCH(int, target);
    build(true);
    if (keyboard)
        showKeyboard();
    QVERIFY(pool()->contains(pool()->mapFromScene(at(20))));
    const QPoint from = at(20);
    const QPoint to = at(target);
    HmiSimulator::clearJournal();
    touch().press(0, from, window());
    QTRY_VERIFY(slider()->isPressed());
    QCOMPARE(levels(), QStringList());
    const int step = from.x() < to.x() ? 1 : -1;
    for (int level = 20; level != target; level += step) {
        Operator::slideTo(window(), at(level + step), true);
        QVERIFY(slider()->isPressed());
    }
    const QStringList expected = levels(20, target);
    QCOMPARE(levels(), expected.mid(0, expected.size() - 1));
    touch().release(0, to, window());
    QVERIFY(!slider()->isPressed());
    QCOMPARE(levels(), expected);
    QCOMPARE(pool()->property("contentY").toReal(), 0.0);
    QCOMPARE(m_scene->keyboardKey(QStringLiteral("7")) != nullptr, keyboard);
}

// The page has not handed the press on when the finger has come and gone.
void TestStepSlider::quickDragOnAPageThatScrolls()
{
    build(true);
    touch().press(0, at(20), window());
    for (int level = 21; level <= 28; ++level)
        touch().move(0, at(level), window());
    touch().release(0, at(28), window());
    QTRY_VERIFY(!slider()->isPressed() && !levels().isEmpty());
    QCOMPARE(levels().constLast(), QStringLiteral("setBright(28, save)"));
    QCOMPARE(levels().filter(QStringLiteral(", save")).size(), 1);
    QCOMPARE(pool()->property("contentY").toReal(), 0.0);
}

void TestStepSlider::scrollThatBeginsOnIt()
{
    build(true);
    const QPoint from = at(5);
    touch().press(0, from, window());
    QTRY_VERIFY(slider()->isPressed());
    for (int i = 1; i <= 20; ++i)
        Operator::slideTo(window(), from - QPoint(0, 5 * i), true);
    QVERIFY(!slider()->isPressed());
    touch().release(0, from - QPoint(0, 100), window());
    QVERIFY(pool()->property("contentY").toReal() > 0.0);
    // Pressed and let go: what was set before is saved, nothing else is set.
    QCOMPARE(levels(), QStringList{"setBright(20, save)"});
}

void TestStepSlider::holdOffTheMiddle()
{
    QFETCH(bool, byTouch);
    QFETCH(bool, scrolls);
    build(scrolls);
    const qreal x = slider()->handle()->x();
    for (const int off : {-10, 10}) {
        HmiSimulator::clearJournal();
        // Far enough off to be another level, were it a press on the groove.
        QVERIFY(at(21).x() - at(20).x() < 2 * qAbs(off));
        const QPoint point = at(20) + QPoint(off, 0);
        Operator::pressAt(window(), point, byTouch);
        QTRY_VERIFY(slider()->isPressed());
        QCOMPARE(slider()->handle()->x(), x);
        QCOMPARE(levels(), QStringList());
        Operator::liftAt(window(), point, byTouch);
        QVERIFY(!slider()->isPressed());
        QCOMPARE(slider()->handle()->x(), x);
        QCOMPARE(levels(), QStringList{"setBright(20, save)"});
    }
}

void TestStepSlider::dragKeepsTheHold()
{
    build();
    const QPoint off(10, 0);
    Operator::pressAt(window(), at(20) + off, true);
    for (int level = 21; level <= 25; ++level)
        Operator::slideTo(window(), at(level) + off, true);
    Operator::liftAt(window(), at(25) + off, true);
    QCOMPARE(levels(), levels(20, 25));
}

// By what, and on what page.
void TestStepSlider::addWays()
{
    QTest::addColumn<bool>("byTouch");
    QTest::addColumn<bool>("scrolls");
    for (const bool byTouch : {false, true}) {
        for (const bool scrolls : {false, true})
            QTest::addRow("%s, %s page", byTouch ? "touch" : "mouse", scrolls ? "scrolling" : "still")
                << byTouch << scrolls;
    }
}

void TestStepSlider::pressOnTheGroove()
{
    QFETCH(bool, byTouch);
    QFETCH(bool, scrolls);
    build(scrolls);
    const QPoint point = at(9);
    Operator::pressAt(window(), point, byTouch);
    QTRY_VERIFY(slider()->isPressed());
    QCOMPARE(levels(), QStringList());
    Operator::liftAt(window(), point, byTouch);
    QCOMPARE(levels(), (QStringList{"setBright(9, no save)", "setBright(9, save)"}));
    QCOMPARE(slider()->value(), 9.0);
}

// The second press is the second half of a double click.
void TestStepSlider::dragSoonAfterATap()
{
    QFETCH(bool, byTouch);
    QFETCH(bool, scrolls);
    build(scrolls);
    Operator::pressAt(window(), at(9), byTouch);
    // The test library would let enough time go by that a mouse makes no double click.
    const int pressedAt = QTest::lastMouseTimestamp;
    Operator::liftAt(window(), at(9), byTouch);
    QTest::lastMouseTimestamp = pressedAt + 1;
    HmiSimulator::clearJournal();
    Operator::pressAt(window(), at(9), byTouch);
    QTRY_VERIFY(slider()->isPressed());
    for (int level = 10; level <= 13; ++level)
        Operator::slideTo(window(), at(level), byTouch);
    Operator::liftAt(window(), at(13), byTouch);
    QCOMPARE(levels(), levels(9, 13));
    QVERIFY(!slider()->isPressed());
}

void TestStepSlider::takesNoFocus()
{
    QFETCH(bool, byTouch);
    QFETCH(bool, scrolls);
    build(scrolls);
    const QQuickItem *before = window()->activeFocusItem();
    Operator::pressAt(window(), at(20), byTouch);
    QTRY_VERIFY(slider()->isPressed());
    QVERIFY(!slider()->hasActiveFocus());
    QCOMPARE(window()->activeFocusItem(), before);
    Operator::liftAt(window(), at(20), byTouch);
    QCOMPARE(window()->activeFocusItem(), before);
    QVERIFY(!slider()->activeFocusOnTab());
}

void TestStepSlider::secondFinger()
{
    build();
    touch().press(0, at(20), window());
    touch().stationary(0).press(1, at(5), window());
    QCOMPARE(levels(), QStringList());
    touch().move(0, at(24), window()).stationary(1);
    Operator::awaitFrame(window());
    QCOMPARE(slider()->value(), 24.0);
    touch().stationary(0).release(1, at(5), window());
    QVERIFY(slider()->isPressed());
    QCOMPARE(slider()->value(), 24.0);
    touch().release(0, at(24), window());
    QVERIFY(!slider()->isPressed());
    QCOMPARE(levels(), (QStringList{"setBright(24, no save)", "setBright(24, save)"}));
}

void TestStepSlider::cancelledTouch()
{
    build();
    touch().press(0, at(20), window());
    Operator::slideTo(window(), at(24), true);
    QVERIFY(slider()->isPressed());
    QTouchEvent cancel(QEvent::TouchCancel, Operator::touchScreen());
    QCoreApplication::sendEvent(window(), &cancel);
    QVERIFY(!slider()->isPressed());
    QCOMPARE(levels(), (QStringList{"setBright(24, no save)", "setBright(24, save)"}));
    HmiSimulator::clearJournal();
    Operator::pressAt(window(), at(10), true);
    Operator::liftAt(window(), at(10), true);
    QCOMPARE(levels(), (QStringList{"setBright(10, no save)", "setBright(10, save)"}));
}

void TestStepSlider::outOfUse_data()
{
    QTest::addColumn<bool>("byTouch");
    QTest::addColumn<bool>("hidden");
    for (const bool byTouch : {false, true}) {
        for (const bool hidden : {false, true})
            QTest::addRow("%s, %s", byTouch ? "touch" : "mouse", hidden ? "hidden" : "disabled")
                << byTouch << hidden;
    }
}

void TestStepSlider::outOfUse()
{
    QFETCH(bool, byTouch);
    QFETCH(bool, hidden);
    build();
    StepSlider *used = slider();
    const QPoint point = at(9);
    const auto setInUse = [&](bool inUse) { hidden ? used->setVisible(inUse) : used->setEnabled(inUse); };
    setInUse(false);
    Operator::pressAt(window(), point, byTouch);
    QVERIFY(!used->isPressed());
    Operator::liftAt(window(), point, byTouch);
    QCOMPARE(levels(), QStringList());
    setInUse(true);
    Operator::pressAt(window(), point, byTouch);
    Operator::liftAt(window(), point, byTouch);
    QCOMPARE(levels(), (QStringList{"setBright(9, no save)", "setBright(9, save)"}));
}

PANEL_TEST_MAIN(TestStepSlider)

#include "test_stepslider.moc"
