#include "cards/network/cardlinks.h"

#include "cards/network/cardnetwork.h"
#include "shell/approotitem.h"
#include "shell/rootof.h"

namespace QSP {

namespace {

template <class Card> Card *cardBeside(const QQuickItem *card, AppRootItem::Cards kind)
{
    const AppRootItem *root = rootOf(card);
    return root ? qobject_cast<Card *>(root->getCardItem(kind)) : nullptr;
}

} // namespace

CardNetwork *CardLinks::network(const QQuickItem *card)
{
    return cardBeside<CardNetwork>(card, AppRootItem::Cards::Network);
}

} // namespace QSP
