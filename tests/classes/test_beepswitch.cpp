#include "controls/beepswitch.h"

#include "tests/support/journal.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/private/qquickrectangle_p.h>

using QSP::BeepSwitch;

namespace {

const QColor offColor(0xC9, 0xCD, 0xD4);
const QColor onColor(0x34, 0x82, 0xFF);

QQuickRectangle *backgroundOf(const BeepSwitch &item)
{
    return qobject_cast<QQuickRectangle *>(item.background());
}

QQuickRectangle *knobOf(const BeepSwitch &item)
{
    const QList<QQuickItem *> children = item.childItems();
    for (QQuickItem *child : children) {
        if (child != item.background())
            return qobject_cast<QQuickRectangle *>(child);
    }
    return nullptr;
}

} // namespace

class TestBeepSwitch : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void startsOff();
    void drawnByItsHeight();
    void widthAloneMovesNoKnob();
    void stateMovesKnobAndColour();
    void setOnTellsChangesAlone();
    void clickTurnsItOverOnce();
    void beepComesBeforeTheChange();
    void disabledIsHalfVisible();
    void standsRightInADocument();
    void registersOnce();
};

void TestBeepSwitch::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestBeepSwitch::startsOff()
{
    const BeepSwitch item;
    QVERIFY(!item.on());
    QVERIFY(backgroundOf(item));
    QCOMPARE(backgroundOf(item)->color(), offColor);
    QCOMPARE(knobOf(item)->color(), QColor(Qt::white));
}

void TestBeepSwitch::drawnByItsHeight()
{
    BeepSwitch item;
    item.setWidth(60);
    item.setHeight(30);
    const QQuickRectangle *knob = knobOf(item);
    QCOMPARE(knob->height(), 20.0);
    QCOMPARE(knob->radius(), 10.0);
    QCOMPARE(knob->width(), 26.4);
    QCOMPARE(knob->x(), 5.0);
    QCOMPARE(knob->y(), 5.0);
    QCOMPARE(backgroundOf(item)->radius(), 15.0);
    item.setOn(true);
    QCOMPARE(knob->x(), 60.0 - 31.4);
}

void TestBeepSwitch::widthAloneMovesNoKnob()
{
    BeepSwitch item;
    item.setWidth(60);
    item.setHeight(30);
    item.setOn(true);
    item.setWidth(100);
    QCOMPARE(knobOf(item)->x(), 60.0 - 31.4);
    item.setHeight(36);
    QCOMPARE(knobOf(item)->x(), 100.0 - 24.0 * 1.32 - 6.0);
}

void TestBeepSwitch::stateMovesKnobAndColour()
{
    BeepSwitch item;
    item.setSize({60, 30});
    item.setOn(true);
    QCOMPARE(backgroundOf(item)->color(), onColor);
    item.setOn(false);
    QCOMPARE(backgroundOf(item)->color(), offColor);
    QCOMPARE(knobOf(item)->x(), 5.0);
}

void TestBeepSwitch::setOnTellsChangesAlone()
{
    BeepSwitch item;
    QSignalSpy changed(&item, &BeepSwitch::onChanged);
    item.setOn(false);
    QCOMPARE(changed.count(), 0);
    item.setOn(true);
    item.setOn(true);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toBool(), true);
}

void TestBeepSwitch::clickTurnsItOverOnce()
{
    QQuickWindow window;
    window.resize(200, 100);
    BeepSwitch item(window.contentItem());
    item.setSize({60, 30});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy changed(&item, &BeepSwitch::onChanged);
    Operator::tap(&item);
    QVERIFY(item.on());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toBool(), true);
    Operator::touch(&item);
    QVERIFY(!item.on());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.last().first().toBool(), false);
}

void TestBeepSwitch::beepComesBeforeTheChange()
{
    HmiSimulator::setBuzzerOn(true);
    BeepSwitch item;
    int beepsAtTheChange = -1;
    connect(&item, &BeepSwitch::onChanged, this, [&] { beepsAtTheChange = Journal::calls("beep").size(); });
    emit item.clicked();
    QCOMPARE(beepsAtTheChange, 1);
}

void TestBeepSwitch::disabledIsHalfVisible()
{
    BeepSwitch item;
    item.onChangeEnabled(false);
    QVERIFY(!item.isEnabled());
    QCOMPARE(item.opacity(), 0.5);
    item.onChangeEnabled(true);
    QVERIFY(item.isEnabled());
    QCOMPARE(item.opacity(), 1.0);
}

void TestBeepSwitch::standsRightInADocument()
{
    BeepSwitch::registerType();
    QQmlEngine engine;
    QQmlComponent component(&engine);
    // The width comes last, and from a binding: the knob must not stay where no width put it.
    component.setData("import QtQuick 2.15\nimport QQuickSystemSet 1.0\n"
                      "BeepSwitch { on: true; height: 30; property real unit: 30; width: 2 * unit }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    const auto *item = qobject_cast<BeepSwitch *>(object.get());
    QVERIFY2(item, qPrintable(component.errorString()));
    QCOMPARE(item->width(), 60.0);
    QCOMPARE(knobOf(*item)->x(), 60.0 - 31.4);
    QCOMPARE(backgroundOf(*item)->color(), onColor);
    QCOMPARE(backgroundOf(*item)->width(), 60.0);
    QCOMPARE(backgroundOf(*item)->height(), 30.0);
}

void TestBeepSwitch::registersOnce()
{
    BeepSwitch::registerType();
    const int type = qmlTypeId("QQuickSystemSet", 1, 0, "BeepSwitch");
    QVERIFY(type >= 0);
    BeepSwitch::registerType();
    QCOMPARE(qmlTypeId("QQuickSystemSet", 1, 0, "BeepSwitch"), type);
}

PANEL_TEST_MAIN(TestBeepSwitch)

#include "test_beepswitch.moc"
