#pragma once

class QQuickPopup;

namespace QSP {

/// Ties @p popup to its parent item, which for the toolkit is no more than where it is placed.
///
/// The popup closes when the item is shown, hidden or leaves its window, alone or with the whole screen, and can
/// be operated only while the item can be: its own `enabled` follows the item's. To be called once a popup, which
/// may change its parent later.
void tieToParent(QQuickPopup *popup);

} // namespace QSP
