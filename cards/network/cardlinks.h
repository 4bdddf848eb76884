#pragma once

class QQuickItem;

namespace QSP {

class CardNetwork;

/// The way from one card to another of the same screen; a card that does not exist yet does nothing.
///
/// Each takes the card (or the screen) that asks.
namespace CardLinks {

/// The network card, or null.
CardNetwork *network(const QQuickItem *card);

} // namespace CardLinks

} // namespace QSP
