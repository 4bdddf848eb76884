#pragma once

#include <QtQuick/QQuickItem>

class QQuickImage;
class QQuickRectangle;

namespace QSP {

/// A green tick or a red cross, so that an outcome is seen from further away than it can be read.
class OutcomeMark : public QQuickItem
{
    Q_OBJECT

public:
    OutcomeMark(int side, QQuickItem *parent);

    void setSuccess(bool success);

private:
    QQuickImage *m_tick;
    QQuickRectangle *m_cross;
};

} // namespace QSP
