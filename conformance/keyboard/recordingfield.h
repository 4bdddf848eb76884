#pragma once

#include "conformance/keyboard/keystroke.h"

#include <QtCore/QVector>
#include <QtQuick/QQuickItem>

#include <functional>

namespace Conformance {

/// Stands for a field of the screen: has the focus, and keeps the key events that reach it, and the presses.
class RecordingField : public QQuickItem
{
public:
    explicit RecordingField(QQuickItem *parent);

    const QVector<KeyStroke> &strokes() const { return m_strokes; }
    /// Touches and clicks that came down to it.
    int touches() const { return m_touches; }
    void forget();
    /// Called from within each key press, as a field of the screen ends its entry.
    void whenPressed(std::function<void()> work) { m_work = std::move(work); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void touchEvent(QTouchEvent *event) override;

private:
    void keep(QKeyEvent *event);

    QVector<KeyStroke> m_strokes;
    int m_touches = 0;
    std::function<void()> m_work;
};

} // namespace Conformance
