#include "host/glass.h"

#include <qpa/qwindowsysteminterface.h>
#include <QtGui/QScreen>

namespace Glass {

QImage picture(QQuickWindow *window)
{
    return window->screen()->grabWindow(window->winId()).toImage();
}

void pointer(QQuickWindow *window, const QPoint &position, Qt::MouseButtons buttons, Qt::MouseButton changed)
{
    QEvent::Type type = QEvent::MouseMove;
    if (changed != Qt::NoButton)
        type = buttons.testFlag(changed) ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease;
    QWindowSystemInterface::handleMouseEvent(window, position, window->mapToGlobal(position), buttons,
                                             changed, type);
}

void key(QQuickWindow *window, bool down, int key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    QWindowSystemInterface::handleKeyEvent(window, down ? QEvent::KeyPress : QEvent::KeyRelease, key,
                                           modifiers, text);
}

} // namespace Glass
