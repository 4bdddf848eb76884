#include "cards/network/rowsizes.h"

namespace QSP {

void RowSizes::setRowHeight(int height)
{
    if (m_rowHeight == height)
        return;
    m_rowHeight = height;
    emit changed();
    emit rowHeightChanged();
}

void RowSizes::setFontPixelSize(int size)
{
    if (m_fontPixelSize == size)
        return;
    m_fontPixelSize = size;
    emit changed();
    emit fontPixelSizeChanged();
}

} // namespace QSP
