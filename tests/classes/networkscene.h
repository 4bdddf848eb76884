#pragma once

#include "shell/approotitem.h"
#include "tests/classes/cardscene.h"

/// A real screen that shows the Network page.
class NetworkScene : public CardScene
{
public:
    using CardScene::CardScene;

    static QSP::AppRootItem *appRoot() { return QSP::AppRootItem::instance(); }

    /// The card of that kind, made by showing the page.
    template <class Card> static Card *networkCard(QSP::AppRootItem::Cards kind)
    {
        appRoot()->setCurrentPage(QSP::AppRootItem::MenuIndex::Network);
        return qobject_cast<Card *>(appRoot()->getCardItem(kind));
    }
};
