#include "cards/wifi/fingerwatch.h"

#include <QtGui/QMouseEvent>

namespace QSP {

FingerWatch::FingerWatch(QObject *parent) : QObject(parent) {}

void FingerWatch::setWindow(QQuickWindow *window)
{
    if (window == m_window)
        return;
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
    forget();
}

void FingerWatch::forget()
{
    if (!m_down)
        return;
    m_down = false;
    m_isMouse = false;
    QMetaObject::invokeMethod(this, &FingerWatch::lifted, Qt::QueuedConnection);
}

bool FingerWatch::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_down = true;
        m_isMouse = true;
        break;
    case QEvent::TouchBegin:
        m_down = true;
        break;
    case QEvent::MouseMove:
        // The button was released where somebody else had the mouse.
        if (m_isMouse && static_cast<QMouseEvent *>(event)->buttons() == Qt::NoButton)
            forget();
        break;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->buttons() == Qt::NoButton)
            forget();
        break;
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::UngrabMouse:
    case QEvent::WindowBlocked:
    case QEvent::Hide:
        forget();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace QSP
