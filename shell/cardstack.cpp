#include "shell/cardstack.h"

#include "shell/barparts.h"
#include "shell/cardinfo.h"

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

void CardStack::readAhead(Page page)
{
    for (const CardRow &row : cardTable()) {
        if (row.page != page)
            continue;
        registerTypes(row);
        row.component->prefetch(documentOf(row));
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
    for (const CardRow &row : cardTable()) {
        QQuickItem *item = row.page == page ? card(row.card) : nullptr;
        if (item && row.pageShown)
            row.pageShown(item);
    }
}

void CardStack::updatePage(Page page)
{
    setPageVisible(page, true);
}

void CardStack::setPageVisible(Page page, bool visible)
{
    for (const CardRow &row : cardTable()) {
        if (row.page == page)
            showCard(row.card, visible && (!row.isWanted || row.isWanted(m_root)));
    }
}

void CardStack::hideAll()
{
    for (const auto &made : m_cards)
        made.second->setVisible(false);
}

void CardStack::addCard(Cards card)
{
    for (const CardRow &row : cardTable()) {
        if (row.card == card)
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
