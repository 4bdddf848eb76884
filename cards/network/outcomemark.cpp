#include "cards/network/outcomemark.h"

#include "cards/network/statustext.h"

#include <QtCore/QUrl>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickrectangle_p.h>

namespace QSP {

namespace {

// The stroke and the span of the tick in its icon.
constexpr double strokeWidth = 0.1;
constexpr double strokeLength = 0.52;

void addStroke(QQuickItem *disc, qreal angle)
{
    auto *stroke = new QQuickRectangle(disc);
    stroke->setColor(Qt::white);
    stroke->setAntialiasing(true);
    stroke->setSize(QSizeF(strokeLength * disc->width(), strokeWidth * disc->width()));
    stroke->setRadius(stroke->height() / 2.0);
    stroke->setX((disc->width() - stroke->width()) / 2.0);
    stroke->setY((disc->height() - stroke->height()) / 2.0);
    stroke->setRotation(angle);
}

} // namespace

OutcomeMark::OutcomeMark(int side, QQuickItem *parent)
    : QQuickItem(parent), m_tick(new QQuickImage(this)), m_cross(new QQuickRectangle(this))
{
    setSize(QSizeF(side, side));
    m_tick->setSourceSize({side, side});
    m_tick->setSource(QUrl(QStringLiteral("qrc:/setting/icons/tickGreen.png")));
    m_tick->setSize(size());
    m_cross->setSize(size());
    m_cross->setRadius(side / 2.0);
    m_cross->setColor(QColor::fromRgba(StatusText::error));
    addStroke(m_cross, 45.0);
    addStroke(m_cross, -45.0);
}

void OutcomeMark::setSuccess(bool success)
{
    m_tick->setVisible(success);
    m_cross->setVisible(!success);
}

} // namespace QSP
