#pragma once

#include "shell/base/globalinfo.h"

#include <QtCore/QSizeF>

namespace QSP {

/// How large a dialog is on glass of that width; always the same on a screen whose sizes are fixed.
inline QSizeF dialogSize(qreal widthOfGlass)
{
    constexpr QSizeF fixedSize(426.0, 243.0);
    constexpr qreal part = 0.416015625;
    return GlobalInfo::instance().hasFixedSizes() ? fixedSize
                                                  : fixedSize * (part * widthOfGlass / fixedSize.width());
}

} // namespace QSP
