#include "conformance/keyboard/recordingfield.h"

#include <QtGui/QKeyEvent>

namespace Conformance {

RecordingField::RecordingField(QQuickItem *parent) : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::AllButtons);
    setAcceptTouchEvents(true);
    setFlag(ItemAcceptsInputMethod);
}

void RecordingField::forget()
{
    m_strokes.clear();
    m_touches = 0;
}

void RecordingField::keyPressEvent(QKeyEvent *event)
{
    keep(event);
    if (m_work)
        m_work();
}

void RecordingField::keyReleaseEvent(QKeyEvent *event)
{
    keep(event);
}

void RecordingField::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    ++m_touches;
}

void RecordingField::touchEvent(QTouchEvent *event)
{
    event->accept();
    if (event->type() == QEvent::TouchBegin)
        ++m_touches;
}

void RecordingField::keep(QKeyEvent *event)
{
    event->accept();
    m_strokes.append({event->type(), event->key(), event->text(), event->isAutoRepeat()});
}

} // namespace Conformance
