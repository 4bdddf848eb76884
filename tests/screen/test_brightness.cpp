#include "tests/screen/generalpagetest.h"

#include <QtGui/QGuiApplication>

#include <functional>

class TestBrightness;
Q_DECLARE_METATYPE(std::function<void(TestBrightness *)>)

namespace {

QStringList brightCalls()
{
    return Journal::calls("setBright");
}

} // namespace

/// The level is saved when the finger lets go of what changes it: once, and in whatever way it comes to that.
class TestBrightness : public GeneralPageTest
{
    Q_OBJECT

private slots:
    void quickTapsAreStepsEach_data();
    void quickTapsAreStepsEach();
    void lettingGoSavesOnce_data();
    void lettingGoSavesOnce();
    void lastOfTwoFingersSaves();

private:
    using Act = std::function<void(TestBrightness *)>;

    QQuickItem *brightness() const { return card("QSP::CardBrightness"); }
    QQuickItem *minus() const { return Operator::allByClass(brightness(), "QSP::BrightButton").value(0); }
    QQuickItem *plus() const { return Operator::allByClass(brightness(), "QSP::BrightButton").value(1); }
    QQuickItem *slider() const
    {
        return Operator::items(brightness(),
                               [](QQuickItem *item) { return item->property("visualPosition").isValid(); })
            .value(0);
    }
    QPoint handle() const { return Operator::centerOf(slider()->property("handle").value<QQuickItem *>()); }

    void press(const QPoint &point) const
    {
        QTest::mousePress(m_fixture->window(), Qt::LeftButton, Qt::NoModifier, point);
    }
    void move(const QPoint &point) const
    {
        QMouseEvent event(QEvent::MouseMove, point, m_fixture->window()->mapToGlobal(point), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_fixture->window(), &event);
    }
    void lift(const QPoint &point) const
    {
        QTest::mouseRelease(m_fixture->window(), Qt::LeftButton, Qt::NoModifier, point);
        QCoreApplication::processEvents();
    }
};

void TestBrightness::quickTapsAreStepsEach_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("scrolls");
    QTest::addColumn<bool>("byTouch");
    for (const bool byTouch : {false, true}) {
        const char *means = byTouch ? "finger" : "mouse";
        QTest::addRow("%s, still page", means) << QSize(1024, 600) << false << byTouch;
        QTest::addRow("%s, scrolling page", means) << QSize(1024, 400) << true << byTouch;
    }
}

void TestBrightness::quickTapsAreStepsEach()
{
    QFETCH(QSize, size);
    QFETCH(bool, scrolls);
    QFETCH(bool, byTouch);
    HmiSimulator::setBright(10);
    build(size);
    const auto *pool = m_fixture->root()->property("cardPool").value<QQuickItem *>();
    QCOMPARE(pool->property("interactive").toBool(), scrolls);
    QStringList expected;
    for (int level = 11; level <= 14; ++level)
        expected << QStringLiteral("setBright(%1, no save)").arg(level)
                 << QStringLiteral("setBright(%1, save)").arg(level);
    if (byTouch) {
        for (int tap = 0; tap < 4; ++tap)
            Operator::touch(plus());
    } else {
        for (int pair = 0; pair < 2; ++pair)
            QTest::mouseDClick(m_fixture->window(), Qt::LeftButton, Qt::NoModifier,
                               Operator::centerOf(plus()));
    }
    QTRY_COMPARE(brightCalls(), expected);
}

void TestBrightness::lettingGoSavesOnce_data()
{
    QTest::addColumn<bool>("bySlider");
    QTest::addColumn<Act>("letGo");
    const QVector<QPair<const char *, Act>> ways{
        {"lifted", [](TestBrightness *) {}},
        {"slid off",
         [](TestBrightness *test) {
             test->move(test->handle() + QPoint(0, 100));
             test->move(test->handle() + QPoint(0, 200));
         }},
        {"host closes", [](TestBrightness *test) { test->m_fixture->screen()->close(); }},
        {"host hides", [](TestBrightness *test) { test->m_fixture->root()->setVisible(false); }},
        {"host disables", [](TestBrightness *test) { test->m_fixture->root()->setEnabled(false); }},
        {"host takes out", [](TestBrightness *test) { test->m_fixture->root()->setParentItem(nullptr); }},
        {"host hides around",
         [](TestBrightness *test) { test->m_fixture->window()->contentItem()->setVisible(false); }},
        {"host deletes", [](TestBrightness *test) { delete test->m_fixture->root(); }},
        {"page changes", [](TestBrightness *test) { test->brightness()->setVisible(false); }},
    };
    for (const bool bySlider : {false, true}) {
        for (const auto &way : ways)
            QTest::addRow("%s, %s", bySlider ? "slider" : "plus", way.first) << bySlider << way.second;
    }
}

void TestBrightness::lettingGoSavesOnce()
{
    QFETCH(bool, bySlider);
    QFETCH(Act, letGo);
    build({1024, 600});
    QPointer<QQuickItem> root = m_fixture->root();
    QPoint finger = Operator::centerOf(plus());
    if (bySlider)
        finger = handle();
    press(finger);
    for (int i = 1; bySlider && i <= 20; ++i) {
        finger.rx() += 2;
        move(finger);
    }
    const QStringList whileHeld = brightCalls();
    QVERIFY(!whileHeld.isEmpty());
    const int level = HmiSimulator::panel().bright;
    QVERIFY(level > 20);
    QVERIFY2(HmiSimulator::panel().savedBright != level, "saved while held");

    letGo(this);
    lift(finger + QPoint(0, 200));
    QStringList expected = whileHeld;
    expected << QStringLiteral("setBright(%1, save)").arg(level);
    QCOMPARE(brightCalls(), expected);
    QCOMPARE(HmiSimulator::panel().savedBright, level);
    if (root && !root->parentItem())
        delete root;
}

void TestBrightness::lastOfTwoFingersSaves()
{
    build({1024, 600});
    QTouchDevice *glass = Operator::touchScreen();
    QQuickWindow *window = m_fixture->window();
    const QPoint less = Operator::centerOf(minus());
    const QPoint more = Operator::centerOf(plus());
    QTest::touchEvent(window, glass).press(0, less, window);
    QTest::touchEvent(window, glass).stationary(0).press(1, more, window);
    QTest::touchEvent(window, glass).release(0, less, window).stationary(1);
    QTest::touchEvent(window, glass).release(1, more, window);
    QCoreApplication::processEvents();
    QCOMPARE(brightCalls(),
             (QStringList{"setBright(19, no save)", "setBright(20, no save)", "setBright(20, save)"}));
}

PANEL_TEST_MAIN(TestBrightness)

#include "test_brightness.moc"
