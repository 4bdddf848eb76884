#pragma once

#include "cards/network/networkmetrics.h"

#include <QtCore/QObject>

namespace QSP {

/// The sizes of which everything on the network card is a fraction, in pixels.
class RowSizes : public QObject
{
    Q_OBJECT

public:
    explicit RowSizes(const NetworkMetrics &metrics)
        : m_rowHeight(metrics.rowHeight), m_fontPixelSize(metrics.fontPixelSize)
    {}

    /// Height unit of all rows.
    int rowHeight() const { return m_rowHeight; }
    void setRowHeight(int height);
    /// Of every text.
    int fontPixelSize() const { return m_fontPixelSize; }
    void setFontPixelSize(int size);

signals:
    void changed();
    void rowHeightChanged();
    void fontPixelSizeChanged();

private:
    int m_rowHeight;
    int m_fontPixelSize;
};

} // namespace QSP
