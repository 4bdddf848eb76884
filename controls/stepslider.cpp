#include "controls/stepslider.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

namespace QSP {

StepSlider::StepSlider(QQuickItem *parent) : QQuickSlider(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setSnapMode(SnapAlways);
}

void StepSlider::registerType()
{
    static const int _registered = qmlRegisterType<StepSlider>("QQuickSystemSet.Toolkit", 1, 0, "StepSlider");
    Q_UNUSED(_registered)
}

// A page that scrolls holds a touch back and hands it on as a press of the mouse; moves that came as
// touches would then belong to no press. So the whole touch is taken as one of the mouse.
void StepSlider::touchEvent(QTouchEvent *event)
{
    event->ignore();
}

// Past the slider's own handler, which moves the handle at once and keeps the page from scrolling.
void StepSlider::mousePressEvent(QMouseEvent *event)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QQuickControl::mousePressEvent(event); // clazy:exclude=skipped-base-method
    setKeepMouseGrab(false);
    m_pressedAt = event->localPos().x();
    m_hold = 0.0;
    if (!handle())
        return;
    const qreal half = handle()->width() / 2.0;
    const qreal middle = leftPadding() + half + visualPosition() * (availableWidth() - handle()->width());
    if (qAbs(m_pressedAt - middle) <= half)
        m_hold = m_pressedAt - middle;
}

void StepSlider::mouseMoveEvent(QMouseEvent *event)
{
    const qreal slid = qAbs(event->localPos().x() - m_pressedAt);
    // A finger that has begun to slide is not a scroll any more.
    if (slid >= QGuiApplication::styleHints()->startDragDistance())
        setKeepMouseGrab(true);
    if (!keepMouseGrab())
        return;
    moveToHold(event);
    QQuickSlider::mouseMoveEvent(event);
}

void StepSlider::mouseReleaseEvent(QMouseEvent *event)
{
    moveToHold(event);
    QQuickSlider::mouseReleaseEvent(event);
}

void StepSlider::moveToHold(QMouseEvent *event) const
{
    event->setLocalPos(event->localPos() - QPointF(m_hold, 0.0));
}

} // namespace QSP
