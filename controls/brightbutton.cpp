#include "controls/brightbutton.h"

#include "shell/base/qmltype.h"

namespace QSP {

BrightButton::BrightButton(QQuickItem *parent) : BeepButton(parent)
{
    connect(this, &QQuickAbstractButton::pressAndHold, &BeepButton::beepIfOn);
}

void BrightButton::registerType()
{
    registerQmlType<BrightButton>();
}

} // namespace QSP
