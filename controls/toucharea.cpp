#include "controls/toucharea.h"

#include "shell/base/screenroot.h"

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtQuickTemplates2/private/qquickoverlay_p.h>

namespace QSP {

namespace {

QRectF rectOf(const QQuickItem *item)
{
    return {0.0, 0.0, item->width(), item->height()};
}

QRectF grown(const QRectF &rect, const QSizeF &by)
{
    return rect.adjusted(-by.width(), -by.height(), by.width(), by.height());
}

qreal squaredDistance(const QRectF &rect, const QPointF &point)
{
    const qreal x = point.x() - qBound(rect.left(), point.x(), rect.right());
    const qreal y = point.y() - qBound(rect.top(), point.y(), rect.bottom());
    return x * x + y * y;
}

bool isNested(const QQuickItem *one, const QQuickItem *other)
{
    return one->isAncestorOf(other) || other->isAncestorOf(one);
}

// What can be seen of an item, and on which layer: its popup, or all that is no popup.
struct Sight {
    QRectF rect;
    const QQuickItem *layer;
};

// What the ancestors of the item leave of a rectangle, all in coordinates of the viewer.
Sight seenBy(const QQuickItem *viewer, const QQuickItem *item, const QRectF &rect)
{
    Sight sight{rect, item};
    const QQuickItem *ancestor = item->parentItem();
    while (ancestor && !qobject_cast<const QQuickOverlay *>(ancestor)) {
        if (ancestor->clip())
            sight.rect &= ancestor->mapRectToItem(viewer, ancestor->clipRect());
        sight.layer = ancestor;
        ancestor = ancestor->parentItem();
    }
    return sight;
}

// As much of the screen as the control could be seen on.
Sight screenAround(const QQuickItem *control)
{
    const QQuickWindow *window = control->window();
    if (!window)
        return {{}, nullptr};
    const QQuickItem *root = ScreenRoot::item();
    const QQuickItem *screen = root && root->window() == window ? root : window->contentItem();
    return seenBy(control, control, screen->mapRectToItem(control, rectOf(screen)));
}

// How far an area can grow along one axis, before its control and behind it.
struct Room {
    qreal before;
    qreal behind;

    void endBeside(qreal begin, qreal end, qreal otherBegin, qreal otherEnd, qreal share)
    {
        if (otherEnd <= begin)
            before = qMin(before, share * (begin - otherEnd));
        else if (otherBegin >= end)
            behind = qMin(behind, share * (otherBegin - end));
    }

    // Evenly, or more where the other side has too little.
    Room taken(qreal missing) const
    {
        const qreal first = qBound(0.0, qMax(missing / 2.0, missing - behind), qMax(0.0, before));
        return {first, qBound(0.0, missing - first, qMax(0.0, behind))};
    }
};

// The room around a control along the two lines that cross in a point.
class RoomAtPoint
{
public:
    RoomAtPoint(const QRectF &own, const QRectF &limits, const QPointF &point)
        : m_own(own)
        , m_point(point)
        , m_sideways{own.left() - limits.left(), limits.right() - own.right()}
        , m_upright{own.top() - limits.top(), limits.bottom() - own.bottom()}
    {}

    void endBeside(const QRectF &other, qreal share)
    {
        if (other.top() <= m_point.y() && m_point.y() <= other.bottom())
            m_sideways.endBeside(m_own.left(), m_own.right(), other.left(), other.right(), share);
        if (other.left() <= m_point.x() && m_point.x() <= other.right())
            m_upright.endBeside(m_own.top(), m_own.bottom(), other.top(), other.bottom(), share);
    }

    bool reachesPoint(const QSizeF &missing) const
    {
        const Room width = m_sideways.taken(missing.width());
        const Room height = m_upright.taken(missing.height());
        return m_own.adjusted(-width.before, -height.before, width.behind, height.behind).contains(m_point);
    }

private:
    QRectF m_own;
    QPointF m_point;
    Room m_sideways;
    Room m_upright;
};

} // namespace

TouchArea *TouchArea::s_newest = nullptr;

TouchArea::TouchArea(const QQuickItem *control, const QSizeF &wanted)
    : m_control(control), m_wanted(wanted), m_older(s_newest)
{
    if (m_older)
        m_older->m_newer = this;
    s_newest = this;
}

TouchArea::~TouchArea()
{
    (m_newer ? m_newer->m_older : s_newest) = m_older;
    if (m_older)
        m_older->m_newer = m_newer;
}

QSizeF TouchArea::missing() const
{
    return {qMax(0.0, m_wanted.width() - m_control->width()),
            qMax(0.0, m_wanted.height() - m_control->height())};
}

bool TouchArea::contains(const QPointF &point) const
{
    const QRectF own = rectOf(m_control);
    if (own.contains(point) || own.isEmpty())
        return own.contains(point);
    const QSizeF missing = this->missing();
    if (!grown(own, missing).contains(point))
        return false;
    // What is scrolled out of sight is not touched by what is left of its surroundings.
    const Sight screen = screenAround(m_control);
    return screen.rect.contains(point) && screen.rect.intersects(own) &&
           isLeftByOthers(point, missing, screen.rect, screen.layer);
}

bool TouchArea::isLeftByOthers(const QPointF &point, const QSizeF &missing, const QRectF &screen,
                               const QQuickItem *layer) const
{
    const QRectF own = rectOf(m_control);
    const qreal distance = squaredDistance(own, point);
    RoomAtPoint room(own, screen, point);
    // What lies farther off is nearer to no point of the area, and leaves it half the way.
    const qreal farthest = 3.0 * qMax(missing.width(), missing.height());
    const QRectF surroundings = grown(own, {farthest, farthest});

    bool isNewer = true;
    for (const TouchArea *area = s_newest; area; area = area->m_older) {
        const QQuickItem *other = area->m_control;
        if (area == this)
            isNewer = false;
        if (area == this || !other->isVisible())
            continue;
        const QRectF whole = other->mapRectToItem(m_control, rectOf(other));
        if (!whole.intersects(surroundings))
            continue;
        const Sight sight = seenBy(m_control, other, whole);
        if (sight.layer != layer || sight.rect.isEmpty() || isNested(m_control, other))
            continue;

        if (sight.rect.contains(point))
            return false;
        const bool isEnabled = other->isEnabled();
        const qreal otherDistance = squaredDistance(sight.rect, point);
        const bool isNearer = otherDistance < distance || (otherDistance == distance && isNewer);
        if (isEnabled && isNearer && grown(whole, area->missing()).contains(point))
            return false;
        room.endBeside(sight.rect, isEnabled ? 0.5 : 1.0);
    }
    return room.reachesPoint(missing);
}

} // namespace QSP
