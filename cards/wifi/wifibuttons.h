#pragma once

class QQuickItem;

namespace QSP {

class BeepButton;

/// The "Reset" button, at the right of @p row.
BeepButton *addWifiResetButton(QQuickItem *row, int rowHeight, int fontPixelSize);

/// The arrow that leads from the Wi-Fi page back to the Network page, in the
/// title bar of the screen on which @p card stands; null without a screen. The card owns it.
BeepButton *addWifiReturnButton(QQuickItem *card);

} // namespace QSP
