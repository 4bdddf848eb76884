#include "cards/network/cardlinks.h"

#include "cards/network/carddns.h"
#include "cards/network/cardnetwork.h"
#include "shell/approotitem.h"

namespace QSP {

namespace {

template <class Card> Card *cardOf(const AppRootItem *root, AppRootItem::Cards kind)
{
    return root ? qobject_cast<Card *>(root->getCardItem(kind)) : nullptr;
}

CardDNS *dns()
{
    return cardOf<CardDNS>(AppRootItem::instance(), AppRootItem::Cards::DNS);
}

} // namespace

CardNetwork *CardLinks::network(const AppRootItem *root)
{
    return cardOf<CardNetwork>(root ? root : AppRootItem::instance(), AppRootItem::Cards::Network);
}

void CardLinks::reloadDns()
{
    if (CardDNS *card = dns())
        card->loadDnsAndShow();
}

void CardLinks::updateDnsEnabled()
{
    if (CardDNS *card = dns())
        card->updateEnable_DNS();
}

} // namespace QSP
