#pragma once

#include <QtQuickTemplates2/private/qquickslider_p.h>

namespace QSP {

/// The toolkit's slider as a finger in a glove needs it, on a page that may scroll.
///
/// The handle does not jump under a finger that takes hold of it off its middle. A press on the
/// groove moves the handle when the finger is lifted or slides sideways; until then the page may
/// still take the press for a scroll. Takes no focus.
class StepSlider : public QQuickSlider
{
    Q_OBJECT

public:
    explicit StepSlider(QQuickItem *parent = nullptr);
    static void registerType();

protected:
    void touchEvent(QTouchEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void moveToHold(QMouseEvent *event) const;

    qreal m_pressedAt = 0.0;
    /// From the middle of the handle to where the finger took hold of it.
    qreal m_hold = 0.0;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::StepSlider)
