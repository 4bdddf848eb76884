#include "controls/focusloss.h"

#include "shell/base/focusscope.h"

namespace QSP {

bool losesFocusByRemoval(const QQuickItem *item)
{
    // The toolkit notes the focus twice, in the item and in the focus scope around it. Whoever leaves an item
    // clears both notes, or, when another scope gets the focus, neither. A removal clears the scope's alone,
    // since the item is to have the focus again wherever it is put next.
    while (item && item->hasFocus()) {
        const QQuickItem *scope = focusScopeOf(item);
        if (scope && scope->scopedFocusItem() != item)
            return true;
        item = scope;
    }
    return false;
}

} // namespace QSP
