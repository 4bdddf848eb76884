#pragma once

#include "hmi/systemset.h"

#include <QtCore/QByteArray>
#include <QtCore/QVariant>

namespace HmiLinux {

/// The name of a network as the contract has it; all zero for what is no name that it can have.
HMI::SSID ssidOf(const QByteArray &name);
/// Its bytes without what ends them.
QByteArray bytesOf(const HMI::SSID &ssid);
/// The name in a property or in settings. Empty for a hidden one, which is told as nothing or as zeros, and for one
/// with a zero in it: cut there it would be the name of another network.
QByteArray wifiNameIn(const QVariant &value);

} // namespace HmiLinux
