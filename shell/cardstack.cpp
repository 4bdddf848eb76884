#include "shell/cardstack.h"

#include "shell/barparts.h"
#include "shell/cardinfo.h"

#include <algorithm>

namespace QSP {

namespace {

void registerTypes(const CardRow &row)
{
    for (const CardRow::RegisterType registerType : row.types)
        registerType();
}

QUrl documentOf(const CardRow &row)
{
    return QUrl(QLatin1String(row.document));
}

} // namespace

QQuickItem *CardStack::card(Cards card) const
{
    const auto found = m_cards.find(card);
    return found == m_cards.end() ? nullptr : found->second;
}

bool CardStack::isHidden(const CardRow &row) const
{
    return m_hidden.contains(QLatin1String(row.name));
}

bool CardStack::isHidden(Cards card) const
{
    const std::vector<CardRow> &table = cardTable();
    return std::any_of(table.begin(), table.end(),
                       [this, card](const CardRow &row) { return row.card == card && isHidden(row); });
}

bool CardStack::isHidden(Page page) const
{
    const std::vector<CardRow> &table = cardTable();
    return rowsOf(page).empty() &&
           std::any_of(table.begin(), table.end(), [page](const CardRow &row) { return row.page == page; });
}

CardStack::Rows CardStack::rowsOf(Page page) const
{
    Rows rows;
    for (const CardRow &row : cardTable()) {
        if (row.page == page && !isHidden(row))
            rows.push_back(&row);
    }
    return rows;
}

void CardStack::readAhead(Page page)
{
    for (const CardRow *row : rowsOf(page)) {
        registerTypes(*row);
        row->component->prefetch(documentOf(*row));
    }
}

void CardStack::showCard(Cards card, bool show)
{
    // Hiding what was never shown must not build it.
    if (show && !this->card(card))
        addCard(card);
    if (QQuickItem *item = this->card(card))
        item->setVisible(show);
}

void CardStack::showPage(Page page, bool show)
{
    setPageVisible(page, show);
    if (!show)
        return;
    for (const CardRow *row : rowsOf(page)) {
        QQuickItem *item = card(row->card);
        if (item && row->pageShown)
            row->pageShown(item);
    }
}

void CardStack::updatePage(Page page)
{
    setPageVisible(page, true);
}

void CardStack::setPageVisible(Page page, bool visible)
{
    for (const CardRow *row : rowsOf(page))
        showCard(row->card, visible && (!row->isWanted || row->isWanted(m_root)));
}

void CardStack::hideAll()
{
    for (const auto &made : m_cards)
        made.second->setVisible(false);
}

void CardStack::addCard(Cards card)
{
    for (const CardRow &row : cardTable()) {
        if (row.card == card && !isHidden(row))
            addCard(row);
    }
}

void CardStack::addCard(const CardRow &row)
{
    registerTypes(row);
    QQuickItem *item = addCard(row.component->get(documentOf(row)));
    if (!item)
        return;
    m_cards[row.card] = item;
    if (row.wire)
        row.wire(m_root, item);
}

QQuickItem *CardStack::addCard(QQmlComponent *component)
{
    return EmbeddedComponent::createItem(component, m_column, [this](QQuickItem *item) {
        followWidth(m_column, item, [column = m_column, item] { item->setWidth(column->width()); });
    });
}

} // namespace QSP
