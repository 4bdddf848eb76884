#include "host/framekey.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QTouchEvent>

FrameKey::FrameKey(QQuickWindow *window, QQuickItem *frame) : m_window(window), m_frame(frame)
{
    // Ahead of the window's own filters, by which a dialog keeps touches from what is beside it.
    QCoreApplication::instance()->installEventFilter(this);
}

bool FrameKey::isOnFrame(const QPointF &position) const
{
    return m_frame && m_frame->contains(m_frame->mapFromScene(position));
}

bool FrameKey::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(static_cast<QMouseEvent *>(event)->localPos());
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent *>(event)->localPos());
    case QEvent::TouchBegin:
        return press(static_cast<QTouchEvent *>(event)->touchPoints().constFirst().pos());
    case QEvent::TouchEnd:
        return release(static_cast<QTouchEvent *>(event)->touchPoints().constFirst().pos());
    case QEvent::TouchCancel:
        setDown(false);
        return false;
    case QEvent::MouseMove:
    case QEvent::TouchUpdate:
        return m_isDown;
    default:
        return false;
    }
}

void FrameKey::setDown(bool down)
{
    m_isDown = down;
    if (m_frame)
        m_frame->setProperty("down", down);
}

bool FrameKey::press(const QPointF &position)
{
    if (!isOnFrame(position))
        return false;
    setDown(true);
    return true;
}

bool FrameKey::release(const QPointF &position)
{
    if (!m_isDown)
        return false;
    setDown(false);
    if (isOnFrame(position))
        emit clicked();
    return true;
}
