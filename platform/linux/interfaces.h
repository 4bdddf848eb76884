#pragma once

#include "linux/snapshot.h"

namespace HmiLinux {

class Root;
struct Config;

/// Names of network interfaces by the place of their adapter; empty where the panel has no such adapter.
using Interfaces = std::array<QString, Adapters.size()>;

/// The interfaces of the configuration, with those that it leaves to us chosen among the hardware that the kernel
/// knows at this moment. Needs no daemon, so that the adapters of a panel are the same from the first call on.
Interfaces chooseInterfaces(const Root &root, const Config &config);

/// The adapters that have an interface, as a mask.
int adapterMask(const Interfaces &interfaces);

} // namespace HmiLinux
