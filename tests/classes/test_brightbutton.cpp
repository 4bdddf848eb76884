#include "controls/brightbutton.h"

#include "tests/support/journal.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

using QSP::BrightButton;

class TestBrightButton : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void clickBeepsOnce();
    void holdBeepsOnceMore();
    void holdIsSilentWithTheBuzzerOff();
    void hasNothingOfItsOwnForDocuments();
    void registersOnce();
};

void TestBrightButton::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestBrightButton::clickBeepsOnce()
{
    HmiSimulator::setBuzzerOn(true);
    BrightButton button;
    emit button.clicked();
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
}

void TestBrightButton::holdBeepsOnceMore()
{
    HmiSimulator::setBuzzerOn(true);
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(60);
    QQuickWindow window;
    window.resize(200, 100);
    BrightButton button(window.contentItem());
    button.setSize({60, 60});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy held(&button, &QQuickAbstractButton::pressAndHold);
    Operator::press(&button);
    QCOMPARE(Journal::calls(), QStringList());
    QTRY_COMPARE(held.count(), 1);
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
    Operator::release(&button);
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(800);
}

void TestBrightButton::holdIsSilentWithTheBuzzerOff()
{
    HmiSimulator::setBuzzerOn(false);
    BrightButton button;
    emit button.pressAndHold();
    QCOMPARE(Journal::calls(), QStringList());
}

void TestBrightButton::hasNothingOfItsOwnForDocuments()
{
    const QMetaObject &meta = BrightButton::staticMetaObject;
    QCOMPARE(meta.propertyOffset(), meta.propertyCount());
    QCOMPARE(meta.methodOffset(), meta.methodCount());
}

void TestBrightButton::registersOnce()
{
    BrightButton::registerType();
    const int type = qmlTypeId("QQuickSystemSet", 1, 0, "BrightButton");
    QVERIFY(type >= 0);
    BrightButton::registerType();
    QCOMPARE(qmlTypeId("QQuickSystemSet", 1, 0, "BrightButton"), type);
}

PANEL_TEST_MAIN(TestBrightButton)

#include "test_brightbutton.moc"
