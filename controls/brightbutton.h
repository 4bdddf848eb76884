#pragma once

#include "controls/beepbutton.h"

namespace QSP {

/// The step button of the brightness card: beeps once more when a hold is recognised.
class BrightButton : public BeepButton
{
    Q_OBJECT

public:
    explicit BrightButton(QQuickItem *parent = nullptr);

    /// Offers the type to the documents; once a process, however often it is called.
    static void registerType();
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::BrightButton)
