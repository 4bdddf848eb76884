#pragma once

#include "shell/approotitem.h"
#include "shell/base/embeddedcomponent.h"

#include <vector>

namespace QSP {

/// The component of a kind of card, one a process.
template <AppRootItem::Cards card> struct CardInfo {
    inline static EmbeddedComponent pComp;
};

/// One row of the card table: all that the root knows of a kind of card.
struct CardRow {
    using RegisterType = void (*)();

    AppRootItem::Cards card;
    /// By which hosts know it, see HostOptions::hiddenCards: never changed.
    const char *name;
    /// The page that shows the card, below those whose rows come first.
    AppRootItem::MenuIndex page;
    const char *document;
    EmbeddedComponent *component;
    /// The QML types that the document needs. Called before each card is made; each registers once a process.
    std::vector<RegisterType> types;

    // What most kinds have no need of.

    /// Connects a new card to its root.
    void (*wire)(AppRootItem *root, QQuickItem *card) = nullptr;
    /// Whether the card belongs on its page now; the root is told by AppRootItem::updateCards() when that changes.
    bool (*isWanted)(AppRootItem *root) = nullptr;
    /// Called each time that the page of the card was shown.
    void (*pageShown)(QQuickItem *card) = nullptr;
};

/// The card table. It is filled in where the cards are, so that the root need not know them; a row that is added
/// before a screen is built is a card of that screen like any other.
std::vector<CardRow> &cardTable();
/// The names of all cards of the table.
QStringList cardNames();

} // namespace QSP
