#pragma once

#include <QtCore/QPointF>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QTouchDevice>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <functional>

/// What an operator does and sees: taps, touches, drags, keys, and the texts on the glass.
namespace Operator {

/// Centre of an item in window coordinates.
QPoint centerOf(const QQuickItem *item);

/// A press and release of the left mouse button in the middle of the item.
/// Fails the test when the item is not visible or another item covers the point.
void tap(QQuickItem *item);
void tap(QQuickWindow *window, const QPoint &point);
/// The glass that fingers press: one for a test program, as on a panel.
QTouchDevice *touchScreen();
/// The same with a finger.
void touch(QQuickItem *item);
/// The parts of a drag with a finger, or with the mouse's left button, that is told by where it goes.
void pressAt(QQuickWindow *window, const QPoint &point, bool byTouch);
void slideTo(QQuickWindow *window, const QPoint &point, bool byTouch);
void liftAt(QQuickWindow *window, const QPoint &point, bool byTouch);
/// A press alone, which fails as a tap does.
void press(QQuickItem *item);
/// The end of a press. The item may have gone out of sight meanwhile.
void release(QQuickItem *item);
void drag(QQuickWindow *window, const QPoint &from, const QPoint &to, int steps = 10);
/// Types printable text as key presses and releases into the window's focus item.
void type(QQuickWindow *window, const QString &text);
void key(QQuickWindow *window, int key);

/// All items below @p root (itself included) that satisfy @p wanted, depth first.
QVector<QQuickItem *> items(QQuickItem *root, const std::function<bool(QQuickItem *)> &wanted);
/// The first visible item whose class name (C++ name without QML suffix) is @p className.
QQuickItem *byClass(QQuickItem *root, const char *className);
QVector<QQuickItem *> allByClass(QQuickItem *root, const char *className);
/// The first visible text item that shows exactly @p text, or null.
QQuickItem *byText(QQuickItem *root, const QString &text);
/// The first visible item of that object name, such as a key of the on-screen keyboard, or null.
QQuickItem *byName(QQuickItem *root, const QString &objectName);
/// The first visible image of that file name, or null.
QQuickItem *byIcon(QQuickItem *root, const QString &file);
/// All texts that can be seen below @p root.
QStringList visibleTexts(QQuickItem *root);
/// The nearest ancestor (or the item itself) whose class inherits @p className, for example a button of a text.
QQuickItem *ancestorOf(QQuickItem *item, const char *className);

/// Shows a window and waits until it is on the glass and takes the keys. Fails the test when it does not.
void show(QQuickWindow *window);
/// Waits for a frame that shows everything done to the scene so far. Fails the test when none comes.
void awaitFrame(QQuickWindow *window);
/// What is on the glass when everything done to the scene so far has been painted.
QImage picture(QQuickWindow *window);

/// Lets the event loop run for @p milliseconds, and then until what is to be painted has been painted,
/// however busy the machine is: places and sizes that follow from others are settled while painting. A
/// window that has nothing to paint is not made to paint.
void settle(int milliseconds = 50);

} // namespace Operator
