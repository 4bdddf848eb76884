#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace StandIn {

/// A drawn sign on a key. Drawn, because a panel's font need not have the glyphs.
class KeyIcon : public QQuickPaintedItem
{
    Q_OBJECT

public:
    enum class Sign { None, Backspace, Enter, Hide, Shift, ShiftLocked, Space };

    explicit KeyIcon(QQuickItem *parent);

    void setSign(Sign sign);
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

private:
    Sign m_sign = Sign::None;
    QColor m_color;
};

} // namespace StandIn
