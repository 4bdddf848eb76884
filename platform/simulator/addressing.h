#pragma once

#include "simulator/panel.h"

namespace HmiSimulator {

/// Rules of addresses, DHCP and reachability; each works on a panel that the caller has locked.

/// Whether addresses can be in force on the adapter: on, with a link, and joined, connected or up.
bool isUp(const Panel &panel, int nic);
/// Puts the stored static addresses in force, or nulls when the adapter is down.
void applyStored(Panel &panel, int nic);
/// Takes a lease; false (and no address) when the adapter cannot have one.
bool takeLease(Panel &panel, int nic);
/// What setDHCP() comes to when its report falls due. The newest request decides what is in force.
HMI::SystemSet::DHCP_STATE settleDhcp(Panel &panel, int nic);
/// Switches the adapter on or off with what follows at once.
void enable(Panel &panel, int nic, bool on);
/// What pingTest() finds.
bool answersPing(const Panel &panel, int nic);

} // namespace HmiSimulator
