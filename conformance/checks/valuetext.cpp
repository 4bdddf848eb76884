#include "conformance/checks/valuetext.h"

#include "conformance/adapternames.h"

#include <algorithm>
#include <cstdio>

namespace Conformance {

std::string text(bool value)
{
    return value ? "true" : "false";
}

std::string text(int value)
{
    return std::to_string(value);
}

std::string text(HMI::IP value)
{
    const quint32 address = value;
    std::string dotted;
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        dotted += (dotted.empty() ? "" : ".") + std::to_string((address >> shift) & 0xFF);
    return dotted;
}

std::string text(const std::pair<HMI::IP, HMI::IP> &servers)
{
    return text(servers.first) + ", " + text(servers.second);
}

std::string text(const HMI::MAC &mac)
{
    std::string digits;
    for (const unsigned char byte : mac) {
        std::array<char, 3> pair{};
        std::snprintf(pair.data(), pair.size(), "%02X", byte);
        digits += (digits.empty() ? "" : ":") + std::string(pair.data());
    }
    return digits;
}

std::string text(const HMI::SSID &ssid)
{
    return '"' + std::string(ssid.begin(), std::find(ssid.begin(), ssid.end(), '\0')) + '"';
}

std::string nameOf(HMI::SystemSet::NIC nic)
{
    for (const AdapterName &adapter : AdapterNames) {
        if (adapter.nic == nic)
            return adapter.name;
    }
    return "NIC(" + std::to_string(static_cast<int>(nic)) + ')';
}

std::string milliseconds(double value)
{
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.3g ms", value);
    return digits.data();
}

} // namespace Conformance
