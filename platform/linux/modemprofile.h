#pragma once

#include "linux/dbustypes.h"

namespace HmiLinux {

/// The settings of a new profile for the modem of this panel. @p apn is the access point of its network, or "auto".
Sections newModemSettings(const QString &adapter, const QString &apn);

} // namespace HmiLinux
