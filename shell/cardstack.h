#pragma once

#include "shell/approotitem.h"

#include <map>
#include <utility>
#include <vector>

namespace QSP {

struct CardRow;

/// The cards of a screen, one below the other in the column that scrolls.
///
/// Each is made from its row of the card table when it is shown first, together with the registration of its
/// types, so that nothing is done for pages that nobody visits; it lives as long as the root. They stand in the
/// order in which they were made.
class CardStack
{
public:
    using Cards = AppRootItem::Cards;
    using Page = AppRootItem::MenuIndex;

    /// Of the kinds with the names @p hidden it never has one.
    CardStack(AppRootItem *root, QQuickItem *column, QStringList hidden)
        : m_root(root), m_column(column), m_hidden(std::move(hidden))
    {}

    QQuickItem *column() const { return m_column; }
    /// The card, or null when it was not shown yet.
    QQuickItem *card(Cards card) const;
    bool isHidden(Cards card) const;
    /// Whether a page has cards, all of which are hidden.
    bool isHidden(Page page) const;

    /// Begins to read the documents of a page in the engine's own thread, so that showing it waits for less.
    void readAhead(Page page);
    void showCard(Cards card, bool show);
    /// Shows those cards of a page that belong there now, and hides its others; or hides them all.
    void showPage(Page page, bool show);
    /// The same for a page that is shown already: nobody is told that it was shown.
    void updatePage(Page page);
    void hideAll();

    void addCard(Cards card);
    /// A card from a component in hand; null when that makes no item.
    QQuickItem *addCard(QQmlComponent *component);

private:
    using Rows = std::vector<const CardRow *>;

    bool isHidden(const CardRow &row) const;
    Rows rowsOf(Page page) const;
    void setPageVisible(Page page, bool visible);
    void addCard(const CardRow &row);

    AppRootItem *m_root;
    QQuickItem *m_column;
    QStringList m_hidden;
    std::map<Cards, QQuickItem *> m_cards;
};

} // namespace QSP
