#include "controls/brightbutton.h"

namespace QSP {

BrightButton::BrightButton(QQuickItem *parent) : BeepButton(parent)
{
    connect(this, &QQuickAbstractButton::pressAndHold, &BeepButton::beepIfOn);
}

void BrightButton::registerType()
{
    static const int _registered = qmlRegisterType<BrightButton>("QQuickSystemSet", 1, 0, "BrightButton");
    Q_UNUSED(_registered)
}

} // namespace QSP
