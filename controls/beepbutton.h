#pragma once

#include "controls/toucharea.h"

#include <QtQuickTemplates2/private/qquickabstractbutton_p.h>

namespace QSP {

/// The base of everything that can be tapped: a click beeps, if the panel's keys
/// beep, ends the edit of a field and puts the on-screen keyboard away.
///
/// Never takes the focus: until the click the field that is edited keeps it.
class BeepButton : public QQuickAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(qreal pressFade READ pressFade NOTIFY pressedChanged)

public:
    /// How opaque is what is pressed.
    static constexpr qreal pressedOpacity = 0.6;

    explicit BeepButton(QQuickItem *parent = nullptr);

    /// Whether a click ends an edit and hides the keyboard; true at first.
    void setAutoCloseVkb(bool autoClose) { m_autoCloseVkb = autoClose; }

    /// The opacity of what shows that the button is pressed; 1.0 while it is not.
    qreal pressFade() const { return isPressed() ? pressedOpacity : 1.0; }
    /// Gives that opacity to @p look, which may be the button itself.
    void fadeWhilePressed(QQuickItem *look);

    /// Asks the service, and remembers the answer for setBuzzerOn().
    static bool isBuzzerOn();
    /// Writes the buzzer setting, unless it is what was last read or written.
    /// The write runs on a worker thread and has ended when this returns.
    static void setBuzzerOn(bool on);
    /// One key beep, if the service says that keys beep.
    static void beepIfOn();

    bool contains(const QPointF &point) const override { return m_touchArea.contains(point); }

public slots:
    void onClickEvent();

protected:
    /// Two quick taps are two taps, and each is one, however the second press is delivered.
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void releaseResources() override;

private:
    TouchArea m_touchArea{this};
    bool m_autoCloseVkb = true;
    static bool _isBuzzerOn;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::BeepButton)
