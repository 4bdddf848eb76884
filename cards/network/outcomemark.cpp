#include "cards/network/outcomemark.h"

#include "shell/base/palette.h"

#include <QtCore/QLineF>
#include <QtQuick/private/qquickrectangle_p.h>

namespace QSP {

namespace {

constexpr double strokeWidth = 0.1;

QQuickRectangle *addDisc(OutcomeMark *mark, const QColor &color)
{
    auto *disc = new QQuickRectangle(mark);
    disc->setSize(mark->size());
    disc->setRadius(mark->width() / 2.0);
    disc->setColor(color);
    return disc;
}

// From one point to another of a disc that is 1 wide, with round ends.
void addStroke(QQuickItem *disc, QLineF line)
{
    const qreal side = disc->width();
    auto *stroke = new QQuickRectangle(disc);
    stroke->setColor(Qt::white);
    stroke->setAntialiasing(true);
    stroke->setSize(QSizeF(line.length() + strokeWidth, strokeWidth) * side);
    stroke->setRadius(stroke->height() / 2.0);
    stroke->setX(line.center().x() * side - stroke->width() / 2.0);
    stroke->setY(line.center().y() * side - stroke->height() / 2.0);
    stroke->setRotation(-line.angle());
}

} // namespace

OutcomeMark::OutcomeMark(int side, QQuickItem *parent) : QQuickItem(parent)
{
    setSize(QSizeF(side, side));
    m_tick = addDisc(this, Palette::instance().success);
    addStroke(m_tick, {0.29, 0.53, 0.44, 0.67});
    addStroke(m_tick, {0.44, 0.67, 0.72, 0.36});
    m_cross = addDisc(this, Palette::instance().failure);
    addStroke(m_cross, {0.35, 0.35, 0.65, 0.65});
    addStroke(m_cross, {0.35, 0.65, 0.65, 0.35});
}

void OutcomeMark::setSuccess(bool success)
{
    m_tick->setVisible(success);
    m_cross->setVisible(!success);
}

} // namespace QSP
