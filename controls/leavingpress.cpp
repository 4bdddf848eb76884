#include "controls/leavingpress.h"

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace QSP {

void endPressOf(QQuickItem *item)
{
    if (item->window() && item->window()->mouseGrabberItem() == item)
        item->ungrabMouse();
    item->ungrabTouchPoints();
}

} // namespace QSP
