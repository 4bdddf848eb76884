#include "cards/wifi/fingerwatch.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>
#include <QtQuick/QQuickWindow>

using QSP::FingerWatch;

/// Whether a finger or a mouse button is down on a window.
class TestFingerWatch : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void mouse();
    void twoButtons();
    void finger();
    void twoFingers();
    void cancelledTouch();
    void hiddenWindow();
    void blockedWindow();
    void releaseThatIsNotSeen();
    void forgetting();
    void anotherWindow();

private:
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<FingerWatch> m_watch;
    QTouchDevice *m_touch = nullptr;
};

void TestFingerWatch::init()
{
    beginWatch();
    if (!m_touch)
        m_touch = QTest::createTouchDevice();
    m_watch = std::make_unique<FingerWatch>();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(200, 200);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_watch->setWindow(m_window.get());
}

void TestFingerWatch::mouse()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    QVERIFY(m_watch->isDown());
    QTest::mouseMove(m_window.get(), {60, 60});
    QVERIFY(m_watch->isDown());
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {60, 60});
    QVERIFY(!m_watch->isDown());
    QTRY_COMPARE(lifted.size(), 1);
}

void TestFingerWatch::twoButtons()
{
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    QTest::mousePress(m_window.get(), Qt::RightButton, {}, {50, 50});
    QTest::mouseRelease(m_window.get(), Qt::RightButton, {}, {50, 50});
    QVERIFY(m_watch->isDown());
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {50, 50});
    QVERIFY(!m_watch->isDown());
}

void TestFingerWatch::finger()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    QTest::touchEvent(m_window.get(), m_touch).press(0, {50, 50});
    QVERIFY(m_watch->isDown());
    QTest::touchEvent(m_window.get(), m_touch).move(0, {90, 90});
    QVERIFY(m_watch->isDown());
    QTest::touchEvent(m_window.get(), m_touch).release(0, {90, 90});
    QVERIFY(!m_watch->isDown());
    QTRY_VERIFY(!lifted.isEmpty());
}

void TestFingerWatch::twoFingers()
{
    QTest::touchEvent(m_window.get(), m_touch).press(0, {50, 50});
    QTest::touchEvent(m_window.get(), m_touch).stationary(0).press(1, {90, 90});
    QTest::touchEvent(m_window.get(), m_touch).release(0, {50, 50}).stationary(1);
    QVERIFY(m_watch->isDown());
    QTest::touchEvent(m_window.get(), m_touch).release(1, {90, 90});
    QVERIFY(!m_watch->isDown());
}

void TestFingerWatch::cancelledTouch()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    QTest::touchEvent(m_window.get(), m_touch).press(0, {50, 50});
    QTouchEvent cancel(QEvent::TouchCancel, m_touch);
    QCoreApplication::sendEvent(m_window.get(), &cancel);
    QVERIFY(!m_watch->isDown());
    QTRY_COMPARE(lifted.size(), 1);
    QTest::touchEvent(m_window.get(), m_touch).release(0, {50, 50});
}

void TestFingerWatch::hiddenWindow()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    QTest::touchEvent(m_window.get(), m_touch).press(0, {50, 50});
    // Its release goes nowhere.
    m_window->hide();
    QVERIFY(!m_watch->isDown());
    QTRY_COMPARE(lifted.size(), 1);
    QTest::touchEvent(m_window.get(), m_touch).release(0, {50, 50});
}

void TestFingerWatch::blockedWindow()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    // From here on the window gets no more of what the finger does.
    QWindow question;
    question.setModality(Qt::ApplicationModal);
    question.show();
    QTRY_VERIFY(!m_watch->isDown());
    QTRY_COMPARE(lifted.size(), 1);
    QTest::mouseRelease(&question, Qt::LeftButton, {}, {5, 5});
}

void TestFingerWatch::releaseThatIsNotSeen()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    // Released where somebody else had the mouse.
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 60), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &move);
    QVERIFY(!m_watch->isDown());
    QTRY_COMPARE(lifted.size(), 1);
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {60, 60});
}

void TestFingerWatch::forgetting()
{
    QSignalSpy lifted(m_watch.get(), &FingerWatch::lifted);
    m_watch->forget();
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    m_watch->forget();
    QVERIFY(!m_watch->isDown());
    // Not at once: what the release does comes first.
    QCOMPARE(lifted.size(), 0);
    QTRY_COMPARE(lifted.size(), 1);
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {50, 50});
    Operator::settle(20);
    QCOMPARE(lifted.size(), 1);
}

void TestFingerWatch::anotherWindow()
{
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    m_watch->setWindow(nullptr);
    QVERIFY(!m_watch->isDown());
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {50, 50});
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {50, 50});
    QVERIFY(!m_watch->isDown());
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {50, 50});
    m_watch->setWindow(m_window.get());
    // A window that goes takes nothing with it.
    m_window.reset();
    m_watch->setWindow(nullptr);
    QVERIFY(!m_watch->isDown());
}

PANEL_TEST_MAIN(TestFingerWatch)

#include "test_fingerwatch.moc"
