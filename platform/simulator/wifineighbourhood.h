#pragma once

#include "simulator/panel.h"

namespace HmiSimulator {

/// The bytes of a name up to its terminator, 33 at most.
std::string nameOf(const HMI::SSID &ssid);
HMI::SSID ssidOf(const std::string &name);

/// The network of that name; names count as equal when their first 32 bytes are,
/// because a terminator is put behind them on the way.
Network *findNetwork(Wifi &wifi, const std::string &name);
/// The first network that the panel may join without being told a password.
const Network *knownNetwork(const Wifi &wifi);
void enter(Wifi &wifi, const std::string &name);
void leave(Wifi &wifi);
/// What a scan finds: the neighbourhood in its order, signals adrift.
std::vector<HMI::SystemSet::SsidInfo> scan(Panel &panel);
/// Forgets all passwords and leaves the network.
void forgetAll(Panel &panel);
/// Leaves the network; its addresses go with it.
void dropLink(Panel &panel);
/// What an attempt to join comes to; joins the network or forgets a wrong password.
HMI::SystemSet::StateWifi join(Panel &panel, const std::string &name, const std::string &password);
/// A signal that differs from @p signal by @p drift at most, within 1 to 100; the same when there is no drift.
int adrift(int signal, int drift);
/// Strength of the joined network, with its drift; 0 when there is none.
int currentSignal(const Panel &panel);

} // namespace HmiSimulator
