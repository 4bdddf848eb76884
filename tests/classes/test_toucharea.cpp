#include "controls/toucharea.h"

#include "controls/beepbutton.h"
#include "controls/touchmask.h"
#include "tests/classes/controlscene.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickmousearea_p.h>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

using QSP::BeepButton;
using QSP::TouchArea;
using QSP::TouchMask;

namespace {

/// A screen without controls of its own, which would be neighbours.
class EmptyScene : public ControlScene
{
public:
    EmptyScene()
    {
        const auto parts = root()->childItems();
        for (QQuickItem *part : parts)
            part->setVisible(part == page());
    }
};

BeepButton *addButton(QQuickItem *parent, const QRectF &place)
{
    auto *button = new BeepButton(parent);
    button->setPosition(place.topLeft());
    button->setSize(place.size());
    return button;
}

// How far beyond its rectangle the item takes touches, along the line through its middle.
struct Margins {
    qreal left, top, right, bottom;
};

qreal reach(const QQuickItem *item, const QPointF &step)
{
    QPointF point(item->width() / 2.0, item->height() / 2.0);
    while (item->contains(point + 0.25 * step) && qAbs(point.x()) + qAbs(point.y()) < 1000.0)
        point += 0.25 * step;
    return step.x() < 0   ? -point.x()
           : step.x() > 0 ? point.x() - item->width()
           : step.y() < 0 ? -point.y()
                          : point.y() - item->height();
}

void compare(const QQuickItem *item, const Margins &expected)
{
    const Margins found{reach(item, {-1, 0}), reach(item, {0, -1}), reach(item, {1, 0}), reach(item, {0, 1})};
    const auto isNear = [](qreal a, qreal b) { return qAbs(a - b) <= 0.5; };
    QVERIFY2(isNear(found.left, expected.left) && isNear(found.top, expected.top) &&
                 isNear(found.right, expected.right) && isNear(found.bottom, expected.bottom),
             qPrintable(QStringLiteral("left %1 top %2 right %3 bottom %4")
                            .arg(found.left)
                            .arg(found.top)
                            .arg(found.right)
                            .arg(found.bottom)));
}

} // namespace

class TestTouchArea : public PanelTest
{
    Q_OBJECT

private slots:
    void growsToAFinger();
    void largeOnesStay();
    void endsHalfWayToANeighbour();
    void takesMoreWhereTheOtherSideHasNoRoom();
    void nearerOneTakesTheCorner();
    void disabledNeighbourKeepsItsPlaceOnly();
    void hiddenNeighbourCounts();
    void followsItsNeighbours();
    void clipped();
    void endsAtTheScreen();
    void hostsPixelsStayTheHosts();
    void nestedOnesAreNoNeighbours();
    void popupsHaveTheirOwn();
    void maskOfAnItem();
    void upwardsAndDownwardsOnly();
    void withoutAWindow();
};

void TestTouchArea::growsToAFinger()
{
    EmptyScene scene;
    compare(addButton(scene.page(), {400, 300, 30, 20}), {15, 20, 15, 20});
}

void TestTouchArea::largeOnesStay()
{
    EmptyScene scene;
    compare(addButton(scene.page(), {400, 300, 60, 80}), {0, 0, 0, 0});
}

void TestTouchArea::endsHalfWayToANeighbour()
{
    EmptyScene scene;
    BeepButton *left = addButton(scene.page(), {400, 300, 30, 60});
    BeepButton *right = addButton(scene.page(), {440, 300, 60, 60});
    compare(left, {25, 0, 5, 0});
    compare(right, {0, 0, 0, 0});
    addButton(scene.page(), {340, 300, 50, 60});
    compare(left, {5, 0, 5, 0});
}

void TestTouchArea::takesMoreWhereTheOtherSideHasNoRoom()
{
    EmptyScene scene;
    BeepButton *upper = addButton(scene.page(), {400, 300, 60, 20});
    BeepButton *lower = addButton(scene.page(), {400, 324, 60, 20});
    compare(upper, {0, 38, 0, 2});
    compare(lower, {0, 2, 0, 38});
}

void TestTouchArea::nearerOneTakesTheCorner()
{
    EmptyScene scene;
    BeepButton *one = addButton(scene.page(), {400, 300, 20, 20});
    BeepButton *other = addButton(scene.page(), {430, 330, 20, 20});
    for (int y = 260; y < 400; ++y) {
        for (int x = 360; x < 500; ++x) {
            const QPointF point(x + 0.4, y);
            QVERIFY(!one->contains(point - one->position()) || !other->contains(point - other->position()));
        }
    }
    QVERIFY(one->contains({24, 23}));
    QVERIFY(!one->contains({27, 26}));
    QVERIFY(other->contains(QPointF(427, 326) - other->position()));
}

void TestTouchArea::disabledNeighbourKeepsItsPlaceOnly()
{
    EmptyScene scene;
    BeepButton *button = addButton(scene.page(), {400, 300, 60, 20});
    BeepButton *neighbour = addButton(scene.page(), {400, 330, 60, 20});
    compare(button, {0, 35, 0, 5});
    neighbour->setEnabled(false);
    compare(button, {0, 30, 0, 10});
}

void TestTouchArea::hiddenNeighbourCounts()
{
    EmptyScene scene;
    BeepButton *button = addButton(scene.page(), {400, 300, 60, 20});
    BeepButton *neighbour = addButton(scene.page(), {400, 330, 60, 20});
    neighbour->setVisible(false);
    compare(button, {0, 20, 0, 20});
    delete neighbour;
    compare(button, {0, 20, 0, 20});
}

void TestTouchArea::followsItsNeighbours()
{
    EmptyScene scene;
    QQuickItem column(scene.page());
    BeepButton *button = addButton(scene.page(), {400, 300, 60, 20});
    BeepButton *neighbour = addButton(&column, {400, 330, 60, 20});
    compare(button, {0, 35, 0, 5});
    column.setY(10);
    compare(button, {0, 30, 0, 10});
    neighbour->setHeight(30);
    neighbour->setY(312);
    compare(button, {0, 39, 0, 1});
    column.setX(100);
    compare(button, {0, 20, 0, 20});
    button->setHeight(40);
    compare(button, {0, 10, 0, 10});
}

void TestTouchArea::clipped()
{
    EmptyScene scene;
    QQuickItem pool(scene.page());
    pool.setPosition({100, 100});
    pool.setSize({400, 300});
    pool.setClip(true);
    QQuickItem column(&pool);
    BeepButton *button = addButton(&column, {100, 5, 60, 20});
    BeepButton *outside = addButton(scene.page(), {200, 60, 60, 20});
    compare(button, {0, 5, 0, 35});
    // Scrolled away, what is left of the room beside it is nobody's.
    column.setY(-30);
    QVERIFY(!button->contains({30, 28}));
    // What nobody sees is no neighbour either.
    compare(outside, {0, 20, 0, 20});
}

void TestTouchArea::endsAtTheScreen()
{
    EmptyScene scene;
    compare(addButton(scene.page(), {4, 2, 20, 20}), {4, 2, 36, 38});
}

// The screen need not fill the window; what is beside it belongs to the host.
void TestTouchArea::hostsPixelsStayTheHosts()
{
    EmptyScene scene;
    QQuickMouseArea host(scene.glass());
    host.setSize(scene.window()->size());
    host.setZ(-1);
    scene.root()->setX(50);
    BeepButton *button = addButton(scene.page(), {2, 300, 20, 20});
    QSignalSpy clicked(button, &QQuickAbstractButton::clicked);
    QSignalSpy pressed(&host, &QQuickMouseArea::pressedChanged);
    compare(button, {2, 20, 38, 20});
    Operator::tap(scene.window(), {47, 310});
    QCOMPARE(clicked.size(), 0);
    QCOMPARE(pressed.size(), 2);
    Operator::tap(scene.window(), {51, 310});
    QCOMPARE(clicked.size(), 1);
}

void TestTouchArea::nestedOnesAreNoNeighbours()
{
    EmptyScene scene;
    BeepButton *outer = addButton(scene.page(), {400, 300, 40, 40});
    BeepButton *inner = addButton(outer, {0, 0, 40, 40});
    compare(outer, {10, 10, 10, 10});
    compare(inner, {10, 10, 10, 10});
    QSignalSpy clicked(inner, &QQuickAbstractButton::clicked);
    Operator::tap(scene.window(), scene.page()->mapToScene({395, 320}).toPoint());
    QCOMPARE(clicked.size(), 1);
}

void TestTouchArea::popupsHaveTheirOwn()
{
    EmptyScene scene;
    BeepButton *below = addButton(scene.page(), {400, 330, 60, 20});
    QQuickPopup popup;
    popup.setParentItem(scene.page());
    popup.setPosition({380, 290});
    popup.setWidth(100);
    popup.setHeight(40);
    popup.setModal(true);
    popup.setDim(false);
    BeepButton *button = addButton(popup.contentItem(), {20, 10, 60, 20});
    popup.open();
    QTRY_VERIFY(popup.isOpened());
    compare(button, {0, 20, 0, 20});
    compare(below, {0, 20, 0, 20});
    // Beyond the edge of the popup, which a press beside it would close.
    QSignalSpy clicked(button, &QQuickAbstractButton::clicked);
    QSignalSpy clickedBelow(below, &QQuickAbstractButton::clicked);
    Operator::tap(scene.window(), button->mapToScene({30, 38}).toPoint());
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clickedBelow.size(), 0);
    QVERIFY(popup.isVisible());
    Operator::tap(scene.window(), button->mapToScene({30, 50}).toPoint());
    QCOMPARE(clicked.size(), 1);
    QTRY_VERIFY(!popup.isVisible());
}

void TestTouchArea::maskOfAnItem()
{
    EmptyScene scene;
    auto *area = new QQuickMouseArea(scene.page());
    area->setPosition({400, 300});
    area->setSize({20, 20});
    TouchMask::cover(area);
    TouchMask::cover(nullptr);
    compare(area, {20, 20, 20, 20});
    QSignalSpy pressed(area, &QQuickMouseArea::pressedChanged);
    Operator::tap(scene.window(), area->mapToScene({-18, 38}).toPoint());
    QCOMPARE(pressed.size(), 2);
    BeepButton *button = addButton(scene.page(), {430, 300, 20, 20});
    compare(button, {5, 20, 35, 20});
    delete area;
    compare(button, {20, 20, 20, 20});
}

void TestTouchArea::upwardsAndDownwardsOnly()
{
    EmptyScene scene;
    QQuickItem field(scene.page());
    field.setPosition({400, 300});
    field.setSize({40, 20});
    TouchMask::cover(&field, TouchArea::fingerHeight);
    compare(&field, {0, 20, 0, 20});
    // What it does not claim, its neighbour gets half the way to it.
    BeepButton *button = addButton(scene.page(), {450, 300, 20, 20});
    compare(button, {5, 20, 35, 20});
    QVERIFY(button->contains({-4, 30}));
}

void TestTouchArea::withoutAWindow()
{
    BeepButton button;
    button.setSize({20, 20});
    QVERIFY(button.contains({10, 10}));
    QVERIFY(!button.contains({-5, 10}));
    BeepButton empty;
    QVERIFY(!empty.contains({-5, 0}));
}

PANEL_TEST_MAIN(TestTouchArea)

#include "test_toucharea.moc"
