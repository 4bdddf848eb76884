#include "simulator/calltext.h"

#include "simulator/wifineighbourhood.h"

#include <array>

namespace HmiSimulator {

namespace {

using HMI::SystemSet;

std::string numbered(const char *type, int value)
{
    return std::string(type) + '(' + std::to_string(value) + ')';
}

std::string escaped(unsigned char byte)
{
    static const char digits[] = "0123456789ABCDEF";
    return {'\\', 'x', digits[byte >> 4U], digits[byte & 0x0FU]};
}

/// Length of the well-formed UTF-8 sequence at @p at, 0 when there is none.
std::size_t sequenceLength(const std::string &bytes, std::size_t at)
{
    const auto byte = [&bytes](std::size_t i) -> unsigned {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
    };
    const unsigned lead = byte(at);
    std::size_t length = 0;
    unsigned lowest = 0x80;
    unsigned highest = 0xBF;
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        length = 2;
    else if (lead >= 0xE0 && lead <= 0xEF)
        length = 3;
    else if (lead >= 0xF0 && lead <= 0xF4)
        length = 4;
    else
        return 0;
    // Overlong forms, surrogates and values beyond U+10FFFF show in the second byte.
    if (lead == 0xE0)
        lowest = 0xA0;
    else if (lead == 0xED)
        highest = 0x9F;
    else if (lead == 0xF0)
        lowest = 0x90;
    else if (lead == 0xF4)
        highest = 0x8F;
    if (byte(at + 1) < lowest || byte(at + 1) > highest)
        return 0;
    for (std::size_t i = at + 2; i < at + length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
    }
    return length;
}

} // namespace

std::string text(bool value)
{
    return value ? "true" : "false";
}

std::string text(HMI::IP address)
{
    const quint32 value = address;
    return std::to_string(value >> 24U) + '.' + std::to_string((value >> 16U) & 0xFFU) + '.' +
           std::to_string((value >> 8U) & 0xFFU) + '.' + std::to_string(value & 0xFFU);
}

std::string text(SystemSet::NIC nic)
{
    switch (nic) {
    case SystemSet::LAN0:
        return "LAN0";
    case SystemSet::LAN1:
        return "LAN1";
    case SystemSet::WIFI:
        return "WIFI";
    case SystemSet::MOBILE_4G:
        return "MOBILE_4G";
    case SystemSet::VPN:
        return "VPN";
    }
    return numbered("NIC", nic);
}

std::string text(SystemSet::VPNServer server)
{
    switch (server) {
    case SystemSet::ASIA:
        return "ASIA";
    case SystemSet::EUROPE:
        return "EUROPE";
    }
    return numbered("VPNServer", server);
}

std::string text(SystemSet::Language language)
{
    switch (language) {
    case SystemSet::CHINESE:
        return "CHINESE";
    case SystemSet::ENGLISH:
        return "ENGLISH";
    }
    return numbered("Language", language);
}

std::string text(SystemSet::DHCP_STATE state)
{
    switch (state) {
    case SystemSet::DHCP_OK:
        return "DHCP_OK";
    case SystemSet::DHCP_FAILED:
        return "DHCP_FAILED";
    }
    return numbered("DHCP_STATE", state);
}

std::string text(SystemSet::StateWifi state)
{
    static const std::array<const char *, 5> names{"WIFI_OFFLINE", "WIFI_CONNECTING", "WIFI_CONNECTED",
                                                   "WIFI_TIMEOUT", "WIFI_WRONG_PASSWORD"};
    const int value = state;
    if (value >= 0 && value < static_cast<int>(names.size()))
        return names[static_cast<std::size_t>(value)];
    return numbered("StateWifi", value);
}

std::string text(const HMI::SSID &ssid)
{
    return quoted(nameOf(ssid));
}

std::string quoted(const std::string &bytes)
{
    std::string result = "\"";
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        const std::size_t length = sequenceLength(bytes, at);
        if (length == 0 || byte < 0x20 || byte == 0x7F) {
            result += escaped(byte);
            ++at;
            continue;
        }
        if (byte == '"' || byte == '\\')
            result += '\\';
        result.append(bytes, at, length);
        at += length;
    }
    return result + '"';
}

std::string masked(const std::string &password)
{
    return password.empty() ? "\"\"" : "****";
}

} // namespace HmiSimulator
