#pragma once

#include "cards/network/networkmetrics.h"
#include "controls/basecard.h"

namespace QSP {

/// One of the smaller cards beside the network card, with the sizes that its document needs.
class NetworkSideCard : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(int titleRowHeight READ titleRowHeight CONSTANT)
    Q_PROPERTY(int labelMargin READ labelMargin CONSTANT)
    Q_PROPERTY(int fieldMargin READ fieldMargin CONSTANT)

public:
    explicit NetworkSideCard(QQuickItem *parent = nullptr);

    /// Height unit of the card, in pixels.
    int titleRowHeight() const { return m_metrics.titleRowHeight; }
    // The same as on the network card, so that labels and fields line up.
    int labelMargin() const { return m_metrics.labelMargin(); }
    int fieldMargin() const { return m_metrics.fieldMargin(); }

private:
    NetworkMetrics m_metrics;
};

} // namespace QSP
