#include "shell/rootof.h"

#include "panel/panel.h"
#include "shell/approotitem.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>

namespace QSP {

AppRootItem *rootOf(const QQuickItem *item)
{
    for (; item; item = item->parentItem()) {
        if (const auto *root = qobject_cast<const AppRootItem *>(item))
            return const_cast<AppRootItem *>(root);
    }
    return AppRootItem::instance();
}

Panel &panelOf(const QQuickItem *item)
{
    if (AppRootItem *root = rootOf(item))
        return root->panel();
    static QPointer<Panel> shared;
    if (!shared)
        shared = new Panel(QCoreApplication::instance());
    return *shared;
}

} // namespace QSP
