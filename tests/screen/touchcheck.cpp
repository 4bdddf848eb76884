#include "tests/screen/touchcheck.h"

#include <QtGui/QTouchDevice>

#include <cmath>

namespace {

constexpr qreal least = 48.0;
constexpr qreal measuringStep = 0.25;
constexpr int hideKey = 0x100000;

bool isPressable(const QQuickItem *item)
{
    return item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextInput") ||
           item->inherits("QQuickComboBox") || item->inherits("QQuickSlider") ||
           item->inherits("QQuickScrollBar");
}

QRectF placeOf(const QQuickItem *item)
{
    return item->mapRectToScene({0.0, 0.0, item->width(), item->height()});
}

bool isNested(const QQuickItem *one, const QQuickItem *other)
{
    return one->isAncestorOf(other) || other->isAncestorOf(one);
}

qreal distance(const QRectF &rect, const QPointF &point)
{
    return std::hypot(point.x() - qBound(rect.left(), point.x(), rect.right()),
                      point.y() - qBound(rect.top(), point.y(), rect.bottom()));
}

QPointF stepTowards(TouchCheck::Side side)
{
    switch (side) {
    case TouchCheck::Left:
        return {-1.0, 0.0};
    case TouchCheck::Top:
        return {0.0, -1.0};
    case TouchCheck::Right:
        return {1.0, 0.0};
    case TouchCheck::Bottom:
        break;
    }
    return {0.0, 1.0};
}

// The middle of that side.
QPointF middleOf(const QRectF &rect, TouchCheck::Side side)
{
    const QPointF step = stepTowards(side);
    return rect.center() + QPointF(step.x() * rect.width() / 2.0, step.y() * rect.height() / 2.0);
}

// The boxes of an address stand side by side, which leaves them no room there.
bool standsInARow(const QQuickItem *item)
{
    return Operator::ancestorOf(item->parentItem(), "QSP::CIpInput") != nullptr;
}

QString say(const QQuickItem *item)
{
    const QRectF place = placeOf(item);
    return QStringLiteral("%1 %2 at %3,%4 %5x%6")
        .arg(QLatin1String(item->metaObject()->className()), item->objectName())
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height());
}

} // namespace

TouchCheck::TouchCheck(const ScreenFixture &fixture)
    : m_fixture(fixture), m_pool(fixture.root()->property("cardPool").value<QQuickItem *>())
{
    // Whether a press becomes a scroll is not what is looked at here.
    m_pool->setProperty("pressDelay", 0);
}

QQuickItem *TouchCheck::layer() const
{
    const auto popups = Operator::items(m_fixture.glass(), [](QQuickItem *item) {
        return item->isVisible() && item->inherits("QQuickPopupItem") &&
               Operator::items(item, [](QQuickItem *inner) {
                   return inner->objectName() == "vkbKeyboard";
               }).isEmpty();
    });
    return popups.isEmpty() ? m_fixture.root() : popups.constLast();
}

// What the edge of the screen and those who clip leave of the glass.
QRectF TouchCheck::bounds(const QQuickItem *item) const
{
    QRectF part = placeOf(m_fixture.root());
    for (const QQuickItem *ancestor = item->parentItem(); ancestor; ancestor = ancestor->parentItem()) {
        if (ancestor->clip())
            part &= ancestor->mapRectToScene(ancestor->clipRect());
    }
    return part;
}

bool TouchCheck::takes(const QQuickItem *item, const QPointF &point) const
{
    return bounds(item).contains(point) && item->contains(item->mapFromScene(point));
}

QRectF TouchCheck::visiblePart(const QQuickItem *item) const
{
    return placeOf(item) & bounds(item);
}

bool TouchCheck::isCovered(const QPointF &point) const
{
    if (!m_keyboard) {
        m_keyboard = Operator::items(m_fixture.glass(), [](const QQuickItem *item) {
                         return item->objectName() == "vkbKeyboard";
                     }).value(0);
    }
    return m_keyboard && m_keyboard->isVisible() &&
           placeOf(m_keyboard).adjusted(-2.0, -2.0, 2.0, 2.0).contains(point);
}

QRectF TouchCheck::measure(const QQuickItem *item, const QRectF &drawn) const
{
    const QRectF limits = bounds(item);
    const auto reach = [&](Side side) {
        const QPointF step = measuringStep * stepTowards(side);
        // What is drawn is in the area anyway.
        QPointF point = middleOf(drawn, side);
        while (limits.contains(point + step) && item->contains(item->mapFromScene(point + step)))
            point += step;
        return point;
    };
    return {QPointF(reach(Left).x(), reach(Top).y()), QPointF(reach(Right).x(), reach(Bottom).y())};
}

// Everything of the layer that can be pressed, were it enabled.
QVector<TouchCheck::Place> TouchCheck::places() const
{
    QVector<Place> found;
    const auto items = Operator::items(
        layer(), [](const QQuickItem *item) { return item->isVisible() && isPressable(item); });
    for (QQuickItem *item : items) {
        const QRectF drawn = visiblePart(item);
        if (drawn.width() >= 1.0 && drawn.height() >= 1.0)
            found.append({item, drawn, {}});
    }
    return found;
}

QVector<TouchCheck::Place> TouchCheck::placesInSight() const
{
    QVector<Place> found;
    const QVector<Place> all = places();
    for (const Place &place : all) {
        if (isInSight(place))
            found.append({place.item, place.drawn, measure(place.item, place.drawn)});
    }
    return found;
}

bool TouchCheck::isInSight(const Place &place) const
{
    return place.item->isEnabled() && !isCovered(place.drawn.center());
}

int TouchCheck::controls() const
{
    const QVector<Place> all = places();
    return static_cast<int>(
        std::count_if(all.begin(), all.end(), [this](const Place &place) { return isInSight(place); }));
}

QPoint TouchCheck::edgeOf(const QQuickItem *control, Side side) const
{
    const QRectF drawn = visiblePart(control);
    return edgeOf(drawn, measure(control, drawn), side);
}

QPoint TouchCheck::edgeOf(const QRectF &drawn, const QRectF &area, Side side)
{
    // Where two areas meet, either may have the very line.
    const QPointF edge = middleOf(area.adjusted(0.5, 0.5, -0.5, -0.5), side);
    const QPointF middle = drawn.center();
    switch (side) {
    case Left:
        return QPointF(std::ceil(edge.x()), middle.y()).toPoint();
    case Top:
        return QPointF(middle.x(), std::ceil(edge.y())).toPoint();
    case Right:
        return QPointF(std::floor(edge.x()), middle.y()).toPoint();
    case Bottom:
        break;
    }
    return QPointF(middle.x(), std::floor(edge.y())).toPoint();
}

// Whether something else begins where the area ends.
bool TouchCheck::isBounded(const Place &place, Side side, const QVector<Place> &all) const
{
    const QPointF step = stepTowards(side);
    const QPointF middle = place.drawn.center();
    const QPointF end(step.x() < 0   ? place.area.left()
                      : step.x() > 0 ? place.area.right()
                                     : middle.x(),
                      step.y() < 0   ? place.area.top()
                      : step.y() > 0 ? place.area.bottom()
                                     : middle.y());
    const QPointF beyond = end + 1.5 * step;
    if (!bounds(place.item).contains(beyond))
        return true;
    // Half way to what is enabled; all the way to what is not.
    const qreal own = distance(place.drawn, beyond);
    return std::any_of(all.begin(), all.end(), [&](const Place &other) {
        return other.item != place.item && !isNested(place.item, other.item) &&
               distance(other.drawn, beyond) <= (other.item->isEnabled() ? own + 2.0 : 1.0);
    });
}

void TouchCheck::checkSize(const Place &place, const QVector<Place> &all, QStringList *faults) const
{
    for (const Side side : {Left, Top, Right, Bottom}) {
        if (!takes(place.item, 0.98 * middleOf(place.drawn, side) + 0.02 * place.drawn.center()))
            *faults << say(place.item) + QStringLiteral(" is drawn where it cannot be touched");
    }
    const auto tell = [&](const char *what, qreal size) {
        *faults << QStringLiteral("%1 can be touched on %2 px of %3 only")
                       .arg(say(place.item))
                       .arg(size)
                       .arg(QLatin1String(what));
    };
    const qreal tolerance = 2.0 * measuringStep;
    // What is half out of sight has to be scrolled first.
    const QRectF whole = placeOf(place.item).adjusted(1.0, 1.0, -1.0, -1.0);
    if (!place.drawn.contains(whole))
        return;
    if (place.area.width() + tolerance < least && !standsInARow(place.item) &&
        !(isBounded(place, Left, all) && isBounded(place, Right, all)))
        tell("width", place.area.width());
    if (place.area.height() + tolerance < least &&
        !(isBounded(place, Top, all) && isBounded(place, Bottom, all)))
        tell("height", place.area.height());
}

void TouchCheck::checkOverlap(const Place &place, const Place &other, QStringList *faults) const
{
    if (isNested(place.item, other.item))
        return;
    const QRectF common = place.area.adjusted(-4.0, -4.0, 4.0, 4.0) &
                          other.area.adjusted(-4.0, -4.0, 4.0, 4.0) & bounds(place.item) & bounds(other.item);
    const auto isTakenBy = [](const QQuickItem *item, const QPointF &point) {
        return item->contains(item->mapFromScene(point));
    };
    // What they share is no finer than that, or no finger could hit it.
    constexpr int step = 2;
    for (int y = 0; y < common.height(); y += step) {
        for (int x = 0; x < common.width(); x += step) {
            // Off the lines on which areas meet.
            const QPointF point = common.topLeft() + QPointF(x + 0.37, y + 0.37);
            if (!isTakenBy(place.item, point) || !isTakenBy(other.item, point))
                continue;
            *faults << QStringLiteral("%1 and %2 both take touches at %3,%4")
                           .arg(say(place.item), say(other.item))
                           .arg(point.x())
                           .arg(point.y());
            return;
        }
    }
}

void TouchCheck::press(QQuickItem *item, const QPoint &point, bool byTouch, QStringList *faults) const
{
    QQuickWindow *window = m_fixture.window();
    const QPoint away(window->width() + 500, point.y());
    const bool isField = item->inherits("QQuickTextInput");
    const auto isPressed = [item, isField] {
        return isField ? item->hasActiveFocus() : item->property("pressed").toBool();
    };
    if (byTouch)
        QTest::touchEvent(window, Operator::touchScreen()).press(0, point, window);
    else
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, point);
    if (!isPressed())
        *faults << QStringLiteral("%1 is not pressed by a %2 at %3,%4")
                       .arg(say(item), QLatin1String(byTouch ? "touch" : "click"))
                       .arg(point.x())
                       .arg(point.y());
    // Taken back, or the page would be another one.
    if (byTouch) {
        QTest::touchEvent(window, Operator::touchScreen()).move(0, away, window);
        QTest::touchEvent(window, Operator::touchScreen()).release(0, away, window);
    } else {
        QMouseEvent move(QEvent::MouseMove, away, window->mapToGlobal(away), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(window, &move);
        QMouseEvent release(QEvent::MouseButtonRelease, away, window->mapToGlobal(away), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &release);
    }
    if (isField && item->hasActiveFocus())
        Operator::key(window, hideKey);
    QCoreApplication::processEvents();
}

void TouchCheck::checkPresses(const Place &place, QStringList *faults) const
{
    const auto liesOnIt = [&place](const QQuickItem *item) {
        return item != place.item && item->isVisible() && item->isEnabled() && isPressable(item);
    };
    if (!Operator::items(place.item, liesOnIt).isEmpty())
        return;
    Place now = place;
    const qreal scrolled = m_pool->property("contentY").toReal();
    for (const Side side : {Left, Top, Right, Bottom}) {
        // The keyboard goes meanwhile, and what it had moved is back in its place.
        const QRectF drawn = visiblePart(place.item);
        if (drawn.isEmpty())
            return;
        if (drawn != now.drawn)
            now = {place.item, drawn, measure(place.item, drawn)};
        const QPoint point = edgeOf(now.drawn, now.area, side);
        // A press on what is drawn is a matter of other tests.
        if (!isCovered(point) && !placeOf(place.item).contains(point))
            press(place.item, point, side == Top || side == Right, faults);
        m_pool->setProperty("contentY", scrolled);
    }
}

QStringList TouchCheck::faults() const
{
    QStringList found;
    const QVector<Place> all = places();
    const QVector<Place> inSight = placesInSight();
    for (int i = 0; i < inSight.size(); ++i) {
        checkSize(inSight[i], all, &found);
        for (int j = i + 1; j < inSight.size(); ++j)
            checkOverlap(inSight[i], inSight[j], &found);
    }
    // Last, because the keyboard comes and goes with it.
    for (const Place &place : inSight)
        checkPresses(place, &found);
    return found;
}
