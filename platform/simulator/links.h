#pragma once

namespace HmiSimulator {

/// The states that go on by themselves after an adapter is switched; called after
/// the switch itself is done, without the panel's lock.

/// Modem: connecting, then settled; off: not connected at once.
void followMobile(bool on);
/// Tunnel: connecting, then settled; off: the state lags behind for a moment, as real tunnels do.
void followVpn(bool on);
/// Wi-Fi switched on again joins the last network that it may join, with its addresses.
void rejoinWifi();

} // namespace HmiSimulator
