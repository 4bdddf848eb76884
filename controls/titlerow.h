#pragma once

#include "shell/base/globalinfo.h"

namespace QSP {

/// Height of a device card's title row in pixels; the card's other sizes are fractions of it.
inline qreal exactTitleRowHeight()
{
    const GlobalInfo &info = GlobalInfo::instance();
    const int width = info.screenSize().width();
    if (info.hasFixedSizes()) {
        const qreal height = width < 600 ? 43.0 : 54.0;
        return info.isCompact() ? qMax<qreal>(GlobalInfo::leastCompactRow, height) : height;
    }
    return width * 0.053125;
}

/// The same in whole pixels.
inline int titleRowHeight()
{
    return static_cast<int>(exactTitleRowHeight());
}

} // namespace QSP
