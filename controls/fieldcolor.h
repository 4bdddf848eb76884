#pragma once

#include "shell/base/palette.h"

namespace QSP {

/// Colour of the text in an entry field.
inline QColor fieldTextColor(bool enabled)
{
    return enabled ? Palette::instance().fieldText : Palette::instance().disabledText;
}

} // namespace QSP
