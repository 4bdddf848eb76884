#include "shell/pagetable.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <iterator>

namespace QSP {

const PageRow *pageRow(PageRow::Page page)
{
    const auto *const row = std::find_if(std::begin(g_buttonsInfo), std::end(g_buttonsInfo),
                                         [page](const PageRow &other) { return other.page == page; });
    return row == std::end(g_buttonsInfo) ? nullptr : row;
}

const char *getMenuTitleRuntime(PageRow::Page page)
{
    const PageRow *row = pageRow(page);
    return row ? row->title : "";
}

QString pageTitle(PageRow::Page page)
{
    const char *title = getMenuTitleRuntime(page);
    return *title ? QCoreApplication::translate("QSP::AppRootItem", title) : QString();
}

} // namespace QSP
