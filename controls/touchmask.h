#pragma once

#include "controls/toucharea.h"

#include <QtCore/QObject>

namespace QSP {

/// The touch area of a control that is not ours, as its containment mask.
class TouchMask : public QObject
{
    Q_OBJECT

public:
    /// Gives @p control a touch area for the rest of its life. Nothing without a control.
    static void cover(QQuickItem *control, const QSizeF &wanted = TouchArea::finger);

    Q_INVOKABLE bool contains(const QPointF &point) const { return m_area.contains(point); }

private:
    TouchMask(QQuickItem *control, const QSizeF &wanted);

    TouchArea m_area;
};

} // namespace QSP
