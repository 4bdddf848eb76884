#include "host/gauge.h"

#include <QtGui/QPainter>

namespace {

// QPainter counts sixteenths of a degree, anticlockwise from three o'clock.
constexpr int degree = 16;
constexpr int begin = 225 * degree;
constexpr int span = -270 * degree;

} // namespace

Gauge::Gauge(QQuickItem *parent) : QQuickPaintedItem(parent) {}

void Gauge::setFraction(qreal fraction)
{
    fraction = qBound<qreal>(0, fraction, 1);
    if (qFuzzyCompare(fraction + 1, m_fraction + 1))
        return;
    m_fraction = fraction;
    update();
    emit fractionChanged();
}

void Gauge::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
    emit colorChanged();
}

void Gauge::paint(QPainter *painter)
{
    const qreal side = qMin(width(), height());
    const qreal stroke = side / 11;
    const QRectF circle((width() - side + stroke) / 2, (height() - side + stroke) / 2, side - stroke,
                        side - stroke);

    painter->setRenderHint(QPainter::Antialiasing);
    QPen pen(QColor(0x3a, 0x44, 0x50), stroke, Qt::SolidLine, Qt::RoundCap);
    painter->setPen(pen);
    painter->drawArc(circle, begin, span);
    if (m_fraction <= 0)
        return;
    pen.setColor(m_color);
    painter->setPen(pen);
    painter->drawArc(circle, begin, qRound(span * m_fraction));
}
