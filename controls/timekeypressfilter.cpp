#include "controls/timekeypressfilter.h"

#include "controls/timeeditpopup.h"
#include "shell/base/vkbmanager.h"

#include <QtGui/QKeyEvent>
#include <QtQuick/private/qquicktextinput_p.h>

namespace QSP {

TimeKeyPressFilter::TimeKeyPressFilter(TimeEditPopup *popup) : m_popup(popup) {}

bool TimeKeyPressFilter::eventFilter(QObject *watched, QEvent *event)
{
    auto *input = event->type() == QEvent::KeyPress ? qobject_cast<QQuickTextInput *>(watched) : nullptr;
    if (!input)
        return QObject::eventFilter(watched, event);

    const int key = static_cast<QKeyEvent *>(event)->key();
    switch (key) {
    case VkbManager::hideKey:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        input->setFocus(false);
        VkbManager::instance().showVkb(false);
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            m_popup->onConfirmClicked();
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Clear:
        input->clear();
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace QSP
