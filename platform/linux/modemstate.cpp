#include "linux/modemstate.h"

#include "linux/modemnames.h"
#include "linux/nmnames.h"

namespace HmiLinux {

namespace {

enum LinkState : int { NotConnected = 0, Connecting = 1, Connected = 2 };

} // namespace

int linkState(const ModemState &modem, uint deviceState, bool isOn)
{
    const bool isPreparing = deviceState >= Nm::Preparing && deviceState < Nm::Activated;
    if (modem.state == Mm::Connected)
        return isPreparing ? Connecting : Connected;
    if (modem.state == Mm::Connecting)
        return Connecting;
    const bool isSearching = modem.state >= Mm::Enabling && modem.state <= Mm::Searching;
    return isOn && (isPreparing || isSearching) ? Connecting : NotConnected;
}

} // namespace HmiLinux
