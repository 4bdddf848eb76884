#pragma once

#include <string>

namespace HmiLinux {

class Root;
struct Config;

/// The serial number of the device, UTF-8; empty when it has none.
std::string readSerialNumber(const Root &root, const Config &config);

} // namespace HmiLinux
