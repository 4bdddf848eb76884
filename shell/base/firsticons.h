#pragma once

#include <QtQuick/private/qquickpixmapcache_p.h>

#include <deque>

namespace QSP {

/// The icons of the menu and of the first page, ready to be painted.
///
/// The first image that is read makes the toolkit load every reader of images that is installed, and what those
/// need in turn. A screen that shows its first page has read none: the toolkit keeps what it has read by address,
/// and finds these there. Whoever asks for one in a size of its own (Image's sourceSize) passes them by.
///
/// To be built before the items that show them, and to live as long. GUI thread only.
class FirstIcons
{
public:
    FirstIcons();

private:
    std::deque<QQuickPixmap> m_icons;
};

} // namespace QSP
