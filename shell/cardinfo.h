#pragma once

#include "shell/approotitem.h"
#include "shell/base/embeddedcomponent.h"

#include <QtCore/QUrl>

namespace QSP {

/// One row of the card table: what the root must know of a kind of card.
///
/// The root knows cards through this table alone. The rows are filled in where
/// the cards are; a kind that says nothing about a question gets the general answer.
template <AppRootItem::Cards card> struct CardInfo {
    /// The embedded document of the card.
    static QUrl document();
    /// Registers the QML types that the document needs. Called once a process, before the first card.
    static void registerTypes();
    /// Connects a new card to the root and to other cards.
    static void wire(AppRootItem *, QQuickItem *) {}
    /// Whether the card belongs on its page now.
    static bool isWanted(const AppRootItem *) { return true; }
    /// Called each time the page of the card was shown.
    static void pageShown(QQuickItem *) {}

    inline static EmbeddedComponent pComp;
};

using CardKind = AppRootItem::Cards;

template <> QUrl CardInfo<CardKind::Brightness>::document();
template <> QUrl CardInfo<CardKind::Time>::document();
template <> QUrl CardInfo<CardKind::Buzzer>::document();
template <> QUrl CardInfo<CardKind::Network>::document();
template <> QUrl CardInfo<CardKind::NIC>::document();
template <> QUrl CardInfo<CardKind::DNS>::document();
template <> QUrl CardInfo<CardKind::Version>::document();
template <> QUrl CardInfo<CardKind::Language>::document();
template <> QUrl CardInfo<CardKind::Wifi>::document();

template <> void CardInfo<CardKind::Brightness>::registerTypes();
template <> void CardInfo<CardKind::Time>::registerTypes();
template <> void CardInfo<CardKind::Buzzer>::registerTypes();
template <> void CardInfo<CardKind::Network>::registerTypes();
template <> void CardInfo<CardKind::NIC>::registerTypes();
template <> void CardInfo<CardKind::DNS>::registerTypes();
template <> void CardInfo<CardKind::Version>::registerTypes();
template <> void CardInfo<CardKind::Language>::registerTypes();
template <> void CardInfo<CardKind::Wifi>::registerTypes();

template <> void CardInfo<CardKind::Network>::wire(AppRootItem *root, QQuickItem *card);
template <> void CardInfo<CardKind::Wifi>::wire(AppRootItem *root, QQuickItem *card);
template <> bool CardInfo<CardKind::NIC>::isWanted(const AppRootItem *root);
template <> bool CardInfo<CardKind::DNS>::isWanted(const AppRootItem *root);
template <> void CardInfo<CardKind::Network>::pageShown(QQuickItem *card);

} // namespace QSP
