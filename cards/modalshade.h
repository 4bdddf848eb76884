#pragma once

namespace QSP {

class Dialog;

/// Dims what lies behind a modal dialog while it is open. To be called once a dialog.
void shadeBehind(Dialog *dialog);

} // namespace QSP
