#include "host/glass/glass.h"

#include <qpa/qwindowsysteminterface.h>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QScreen>

namespace Glass {

namespace {

constexpr int longestFrame = 10000;

} // namespace

bool awaitFrame(QQuickWindow *window)
{
    QEventLoop loop;
    QObject::connect(window, &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); });
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, &loop, [&loop] { loop.exit(1); });
    limit.start(longestFrame);
    window->update();
    return loop.exec() == 0;
}

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
