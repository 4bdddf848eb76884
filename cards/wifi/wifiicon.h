#pragma once

#include <QtCore/QUrl>

class QQuickImage;
class QQuickItem;

namespace QSP {

/// The icon of a signal strength in percent: one to four bars.
QUrl wifiSignalIcon(int strength);

/// An image of @p side pixels, vertically centred in @p row by its own height.
QQuickImage *addRowImage(QQuickItem *row, const QUrl &source, int rowHeight, int side);

} // namespace QSP
