#include "cards/general/cardbrightness.h"

#include "controls/beepbutton.h"
#include "controls/titlerow.h"
#include "controls/touchmask.h"
#include "shell/base/documentalias.h"
#include "shell/base/documenttext.h"
#include "shell/base/logging.h"
#include "shell/base/service.h"

#include <QtCore/QCoreApplication>

namespace QSP {

using HMI::SystemSet;

CardBrightness::CardBrightness(QQuickItem *parent)
    : BaseCard(parent)
    , m_titleRowHeight(titleRowHeight())
    , m_brightnessValue(callService<&SystemSet::bright>())
{}

CardBrightness::~CardBrightness()
{
    // The document is dead by now: nothing of it can tell any more that the finger has lost its control.
    if (m_held)
        saveBrightness();
}

void CardBrightness::componentComplete()
{
    BaseCard::componentComplete();
    setDocumentText(this, "titleText",
                    [] { return QCoreApplication::translate("CardBrightness", "Brightness"); });
    TouchMask::cover(aliasOf<QQuickItem>(this, "sliderTouchItem"));
}

void CardBrightness::setBrightnessValue(int value)
{
    const int level = qBound<int>(SystemSet::BRIGHT_MIN, value, SystemSet::BRIGHT_MAX);
    if (level == m_brightnessValue)
        return;
    m_brightnessValue = level;
    emit brightnessValueChanged();
    callService<&SystemSet::setBright>(static_cast<SystemSet::Bright>(level), false);
}

void CardBrightness::saveBrightness()
{
    // A level that was told from beyond the ends is never written back, let alone stored.
    setBrightnessValue(m_brightnessValue);
    qCDebug(logDevice, "brightness: %d to be stored", m_brightnessValue);
    callService<&SystemSet::setBright>(static_cast<SystemSet::Bright>(m_brightnessValue), true);
}

void CardBrightness::setHeld(bool held)
{
    if (held == m_held)
        return;
    m_held = held;
    emit heldChanged();
    if (!held)
        saveBrightness();
}

void CardBrightness::beepIfOn()
{
    BeepButton::beepIfOn();
}

} // namespace QSP
