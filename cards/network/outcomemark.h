#pragma once

#include <QtQuick/QQuickItem>

class QQuickRectangle;

namespace QSP {

/// A tick on a green disc or a cross on a red one, so that an outcome is seen from further away than it can be read.
class OutcomeMark : public QQuickItem
{
    Q_OBJECT

public:
    OutcomeMark(int side, QQuickItem *parent);

    void setSuccess(bool success);

private:
    QQuickRectangle *m_tick;
    QQuickRectangle *m_cross;
};

} // namespace QSP
