#pragma once

#include <QtGui/QColor>

/// The colours of the keyboard: those of the settings screen and shades of them.
namespace StandIn::Palette {

inline QColor panel()
{
    return QColor(230, 231, 233);
}
inline QColor panelEdge()
{
    return QColor(200, 205, 210);
}
inline QColor text()
{
    return QColor(29, 33, 41);
}
inline QColor accent()
{
    return QColor(52, 130, 255);
}
inline QColor accentPressed()
{
    return QColor(31, 99, 209);
}
inline QColor onAccent()
{
    return QColor(255, 255, 255);
}
inline QColor key()
{
    return QColor(255, 255, 255);
}
inline QColor keyPressed()
{
    return QColor(190, 215, 255);
}
inline QColor command()
{
    return QColor(208, 212, 218);
}
inline QColor commandPressed()
{
    return QColor(170, 178, 189);
}

} // namespace StandIn::Palette
