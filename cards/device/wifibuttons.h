#pragma once

class QQuickItem;

namespace QSP {

class BeepButton;

/// The "Reset" button, at the right of @p row.
BeepButton *addWifiResetButton(QQuickItem *row, int rowHeight, int fontPixelSize);

/// The arrow that leads from the Wi-Fi page back to the Network page, in the
/// title bar of the newest root; null without a root. @p card owns it.
BeepButton *addWifiReturnButton(QQuickItem *card);

} // namespace QSP
