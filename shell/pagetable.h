#pragma once

#include "shell/approotitem.h"

#include <QtCore/qglobal.h>

namespace QSP {

/// One row of the page table: a page, or an entry of the menu that acts at once.
/// The cards of a page name it in their own table, see CardRow.
struct PageRow {
    using Page = AppRootItem::MenuIndex;
    enum class Button { InColumn, AtBottom, None };
    struct Icons {
        const char *normal;
        const char *highlighted;
    };

    Page page;
    const char *title;
    Icons icons;
    Button button;
    /// Whose button is marked while the page is shown.
    Page marked;
};

/// The table, in the order in which the buttons stand.
inline constexpr PageRow g_buttonsInfo[] = {
    {PageRow::Page::General,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "General"),
     {"newsetting.png", "newsetting.png"},
     PageRow::Button::InColumn,
     PageRow::Page::General},
    {PageRow::Page::Network,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "Network"),
     {"newnetwork.png", "newnetwork.png"},
     PageRow::Button::InColumn,
     PageRow::Page::Network},
    {PageRow::Page::Language,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "Language"),
     {"newlanguage.png", "newlanguage.png"},
     PageRow::Button::InColumn,
     PageRow::Page::Language},
    {PageRow::Page::Version,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "Version"),
     {"newversion.png", "newversion.png"},
     PageRow::Button::InColumn,
     PageRow::Page::Version},
    {PageRow::Page::Reboot,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "Reboot"),
     {"newrestart.png", "newrestart.png"},
     PageRow::Button::AtBottom,
     PageRow::Page::Reboot},
    {PageRow::Page::Exit,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "Exit"),
     {"newexit.png", "newexit.png"},
     PageRow::Button::AtBottom,
     PageRow::Page::Exit},
    {PageRow::Page::Wifi,
     QT_TRANSLATE_NOOP("QSP::AppRootItem", "Wi-Fi"),
     {},
     PageRow::Button::None,
     PageRow::Page::Network},
};

/// The row of a page, or null for no page.
const PageRow *pageRow(PageRow::Page page);
/// The title of a page or an entry in English; empty for no page.
const char *getMenuTitleRuntime(PageRow::Page page);
/// The same in the language of the screen.
QString pageTitle(PageRow::Page page);

} // namespace QSP
