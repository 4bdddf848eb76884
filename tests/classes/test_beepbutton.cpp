#include "controls/beepbutton.h"

#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickflickable_p.h>

using QSP::BeepButton;

namespace {

/// A button alone on a page. One that scrolls waits with a press whether it becomes a scroll.
struct ButtonScene {
    explicit ButtonScene(bool scrolls = false) : page(window.contentItem()), button(page.contentItem())
    {
        window.resize(200, 100);
        page.setSize({200, 100});
        page.setContentHeight(scrolls ? 300 : 100);
        page.setInteractive(scrolls);
        page.setPressDelay(200);
        button.setSize({100, 50});
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    QQuickWindow window;
    QQuickFlickable page;
    BeepButton button;
    QSignalSpy pressed{&button, &QQuickAbstractButton::pressed};
    QSignalSpy released{&button, &QQuickAbstractButton::released};
    QSignalSpy clicked{&button, &QQuickAbstractButton::clicked};
};

} // namespace

class TestBeepButton : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void nothingWasReadYet();
    void sameStateIsWrittenOnce();
    void writeHasEndedOnAnotherThread();
    void beepAsksTheService();
    void clickBeeps();
    void quickTapsCountEach_data();
    void quickTapsCountEach();
    void doubleClickAloneIsATap();
    void touchBeeps();
    void holdBeepsNotByItself();
    void disabledOneIsSilent();
    void clickPutsTheKeyboardAway();
    void keyboardStaysForAButtonThatSaysSo();
};

void TestBeepButton::init()
{
    beginWatch();
    HmiSimulator::reset();
}

// First of all: it is about the state before anything has asked the service.
void TestBeepButton::nothingWasReadYet()
{
    HmiSimulator::setBuzzerOn(true);
    BeepButton::setBuzzerOn(false);
    QCOMPARE(Journal::calls(), QStringList());
    QVERIFY(HmiSimulator::panel().buzzer);
}

void TestBeepButton::sameStateIsWrittenOnce()
{
    HmiSimulator::setBuzzerOn(false);
    QVERIFY(!BeepButton::isBuzzerOn());
    BeepButton::setBuzzerOn(true);
    BeepButton::setBuzzerOn(true);
    QCOMPARE(Journal::calls(), QStringList{"setBuzzerOn(true)"});
    BeepButton::setBuzzerOn(false);
    BeepButton::setBuzzerOn(false);
    QCOMPARE(Journal::calls(), (QStringList{"setBuzzerOn(true)", "setBuzzerOn(false)"}));
}

void TestBeepButton::writeHasEndedOnAnotherThread()
{
    HmiSimulator::setBuzzerOn(false);
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.delays.buzzer = 40; });
    QVERIFY(!BeepButton::isBuzzerOn());
    BeepButton::setBuzzerOn(true);
    QVERIFY(HmiSimulator::panel().buzzer);
    const auto journal = HmiSimulator::journal();
    QCOMPARE(journal.size(), size_t(1));
    QVERIFY(!journal.front().mainThread);
}

void TestBeepButton::beepAsksTheService()
{
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::setBuzzerOn(true);
    BeepButton::beepIfOn();
    QCOMPARE(Journal::calls(), (QStringList{"isBuzzerOn()", "beep(true)"}));
    HmiSimulator::setBuzzerOn(false);
    BeepButton::beepIfOn();
    QCOMPARE(Journal::calls(), (QStringList{"isBuzzerOn()", "beep(true)", "isBuzzerOn()"}));
}

void TestBeepButton::clickBeeps()
{
    ButtonScene scene;
    HmiSimulator::setBuzzerOn(true);
    Operator::tap(&scene.button);
    QCOMPARE(scene.clicked.count(), 1);
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
    // Switched off elsewhere: the very next click is silent.
    HmiSimulator::setBuzzerOn(false);
    Operator::tap(&scene.button);
    QCOMPARE(scene.clicked.count(), 2);
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
}

void TestBeepButton::quickTapsCountEach_data()
{
    QTest::addColumn<bool>("scrolls");
    QTest::addColumn<bool>("byTouch");
    QTest::newRow("mouse, still page") << false << false;
    QTest::newRow("mouse, scrolling page") << true << false;
    QTest::newRow("finger, still page") << false << true;
    QTest::newRow("finger, scrolling page") << true << true;
}

void TestBeepButton::quickTapsCountEach()
{
    QFETCH(bool, scrolls);
    QFETCH(bool, byTouch);
    ButtonScene scene(scrolls);
    for (int pair = 1; pair <= 3; ++pair) {
        if (byTouch) {
            Operator::touch(&scene.button);
            Operator::touch(&scene.button);
        } else {
            QTest::mouseDClick(&scene.window, Qt::LeftButton, {}, Operator::centerOf(&scene.button));
        }
        QTRY_COMPARE(scene.clicked.count(), 2 * pair);
        QCOMPARE(scene.pressed.count(), 2 * pair);
        QCOMPARE(scene.released.count(), 2 * pair);
        QVERIFY(!scene.button.isPressed());
    }
}

// As a host delivers it that forwards the events of another toolkit, where the second press is a double click only.
void TestBeepButton::doubleClickAloneIsATap()
{
    ButtonScene scene;
    for (int tap = 0; tap < 6; ++tap) {
        const auto kind = tap % 2 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
        const QPointF point = Operator::centerOf(&scene.button);
        QMouseEvent press(kind, point, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&scene.window, &press);
        QVERIFY(scene.button.isPressed());
        QMouseEvent release(QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&scene.window, &release);
        QVERIFY(!scene.button.isPressed());
        QCOMPARE(scene.clicked.count(), tap + 1);
        QCOMPARE(scene.pressed.count(), tap + 1);
        QCOMPARE(scene.released.count(), tap + 1);
    }
}

void TestBeepButton::touchBeeps()
{
    ButtonScene scene;
    HmiSimulator::setBuzzerOn(true);
    Operator::touch(&scene.button);
    QCOMPARE(scene.clicked.count(), 1);
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
}

void TestBeepButton::holdBeepsNotByItself()
{
    BeepButton button;
    HmiSimulator::setBuzzerOn(true);
    emit button.pressAndHold();
    QCOMPARE(Journal::calls(), QStringList());
}

void TestBeepButton::disabledOneIsSilent()
{
    ButtonScene scene;
    scene.button.setEnabled(false);
    HmiSimulator::setBuzzerOn(true);
    Operator::tap(&scene.button);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestBeepButton::clickPutsTheKeyboardAway()
{
    CardScene scene;
    BeepButton button(scene.root());
    button.setSize({100, 50});
    QSP::VkbManager::instance().showVkb(true);
    QVERIFY(QSP::VkbManager::instance().isVisible());
    Operator::tap(&button);
    QVERIFY(!QSP::VkbManager::instance().isVisible());
}

void TestBeepButton::keyboardStaysForAButtonThatSaysSo()
{
    CardScene scene;
    BeepButton button(scene.root());
    button.setSize({100, 50});
    button.setAutoCloseVkb(false);
    QSP::VkbManager::instance().showVkb(true);
    Operator::tap(&button);
    QVERIFY(QSP::VkbManager::instance().isVisible());
    QSP::VkbManager::instance().showVkb(false);
}

PANEL_TEST_MAIN(TestBeepButton)

#include "test_beepbutton.moc"
