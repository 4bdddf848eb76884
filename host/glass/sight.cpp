#include "host/glass/sight.h"

#include <QtQuick/QQuickWindow>

#include <algorithm>

namespace Sight {

namespace {

bool isCut(const QQuickItem *by, const QPointF &scenePoint)
{
    return by->clip() && !by->clipRect().contains(by->mapFromScene(scenePoint));
}

// The first to be offered a touch comes first.
QList<QQuickItem *> fromTheTop(const QQuickItem *parent)
{
    QList<QQuickItem *> children = parent->childItems();
    std::reverse(children.begin(), children.end());
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem *one, const QQuickItem *other) { return one->z() > other->z(); });
    return children;
}

bool takesTouch(const QQuickItem *item, const QPointF &scenePoint)
{
    // All popups of a window lie in it; it lets through what none of them keeps.
    if (item->inherits("QQuickOverlay"))
        return false;
    return item->acceptedMouseButtons().testFlag(Qt::LeftButton) &&
           item->contains(item->mapFromScene(scenePoint));
}

// The way of a touch from the top of the scene down to an item.
class Descent
{
public:
    explicit Descent(const QQuickItem *goal) : m_goal(goal), m_point(centerOf(goal)) {}

    // Whether the way ends at @p item or below it.
    bool endsIn(QQuickItem *item)
    {
        if (item == m_goal)
            return true;
        if (!item->isVisible() || isCut(item, m_point))
            return false;
        if (!item->isEnabled())
            return item->isAncestorOf(m_goal);
        const QList<QQuickItem *> children = fromTheTop(item);
        if (std::any_of(children.begin(), children.end(),
                        [this](QQuickItem *child) { return endsIn(child); }))
            return true;
        if (takesTouch(item, m_point))
            m_cover = item;
        return m_cover != nullptr;
    }

    QQuickItem *cover() const { return m_cover; }

private:
    const QQuickItem *m_goal;
    QPointF m_point;
    QQuickItem *m_cover = nullptr;
};

} // namespace

QVector<QQuickItem *> all(QQuickItem *root, const Wanted &wanted)
{
    QVector<QQuickItem *> found;
    if (!root)
        return found;
    if (wanted(root))
        found << root;
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        found << all(child, wanted);
    return found;
}

QVector<QQuickItem *> visible(QQuickItem *root, const Wanted &wanted)
{
    QVector<QQuickItem *> found;
    // Nothing in a hidden item is visible.
    if (!root || !root->isVisible())
        return found;
    if (wanted(root))
        found << root;
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        found << visible(child, wanted);
    return found;
}

QVector<QQuickItem *> visibleByClass(QQuickItem *root, const char *className)
{
    return visible(root, [className](const QQuickItem *item) { return item->inherits(className); });
}

QVector<QQuickItem *> visibleByText(QQuickItem *root, const QString &text)
{
    return visible(root, [&text](const QQuickItem *item) {
        return isText(item) && item->property("text").toString() == text;
    });
}

QQuickItem *byClass(QQuickItem *root, const char *className)
{
    return visibleByClass(root, className).value(0);
}

QQuickItem *byText(QQuickItem *root, const QString &text)
{
    return visibleByText(root, text).value(0);
}

QQuickItem *byName(QQuickItem *root, const QString &objectName)
{
    const auto hasName = [&objectName](const QQuickItem *item) { return item->objectName() == objectName; };
    return visible(root, hasName).value(0);
}

QQuickItem *ancestorOf(QQuickItem *item, const char *className)
{
    while (item && !item->inherits(className))
        item = item->parentItem();
    return item;
}

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") || item->inherits("QQuickTextInput");
}

QPoint centerOf(const QQuickItem *item)
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

QRectF placeOf(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

bool isOnGlass(const QQuickItem *item)
{
    if (!item || !item->isVisible() || !item->window())
        return false;
    const QPoint center = centerOf(item);
    for (const QQuickItem *around = item->parentItem(); around; around = around->parentItem()) {
        if (isCut(around, center))
            return false;
    }
    return QRect(QPoint(), item->window()->size()).contains(center);
}

QQuickItem *coverOf(const QQuickItem *item)
{
    if (!isOnGlass(item))
        return nullptr;
    Descent descent(item);
    descent.endsIn(item->window()->contentItem());
    return descent.cover();
}

} // namespace Sight
