#pragma once

#include <QtGui/QColor>

namespace QSP {

/// Colour of the text in an entry field.
inline QColor fieldTextColor(bool enabled)
{
    return enabled ? QColor(0, 0, 0) : QColor(180, 180, 180);
}

} // namespace QSP
