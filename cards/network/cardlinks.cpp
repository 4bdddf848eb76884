#include "cards/network/cardlinks.h"

#include "cards/network/carddns.h"
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

CardDNS *dns(const QQuickItem *card)
{
    return cardBeside<CardDNS>(card, AppRootItem::Cards::DNS);
}

} // namespace

CardNetwork *CardLinks::network(const QQuickItem *card)
{
    return cardBeside<CardNetwork>(card, AppRootItem::Cards::Network);
}

void CardLinks::reloadDns(const QQuickItem *card)
{
    if (CardDNS *other = dns(card))
        other->loadDnsAndShow();
}

void CardLinks::updateDnsEnabled(const QQuickItem *card)
{
    if (CardDNS *other = dns(card))
        other->updateEnable_DNS();
}

} // namespace QSP
