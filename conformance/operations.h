#pragma once

#include <array>
#include <string_view>

namespace Conformance {

/// Whether a library that cannot do what it is asked may leave the panel as it was.
enum class Refusal { Never, Allowed };

/// A member of HMI::SystemSet that a library must define.
struct Operation {
    const char *name;   ///< "setIp"
    const char *symbol; ///< what the dynamic linker knows it by
    Refusal refusal;
};

/// std::size_t in a symbol: what stands for the length of a network's name differs between 32 and 64 bits.
#ifdef __LP64__
#define PANEL_SIZE_CODE "Lm"
#else
#define PANEL_SIZE_CODE "Lj"
#endif

// clang-format off
/// Every member, in the order of the header. A test holds the list against the header and against what the
/// simulator defines.
inline constexpr std::array<Operation, 45> Operations = {{
    {"SystemSet", "_ZN3HMI9SystemSetC1Ev", Refusal::Never},
    {"~SystemSet", "_ZN3HMI9SystemSetD1Ev", Refusal::Never},
    {"getIp", "_ZNK3HMI9SystemSet5getIpENS0_3NICE", Refusal::Never},
    {"getSubnetMask", "_ZNK3HMI9SystemSet13getSubnetMaskENS0_3NICE", Refusal::Never},
    {"getGateway", "_ZNK3HMI9SystemSet10getGatewayENS0_3NICE", Refusal::Never},
    {"getIpFromEE", "_ZNK3HMI9SystemSet11getIpFromEEENS0_3NICE", Refusal::Never},
    {"getSubnetMaskFromEE", "_ZNK3HMI9SystemSet19getSubnetMaskFromEEENS0_3NICE", Refusal::Never},
    {"getGatewayFromEE", "_ZNK3HMI9SystemSet16getGatewayFromEEENS0_3NICE", Refusal::Never},
    {"setIp", "_ZN3HMI9SystemSet5setIpENS0_3NICENS_2IPEb", Refusal::Allowed},
    {"setSubnetMask", "_ZN3HMI9SystemSet13setSubnetMaskENS0_3NICENS_2IPEb", Refusal::Allowed},
    {"setGateway", "_ZN3HMI9SystemSet10setGatewayENS0_3NICENS_2IPEb", Refusal::Allowed},
    {"getMac", "_ZNK3HMI9SystemSet6getMacENS0_3NICE", Refusal::Never},
    {"isDhcpOn", "_ZNK3HMI9SystemSet8isDhcpOnENS0_3NICE", Refusal::Never},
    {"setDHCP", "_ZN3HMI9SystemSet7setDHCPENS0_3NICEbRKSt8functionIFvNS0_10DHCP_STATEEEEb", Refusal::Allowed},
    {"getAllNIC", "_ZNK3HMI9SystemSet9getAllNICEv", Refusal::Never},
    {"isNicEnabled", "_ZNK3HMI9SystemSet12isNicEnabledENS0_3NICE", Refusal::Never},
    {"enableNIC", "_ZN3HMI9SystemSet9enableNICENS0_3NICEbb", Refusal::Allowed},
    {"getDefaultNIC", "_ZNK3HMI9SystemSet13getDefaultNICEv", Refusal::Never},
    {"setDefaultNIC", "_ZN3HMI9SystemSet13setDefaultNICENS0_3NICEb", Refusal::Allowed},
    {"pingTest", "_ZN3HMI9SystemSet8pingTestENS0_3NICERKSt8functionIFvbEE", Refusal::Never},
    {"scanWifi", "_ZN3HMI9SystemSet8scanWifiERKSt8functionIFvSt10unique_ptrISt6vectorINS0_8SsidInfoESaIS4_EESt14default_deleteIS6_EEEE", Refusal::Allowed},
    {"resetWifi", "_ZN3HMI9SystemSet9resetWifiERKSt8functionIFvSt10unique_ptrISt6vectorINS0_8SsidInfoESaIS4_EESt14default_deleteIS6_EEEE", Refusal::Never},
    {"connectWifi", "_ZN3HMI9SystemSet11connectWifiERKSt5arrayIc" PANEL_SIZE_CODE "33EERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEERKSt8functionIFvNS0_9StateWifiEEE", Refusal::Never},
    {"currentWifiSsid", "_ZNK3HMI9SystemSet15currentWifiSsidEv", Refusal::Never},
    {"isWifiConnected", "_ZNK3HMI9SystemSet15isWifiConnectedEv", Refusal::Never},
    {"currentWifiSignalStrength", "_ZNK3HMI9SystemSet25currentWifiSignalStrengthEv", Refusal::Never},
    {"get4GState", "_ZNK3HMI9SystemSet10get4GStateENS0_3NICE", Refusal::Never},
    {"get4GSignal", "_ZNK3HMI9SystemSet11get4GSignalENS0_3NICE", Refusal::Never},
    {"getVPNServer", "_ZNK3HMI9SystemSet12getVPNServerEv", Refusal::Never},
    {"setVPNServer", "_ZN3HMI9SystemSet12setVPNServerENS0_9VPNServerE", Refusal::Allowed},
    {"getVPNServerState", "_ZNK3HMI9SystemSet17getVPNServerStateENS0_9VPNServerE", Refusal::Never},
    {"resetVPNIp", "_ZN3HMI9SystemSet10resetVPNIpENS0_9VPNServerE", Refusal::Never},
    {"getDns", "_ZNK3HMI9SystemSet6getDnsENS0_3NICE", Refusal::Never},
    {"setDns", "_ZN3HMI9SystemSet6setDnsENS0_3NICERKSt4pairINS_2IPES3_E", Refusal::Allowed},
    {"setSystemTime", "_ZN3HMI9SystemSet13setSystemTimeEl", Refusal::Allowed},
    {"syncHwclock", "_ZN3HMI9SystemSet11syncHwclockEv", Refusal::Allowed},
    {"bright", "_ZNK3HMI9SystemSet6brightEv", Refusal::Never},
    {"setBright", "_ZN3HMI9SystemSet9setBrightENS0_6BrightEb", Refusal::Allowed},
    {"isBuzzerOn", "_ZNK3HMI9SystemSet10isBuzzerOnEv", Refusal::Never},
    {"setBuzzerOn", "_ZN3HMI9SystemSet11setBuzzerOnEb", Refusal::Allowed},
    {"beep", "_ZNK3HMI9SystemSet4beepEb", Refusal::Never},
    {"getLanguage", "_ZNK3HMI9SystemSet11getLanguageEv", Refusal::Never},
    {"setLanguage", "_ZN3HMI9SystemSet11setLanguageENS0_8LanguageE", Refusal::Never},
    {"getSerialNumber", "_ZNK3HMI9SystemSet15getSerialNumberB5cxx11Ev", Refusal::Never},
    {"reboot", "_ZN3HMI9SystemSet6rebootEv", Refusal::Never},
}};
// clang-format on

#undef PANEL_SIZE_CODE

/// Whether @p name may leave the panel as it was.
constexpr bool mayRefuse(std::string_view name)
{
    for (const Operation &operation : Operations) {
        if (name == operation.name)
            return operation.refusal == Refusal::Allowed;
    }
    return false;
}

} // namespace Conformance
