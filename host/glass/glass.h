#pragma once

#include <QtCore/QPoint>
#include <QtGui/QImage>
#include <QtQuick/QQuickWindow>

/// The panel's glass without a display: what is on it, and fingers and keys that come from elsewhere.
///
/// What is sent here takes the way that a real device's events take.
namespace Glass {

/// Waits for a frame that shows everything done to the scene so far. False when none comes.
bool awaitFrame(QQuickWindow *window);

/// What the window shows: what was painted last.
QImage picture(QQuickWindow *window);

/// The pointer is at @p position with @p buttons down; @p changed is the one that made the difference, if any.
void pointer(QQuickWindow *window, const QPoint &position, Qt::MouseButtons buttons,
             Qt::MouseButton changed = Qt::NoButton);

/// A key went down or up. @p text is what it types, empty for a key that types nothing.
void key(QQuickWindow *window, bool down, int key, Qt::KeyboardModifiers modifiers, const QString &text);

} // namespace Glass
