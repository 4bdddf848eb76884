#include "shell/rootof.h"

#include "shell/approotitem.h"

namespace QSP {

AppRootItem *rootOf(const QQuickItem *item)
{
    for (; item; item = item->parentItem()) {
        if (const auto *root = qobject_cast<const AppRootItem *>(item))
            return const_cast<AppRootItem *>(root);
    }
    return AppRootItem::instance();
}

} // namespace QSP
