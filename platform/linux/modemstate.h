#pragma once

#include <QtCore/QtGlobal>

namespace HmiLinux {

/// The panel's modem as its daemon sees it.
struct ModemState {
    int state = 0;  ///< of Mm::State
    int signal = 0; ///< percent
};

/// What the contract calls the state of 4G: 0 not connected, 1 connecting, 2 connected. The modem is connected before
/// there is an address: @p deviceState is that of the adapter, 0 where nothing but the modem is known. One that looks
/// for its network is connecting only if @p isOn, otherwise it does so for nobody.
int linkState(const ModemState &modem, uint deviceState, bool isOn);

} // namespace HmiLinux
