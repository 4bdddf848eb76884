#include "controls/keypressfilter.h"

#include "shell/base/vkbmanager.h"

#include <QtGui/QKeyEvent>

namespace QSP {

KeyPressFilter::KeyPressFilter(QQuickItem *target, QObject *parent) : QObject(parent), m_target(target) {}

bool KeyPressFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case VkbManager::hideKey:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_target)
            m_target->setFocus(false);
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace QSP
