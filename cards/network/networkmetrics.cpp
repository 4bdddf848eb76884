#include "cards/network/networkmetrics.h"

#include "shell/base/globalinfo.h"

#include <algorithm>

namespace QSP {

NetworkMetrics NetworkMetrics::ofScreen()
{
    const GlobalInfo &info = GlobalInfo::instance();
    const int width = info.screenSize().width();
    NetworkMetrics metrics{};
    if (info.hasFixedSizes()) {
        metrics.rowHeight = 62;
        metrics.titleRowHeight = width < 600 ? 41 : 52;
        // The rows below the title have 0.92 of its height.
        if (info.isCompact())
            metrics.titleRowHeight = std::max(metrics.titleRowHeight, 48);
    } else {
        // 62 for 1024 pixels of width, 49 for 960.
        metrics.rowHeight = static_cast<int>(width * 0.060546875);
        metrics.titleRowHeight = static_cast<int>(width * 0.051041666666666666);
    }
    // However small the screen: Qt knows no font of 0 pixels.
    metrics.fontPixelSize = std::max(1, static_cast<int>(metrics.rowHeight * 0.323));
    return metrics;
}

} // namespace QSP
