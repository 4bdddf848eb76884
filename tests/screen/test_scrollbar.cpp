#include "tests/screen/touchareatest.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>

/// The bar beside a page that is higher than the glass.
class TestScrollBar : public TouchAreaTest
{
    Q_OBJECT

private slots:
    void place_data() { addSizes(); }
    void place();
    void shownWhileThereIsMoreThanFits();
    void dragScrolls_data() { addWays(); }
    void dragScrolls();
    void pressBesideTheThumb_data() { addWays(); }
    void pressBesideTheThumb();
    void takesNoFocus_data() { addWays(); }
    void takesNoFocus();
    void outOfUse_data() { addWays(); }
    void outOfUse();
    void secondFinger();
    void cancelledTouch();

private:
    static void addWays();
    void buildNetwork(const QSize &size = {1024, 600});
    QQuickWindow *window() const { return m_fixture->window(); }
    QQuickItem *bar() const { return alias(m_fixture->root(), "scrollBarTouchItem"); }
    QQuickItem *thumb() const { return alias(bar(), "contentItem"); }
    bool isPressed() const { return bar()->property("pressed").toBool(); }
    qreal scrolled() const { return pool()->property("contentY").toReal(); }
    /// How far the thumb can go on the bar.
    qreal room() const { return bar()->height() - thumb()->height(); }
    QTest::QTouchEventSequence touch() const { return QTest::touchEvent(window(), Operator::touchScreen()); }
};

void TestScrollBar::addWays()
{
    QTest::addColumn<bool>("byTouch");
    QTest::newRow("mouse") << false;
    QTest::newRow("touch") << true;
}

void TestScrollBar::buildNetwork(const QSize &size)
{
    build(size);
    tapMenu(Network);
    QVERIFY(longestWay() > 50.0);
    QVERIFY(bar()->isVisible());
}

void TestScrollBar::place()
{
    build();
    tapMenu(Network);
    card("QSP::CardNetwork")->setHeight(1500.0);
    Operator::settle();
    const QQuickItem *root = m_fixture->root();
    QCOMPARE(bar()->parentItem(), root);
    QCOMPARE(bar()->width(), 12.0);
    QCOMPARE(bar()->x() + bar()->width(), root->width() - 4.0);
    QCOMPARE(bar()->y(), pool()->y());
    QCOMPARE(bar()->height(), pool()->height());
    QVERIFY(bar()->isVisible());
    QCOMPARE(thumb()->x(), 3.0);
    QCOMPARE(thumb()->width(), 6.0);
    // As much of the bar as the glass shows of the page, with what is left free below it.
    const qreal page = longestWay() + pool()->height();
    QVERIFY(qAbs(thumb()->height() - bar()->height() * pool()->height() / page) < 0.01);
    QCOMPARE(thumb()->y(), 0.0);
    for (const qreal part : {0.4, 1.0}) {
        scrollTo(part * longestWay());
        QVERIFY2(qAbs(thumb()->y() - part * room()) < 0.01, qPrintable(QString::number(thumb()->y())));
    }
    // Never too small to be seen.
    card("QSP::CardNetwork")->setHeight(40000.0);
    Operator::settle();
    QVERIFY(qAbs(thumb()->height() - 24.0) < 0.01);
    scrollTo(longestWay());
    QVERIFY(qAbs(thumb()->y() - room()) < 0.01);
}

void TestScrollBar::shownWhileThereIsMoreThanFits()
{
    build({1024, 600});
    QVERIFY(!pool()->property("interactive").toBool());
    QVERIFY(!bar()->isVisible());
    tapMenu(Network);
    QVERIFY(bar()->isVisible());
    tapMenu(General);
    QVERIFY(!bar()->isVisible());
    card("QSP::CardTime")->setHeight(600.0);
    QTRY_VERIFY(bar()->isVisible());
}

void TestScrollBar::dragScrolls()
{
    QFETCH(bool, byTouch);
    buildNetwork();
    const QPoint from = Operator::centerOf(thumb()) + QPoint(0, 15);
    Operator::pressAt(window(), from, byTouch);
    QVERIFY(isPressed());
    QCOMPARE(scrolled(), 0.0);
    // The thumb goes with the finger, and the page with the thumb.
    const int way = qRound(room() / 2.0);
    for (int i = 1; i <= way; i += 4) {
        Operator::slideTo(window(), from + QPoint(0, i), byTouch);
        QVERIFY(qAbs(thumb()->y() - i) < 0.5);
        QVERIFY(qAbs(scrolled() - i / room() * longestWay()) < 1.0);
    }
    Operator::slideTo(window(), from + QPoint(0, 1000), byTouch);
    QVERIFY(isPressed());
    QVERIFY(qAbs(scrolled() - longestWay()) < 0.01);
    Operator::slideTo(window(), from - QPoint(0, 1000), byTouch);
    QCOMPARE(scrolled(), 0.0);
    Operator::slideTo(window(), from + QPoint(0, way), byTouch);
    const qreal there = scrolled();
    QVERIFY(there > 0.0);
    Operator::liftAt(window(), from + QPoint(0, way), byTouch);
    QVERIFY(!isPressed());
    QCOMPARE(scrolled(), there);
}

void TestScrollBar::pressBesideTheThumb()
{
    QFETCH(bool, byTouch);
    buildNetwork();
    const QPoint end = bar()->mapToScene({6.0, bar()->height() - 2.0}).toPoint();
    Operator::pressAt(window(), end, byTouch);
    QVERIFY(isPressed());
    Operator::slideTo(window(), end + QPoint(0, 1), byTouch);
    QVERIFY(qAbs(scrolled() - longestWay()) < 0.01);
    Operator::liftAt(window(), end, byTouch);
    QVERIFY(!isPressed());
    QVERIFY(qAbs(scrolled() - longestWay()) < 0.01);
}

// An edit goes on while the page is scrolled.
void TestScrollBar::takesNoFocus()
{
    QFETCH(bool, byTouch);
    buildNetwork();
    QQuickItem *input = Operator::byClass(card("QSP::CardNetwork"), "QSP::CIpInput");
    QQuickItem *field = Operator::byClass(input, "QQuickTextInput");
    field->forceActiveFocus();
    QVERIFY(field->hasActiveFocus());
    const QPoint point = Operator::centerOf(thumb());
    Operator::pressAt(window(), point, byTouch);
    QVERIFY(isPressed());
    QVERIFY(field->hasActiveFocus());
    Operator::liftAt(window(), point, byTouch);
    QVERIFY(field->hasActiveFocus());
}

void TestScrollBar::outOfUse()
{
    QFETCH(bool, byTouch);
    buildNetwork();
    const QPoint from = Operator::centerOf(thumb());
    m_fixture->root()->setEnabled(false);
    Operator::pressAt(window(), from, byTouch);
    QVERIFY(!isPressed());
    Operator::slideTo(window(), from + QPoint(0, 40), byTouch);
    Operator::liftAt(window(), from + QPoint(0, 40), byTouch);
    QCOMPARE(scrolled(), 0.0);
    m_fixture->root()->setEnabled(true);
    // The screen closes under the finger.
    Operator::pressAt(window(), from, byTouch);
    QVERIFY(isPressed());
    m_fixture->close();
    QVERIFY(!isPressed());
    Operator::liftAt(window(), from, byTouch);
    m_fixture->open();
    QVERIFY(!isPressed());
}

void TestScrollBar::secondFinger()
{
    buildNetwork();
    const QPoint from = Operator::centerOf(thumb());
    const QPoint other = bar()->mapToScene({6.0, bar()->height() - 2.0}).toPoint();
    touch().press(0, from, window());
    touch().stationary(0).press(1, other, window());
    Operator::awaitFrame(window());
    QCOMPARE(scrolled(), 0.0);
    touch().move(0, from + QPoint(0, 20), window()).stationary(1);
    Operator::awaitFrame(window());
    QVERIFY(qAbs(thumb()->y() - 20.0) < 0.5);
    touch().stationary(0).release(1, other, window());
    QVERIFY(isPressed());
    QVERIFY(qAbs(thumb()->y() - 20.0) < 0.5);
    touch().release(0, from + QPoint(0, 20), window());
    QVERIFY(!isPressed());
}

void TestScrollBar::cancelledTouch()
{
    buildNetwork();
    const QPoint from = Operator::centerOf(thumb());
    Operator::pressAt(window(), from, true);
    Operator::slideTo(window(), from + QPoint(0, 20), true);
    QVERIFY(isPressed());
    QTouchEvent cancel(QEvent::TouchCancel, Operator::touchScreen());
    QCoreApplication::sendEvent(window(), &cancel);
    QVERIFY(!isPressed());
    const QPoint next = Operator::centerOf(thumb());
    Operator::pressAt(window(), next, true);
    QVERIFY(isPressed());
    Operator::slideTo(window(), next + QPoint(0, 1000), true);
    QVERIFY(qAbs(scrolled() - longestWay()) < 0.01);
    Operator::liftAt(window(), next + QPoint(0, 1000), true);
    QVERIFY(!isPressed());
}

PANEL_TEST_MAIN(TestScrollBar)

#include "test_scrollbar.moc"
