#include "keyicon.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace StandIn {

namespace {

// All signs are drawn on a grid of 24 x 24 with one stroke.
constexpr qreal Grid = 24.0;
constexpr qreal Stroke = 1.8;

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF &point : points)
        path.lineTo(point); // the first line has no length and is left out
    return path;
}

QPainterPath backspace()
{
    QPainterPath path = polyline({{8, 5.5}, {20.5, 5.5}, {20.5, 18.5}, {8, 18.5}, {2.5, 12}});
    path.closeSubpath();
    path.addPath(polyline({{11.3, 9.3}, {16.7, 14.7}}));
    path.addPath(polyline({{16.7, 9.3}, {11.3, 14.7}}));
    return path;
}

QPainterPath enter()
{
    QPainterPath path = polyline({{19.5, 6}, {19.5, 13.5}, {5, 13.5}});
    path.addPath(polyline({{9.5, 9}, {5, 13.5}, {9.5, 18}}));
    return path;
}

QPainterPath hide()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(2.5, 3.5, 19, 11.5), 2, 2);
    for (const qreal x : {6.5, 10.2, 13.8, 17.5})
        path.addPath(polyline({{x, 7.4}, {x + 0.01, 7.4}}));
    path.addPath(polyline({{8, 11.2}, {16, 11.2}}));
    path.addPath(polyline({{9, 18}, {12, 21}, {15, 18}}));
    return path;
}

QPainterPath shift(bool locked)
{
    const qreal foot = locked ? 15.5 : 19;
    QPainterPath path =
        polyline({{12, 3.5}, {20, 12}, {15.8, 12}, {15.8, foot}, {8.2, foot}, {8.2, 12}, {4, 12}});
    path.closeSubpath();
    if (locked)
        path.addPath(polyline({{8.2, 19.5}, {15.8, 19.5}}));
    return path;
}

QPainterPath space()
{
    return polyline({{2, 11}, {2, 15}, {22, 15}, {22, 11}});
}

QPainterPath pathOf(KeyIcon::Sign sign)
{
    switch (sign) {
    case KeyIcon::Sign::None:
        break;
    case KeyIcon::Sign::Backspace:
        return backspace();
    case KeyIcon::Sign::Enter:
        return enter();
    case KeyIcon::Sign::Hide:
        return hide();
    case KeyIcon::Sign::Shift:
        return shift(false);
    case KeyIcon::Sign::ShiftLocked:
        return shift(true);
    case KeyIcon::Sign::Space:
        return space();
    }
    return QPainterPath();
}

} // namespace

KeyIcon::KeyIcon(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void KeyIcon::setSign(Sign sign)
{
    if (m_sign == sign)
        return;
    m_sign = sign;
    update();
}

void KeyIcon::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    update();
}

void KeyIcon::paint(QPainter *painter)
{
    painter->scale(width() / Grid, height() / Grid);
    painter->setPen(QPen(m_color, Stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(pathOf(m_sign));
}

} // namespace StandIn
