#pragma once

#include <QtCore/QString>

class QQuickItem;

/// What the network card needs to know of Wi-Fi, without knowing the card of the Wi-Fi page.
namespace QSP::WifiLink {

/// Whether the panel has joined a network.
bool isConnected();
/// The name of the joined network; empty when there is none.
QString ssid();
/// Lets the Wi-Fi page of the screen on which @p card stands, if it was ever shown, read the signal strength again.
void updateSignalStrength(const QQuickItem *card);

} // namespace QSP::WifiLink
