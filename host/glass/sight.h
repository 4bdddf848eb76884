#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtQuick/QQuickItem>

#include <functional>

/// What can be seen on the glass: finds items by what they show, and says where they are.
///
/// Nothing here waits, and nothing fails: what is not there is null or an empty list, and so is what is
/// looked for below an item that is not there. Lists are depth first, an item before what is in it.
namespace Sight {

using Wanted = std::function<bool(QQuickItem *)>;

/// What is wanted of @p root and the items below it, hidden or not.
QVector<QQuickItem *> all(QQuickItem *root, const Wanted &wanted);
/// The same without what is hidden.
QVector<QQuickItem *> visible(QQuickItem *root, const Wanted &wanted);
/// The visible items whose class is @p className or inherits it. The name is that of C++.
QVector<QQuickItem *> visibleByClass(QQuickItem *root, const char *className);
/// The visible texts that read exactly @p text.
QVector<QQuickItem *> visibleByText(QQuickItem *root, const QString &text);

/// The first of visibleByClass(), or null.
QQuickItem *byClass(QQuickItem *root, const char *className);
/// The first of visibleByText(), or null.
QQuickItem *byText(QQuickItem *root, const QString &text);
/// The first visible item that goes by @p objectName, or null.
QQuickItem *byName(QQuickItem *root, const QString &objectName);
/// The item itself or the nearest one around it whose class is @p className or inherits it, or null.
QQuickItem *ancestorOf(QQuickItem *item, const char *className);

/// Whether the item is there to be read: a label, or a field in which one types.
bool isText(const QQuickItem *item);
/// The middle of an item, in coordinates of its window.
QPoint centerOf(const QQuickItem *item);
/// Where an item is, in coordinates of its window.
QRectF placeOf(const QQuickItem *item);
/// Whether the middle of an item is on the glass. What is visible may still be scrolled or clipped out of sight.
bool isOnGlass(const QQuickItem *item);
/// What takes a touch in the middle of an item that is on the glass, because it lies above the item; null when
/// nothing does. What is in the item, and what the item is in, covers nothing.
QQuickItem *coverOf(const QQuickItem *item);

} // namespace Sight
