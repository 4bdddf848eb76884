#include "controls/beepbutton.h"

#include "controls/leavingpress.h"
#include "shell/base/service.h"
#include "shell/base/vkbmanager.h"

#include <future>

namespace QSP {

bool BeepButton::_isBuzzerOn = false;

BeepButton::BeepButton(QQuickItem *parent) : QQuickAbstractButton(parent)
{
    // Neither by a press, which would end an edit and move things under the finger before there is a click,
    // nor by the tab key, for which a button that can only be pressed is no place to stop.
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QQuickAbstractButton::clicked, this, &BeepButton::onClickEvent);
}

void BeepButton::fadeWhilePressed(QQuickItem *look)
{
    connect(this, &QQuickAbstractButton::pressedChanged, look,
            [this, look] { look->setOpacity(pressFade()); });
}

bool BeepButton::isBuzzerOn()
{
    _isBuzzerOn = callService<&HMI::SystemSet::isBuzzerOn>();
    return _isBuzzerOn;
}

void BeepButton::setBuzzerOn(bool on)
{
    if (_isBuzzerOn == on)
        return;
    _isBuzzerOn = on;
    // The dropped future waits for the worker: the order of writes stays the order of taps. Not measured, since
    // this one may write to flash.
    static_cast<void>(std::async([on] { MeyerSingleton<HMI::SystemSet>::instance().setBuzzerOn(on); }));
}

void BeepButton::beepIfOn()
{
    if (isBuzzerOn())
        callService<&HMI::SystemSet::beep>(true);
}

void BeepButton::mouseDoubleClickEvent(QMouseEvent *event)
{
    // Windows tell the second press of two quick ones as a press and then, on top of it, as a double
    // click. Whoever forwards events by hand may leave out the former.
    if (!isPressed())
        mousePressEvent(event);
}

void BeepButton::releaseResources()
{
    endPressOf(this);
    QQuickAbstractButton::releaseResources();
}

void BeepButton::onClickEvent()
{
    beepIfOn();
    if (m_autoCloseVkb)
        VkbManager::instance().endEdit();
}

} // namespace QSP
