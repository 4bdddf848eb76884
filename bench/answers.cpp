#include "bench/answers.h"

using HMI::SystemSet;

const std::vector<Answer> &answers()
{
    static const std::vector<Answer> all = {
        {"getAllNIC", [](const SystemSet &panel) { return panel.getAllNIC() != 0; }},
        {"getIp", [](const SystemSet &panel) { return panel.getIp(SystemSet::LAN0) != 0; }},
        {"getIp of the other", [](const SystemSet &panel) { return panel.getIp(SystemSet::LAN1) != 0; }},
        {"getSubnetMask", [](const SystemSet &panel) { return panel.getSubnetMask(SystemSet::LAN0) != 0; }},
        {"getGateway", [](const SystemSet &panel) { return panel.getGateway(SystemSet::LAN0) != 0; }},
        {"getMac",
         [](const SystemSet &panel) {
             constexpr HMI::MAC none{};
             return panel.getMac(SystemSet::LAN0) != none;
         }},
        {"getDns", [](const SystemSet &panel) { return panel.getDns(SystemSet::LAN0).first != 0; }},
        {"isDhcpOn", [](const SystemSet &panel) { return panel.isDhcpOn(SystemSet::LAN0); }},
        {"isNicEnabled", [](const SystemSet &panel) { return panel.isNicEnabled(SystemSet::LAN0); }},
        {"getDefaultNIC", [](const SystemSet &panel) { return panel.getDefaultNIC() != 0; }},
        {"isWifiConnected", [](const SystemSet &panel) { return panel.isWifiConnected(); }},
        {"currentWifiSsid", [](const SystemSet &panel) { return panel.currentWifiSsid()[0] != 0; }},
        {"currentWifiSignalStrength",
         [](const SystemSet &panel) { return panel.currentWifiSignalStrength() != 0; }},
        {"get4GSignal", [](const SystemSet &panel) { return panel.get4GSignal(SystemSet::MOBILE_4G) != 0; }},
        {"bright", [](const SystemSet &panel) { return panel.bright() > SystemSet::BRIGHT_MIN; }},
        {"getSerialNumber", [](const SystemSet &panel) { return !panel.getSerialNumber().empty(); }},
        // These are no different before.
        {"getIpFromEE", [](const SystemSet &panel) { return panel.getIpFromEE(SystemSet::LAN0), true; }},
        {"get4GState", [](const SystemSet &panel) { return panel.get4GState(SystemSet::MOBILE_4G) >= 0; }},
        {"getVPNServerState",
         [](const SystemSet &panel) { return panel.getVPNServerState(SystemSet::ASIA) >= 0; }},
        {"isBuzzerOn", [](const SystemSet &panel) { return panel.isBuzzerOn(), true; }},
        {"getLanguage", [](const SystemSet &panel) { return panel.getLanguage() >= 0; }},
    };
    return all;
}
