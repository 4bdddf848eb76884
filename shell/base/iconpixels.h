#pragma once

#include <QtGui/QRgb>

#include <array>

namespace QSP {

/// An icon as the painter wants it: premultiplied, line by line from the top, as wide as high.
struct IconPixels {
    const char *name;
    int side;
    const QRgb *pixels;
};

/// How many icons the menu and the first page show.
constexpr size_t g_firstIconCount = 10;
/// Those, made from the icons themselves as the library is built.
extern const std::array<IconPixels, g_firstIconCount> g_iconPixels;

} // namespace QSP
