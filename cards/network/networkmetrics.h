#pragma once

namespace QSP {

/// Sizes of the cards of the Network page, in whole pixels, from the size of the screen.
struct NetworkMetrics {
    int rowHeight;      ///< height unit of the network card
    int fontPixelSize;  ///< of the network card
    int titleRowHeight; ///< height unit of the smaller cards

    static NetworkMetrics ofScreen();

    /// From the left edge of a card to its labels.
    int labelMargin() const { return fontPixelSize; }
    /// From the right edge of a card to its switches and fields.
    int fieldMargin() const { return rowHeight / 2; }
};

} // namespace QSP
