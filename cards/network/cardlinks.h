#pragma once

namespace QSP {

class AppRootItem;
class CardNetwork;

/// The way from one card of the Network page to another; a card that does not exist yet does nothing.
namespace CardLinks {

/// The network card of @p root (null: of the newest root), or null.
CardNetwork *network(const AppRootItem *root = nullptr);
/// Lets the DNS card show its servers again.
void reloadDns();
/// Lets the DNS card find out again whether its fields may be edited.
void updateDnsEnabled();

} // namespace CardLinks

} // namespace QSP
