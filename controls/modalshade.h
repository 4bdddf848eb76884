#pragma once

class QQuickPopup;

namespace QSP {

/// Dims what lies behind a modal popup while it is open. To be called once a popup.
void shadeBehind(QQuickPopup *popup);

} // namespace QSP
