#include "shell/base/focusscope.h"

namespace QSP {

QQuickItem *focusScopeOf(const QQuickItem *item)
{
    QQuickItem *scope = item->parentItem();
    while (scope && !scope->isFocusScope())
        scope = scope->parentItem();
    return scope;
}

} // namespace QSP
