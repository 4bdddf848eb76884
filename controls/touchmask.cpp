#include "controls/touchmask.h"

#include <QtQuick/QQuickItem>

namespace QSP {

void TouchMask::cover(QQuickItem *control, const QSizeF &wanted)
{
    if (control)
        control->setContainmentMask(new TouchMask(control, wanted));
}

TouchMask::TouchMask(QQuickItem *control, const QSizeF &wanted) : QObject(control), m_area(control, wanted) {}

} // namespace QSP
