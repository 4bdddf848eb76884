#include "host/framekey.h"

#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

/// The key beside the glass, by finger and by mouse.
class TestFrameKey : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { m_device = QTest::createTouchDevice(); }
    void init();
    void cleanup();
    void fingerPressesIt();
    void mousePressesIt();
    void twoQuickClicksAreTwo();
    void liftedElsewhereItDidNothing();
    void glassIsNoKey();
    void worksWhileTheWindowKeepsAllToItself();

private:
    const QPoint m_onKey{350, 100};
    const QPoint m_onGlass{100, 100};
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<FrameKey> m_key;
    std::unique_ptr<QSignalSpy> m_clicked;
    QQuickItem *m_frame = nullptr;
    QTouchDevice *m_device = nullptr;
};

namespace {

/// As a dialog does it.
class KeepsAll : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        return event->type() == QEvent::TouchBegin || event->type() == QEvent::MouseButtonPress;
    }
};

} // namespace

void TestFrameKey::init()
{
    beginWatch();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(400, 200);
    m_frame = new QQuickItem(m_window->contentItem());
    m_frame->setPosition({300, 0});
    m_frame->setSize({100, 200});
    m_key = std::make_unique<FrameKey>(m_window.get(), m_frame);
    m_clicked = std::make_unique<QSignalSpy>(m_key.get(), &FrameKey::clicked);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestFrameKey::cleanup()
{
    m_clicked.reset();
    m_key.reset();
    m_window.reset();
    endWatch();
}

void TestFrameKey::fingerPressesIt()
{
    QTest::touchEvent(m_window.get(), m_device).press(0, m_onKey, m_window.get());
    QVERIFY(m_frame->property("down").toBool());
    QCOMPARE(m_clicked->count(), 0);
    QTest::touchEvent(m_window.get(), m_device).release(0, m_onKey, m_window.get());
    QVERIFY(!m_frame->property("down").toBool());
    QCOMPARE(m_clicked->count(), 1);
}

void TestFrameKey::mousePressesIt()
{
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, m_onKey);
    QVERIFY(m_frame->property("down").toBool());
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, m_onKey);
    QVERIFY(!m_frame->property("down").toBool());
    QCOMPARE(m_clicked->count(), 1);
}

void TestFrameKey::twoQuickClicksAreTwo()
{
    QTest::mouseClick(m_window.get(), Qt::LeftButton, {}, m_onKey);
    QTest::mouseDClick(m_window.get(), Qt::LeftButton, {}, m_onKey);
    QVERIFY(m_clicked->count() >= 2);
    QVERIFY(!m_frame->property("down").toBool());
}

void TestFrameKey::liftedElsewhereItDidNothing()
{
    QTest::touchEvent(m_window.get(), m_device).press(0, m_onKey, m_window.get());
    QTest::touchEvent(m_window.get(), m_device).move(0, m_onGlass, m_window.get());
    QTest::touchEvent(m_window.get(), m_device).release(0, m_onGlass, m_window.get());
    QVERIFY(!m_frame->property("down").toBool());
    QCOMPARE(m_clicked->count(), 0);
}

void TestFrameKey::glassIsNoKey()
{
    QTest::mouseClick(m_window.get(), Qt::LeftButton, {}, m_onGlass);
    QTest::touchEvent(m_window.get(), m_device).press(0, m_onGlass, m_window.get());
    QTest::touchEvent(m_window.get(), m_device).release(0, m_onKey, m_window.get());
    QCOMPARE(m_clicked->count(), 0);
}

void TestFrameKey::worksWhileTheWindowKeepsAllToItself()
{
    KeepsAll dialog;
    m_window->installEventFilter(&dialog);
    QTest::touchEvent(m_window.get(), m_device).press(0, m_onKey, m_window.get());
    QTest::touchEvent(m_window.get(), m_device).release(0, m_onKey, m_window.get());
    QCOMPARE(m_clicked->count(), 1);
}

PANEL_TEST_MAIN(TestFrameKey)

#include "test_framekey.moc"
