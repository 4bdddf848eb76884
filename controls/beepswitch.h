#pragma once

#include "controls/beepbutton.h"

class QQuickRectangle;

namespace QSP {

/// An on/off switch: a pill that is blue while on, with a white knob at the side it is on.
///
/// A click turns it over; whoever binds `on` decides what that means. The knob
/// follows the height of the switch, and moves on a change of height or state.
class BeepSwitch : public BeepButton
{
    Q_OBJECT
    Q_PROPERTY(bool on READ on WRITE setOn NOTIFY onChanged)

public:
    explicit BeepSwitch(QQuickItem *parent = nullptr);

    /// Offers the type to the documents; once a process, however often it is called.
    static void registerType();

    bool on() const { return m_on; }
    void setOn(bool on);

public slots:
    /// Enables or disables the switch and shows which it is: disabled, it is drawn at half opacity.
    void onChangeEnabled(bool bEnabled);
    void onOnChanged();
    void onClickEvent();

signals:
    void onChanged(bool nowOn);

protected:
    void componentComplete() override;

private:
    void resizeFront();
    void updateFrontRect();

    bool m_on = false;
    QQuickRectangle *m_background;
    QQuickRectangle *m_front;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::BeepSwitch)
