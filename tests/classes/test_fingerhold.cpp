#include "cards/wifi/fingerhold.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtQuick/QQuickWindow>

using QSP::FingerHold;
using What = FingerHold::What;

/// What waits while a finger is down, and in which order it is made up for.
class TestFingerHold : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void atOnceWithoutAFinger();
    void waitsForTheLifting();
    void theNewestOfAKindCounts();
    void listBeforeLink();
    void whatIsDroppedIsNotDone();
    void anotherFingerBeforeTheLiftingIsDelivered();
    void forgettingLetsItGo();

private:
    // Not by the test library's own, which deliver what is queued.
    void press() { send(QEvent::MouseButtonPress, Qt::LeftButton); }
    void release() { send(QEvent::MouseButtonRelease, Qt::NoButton); }
    void send(QEvent::Type type, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, {50.0, 50.0}, Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(m_window.get(), &event);
    }
    std::function<void()> note(const char *text)
    {
        return [this, text] { m_done << QString::fromLatin1(text); };
    }

    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<FingerHold> m_hold;
    QStringList m_done;
};

void TestFingerHold::init()
{
    beginWatch();
    m_done.clear();
    m_hold = std::make_unique<FingerHold>(nullptr);
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(200, 200);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_hold->setWindow(m_window.get());
}

void TestFingerHold::atOnceWithoutAFinger()
{
    m_hold->run(What::List, note("list"));
    QCOMPARE(m_done, QStringList("list"));
}

void TestFingerHold::waitsForTheLifting()
{
    press();
    m_hold->run(What::List, note("list"));
    QCOMPARE(m_done, QStringList());
    release();
    QTRY_COMPARE(m_done, QStringList("list"));
    // Once.
    press();
    release();
    Operator::settle(20);
    QCOMPARE(m_done.size(), 1);
}

void TestFingerHold::theNewestOfAKindCounts()
{
    press();
    m_hold->run(What::Link, note("first"));
    m_hold->run(What::Link, note("second"));
    release();
    QTRY_COMPARE(m_done, QStringList("second"));
}

void TestFingerHold::listBeforeLink()
{
    press();
    m_hold->run(What::Link, note("link"));
    m_hold->run(What::List, note("list"));
    release();
    QTRY_COMPARE(m_done, QStringList({"list", "link"}));
}

void TestFingerHold::whatIsDroppedIsNotDone()
{
    press();
    m_hold->run(What::List, note("list"));
    m_hold->run(What::Link, note("link"));
    m_hold->drop(What::List);
    release();
    QTRY_COMPARE(m_done, QStringList("link"));
}

void TestFingerHold::anotherFingerBeforeTheLiftingIsDelivered()
{
    press();
    m_hold->run(What::List, note("list"));
    release();
    press();
    Operator::settle(20);
    QCOMPARE(m_done, QStringList());
    release();
    QTRY_COMPARE(m_done, QStringList("list"));
}

void TestFingerHold::forgettingLetsItGo()
{
    press();
    m_hold->run(What::List, note("list"));
    m_hold->forget();
    QTRY_COMPARE(m_done, QStringList("list"));
    release();
}

PANEL_TEST_MAIN(TestFingerHold)

#include "test_fingerhold.moc"
