#pragma once

#include "shell/globalinfo.h"

namespace QSP {

/// Height of a device card's title row in whole pixels; the card's other sizes are fractions of it.
inline int titleRowHeight()
{
    const GlobalInfo &info = GlobalInfo::instance();
    const int width = info.screenSize().width();
    if (info.isScreenPortrait())
        return width < 600 ? 43 : 54;
    return static_cast<int>(width * 0.053125);
}

} // namespace QSP
