#include "simulator/wifineighbourhood.h"

#include "simulator/addressing.h"
#include "simulator/core.h"
#include "simulator/simulator.h"

#include <algorithm>

namespace HmiSimulator {

using HMI::SSID;
using HMI::SystemSet;

namespace {

constexpr std::size_t NameBytes = 32;

bool sameName(const std::string &a, const std::string &b)
{
    return nameOf(ssidOf(a)).compare(0, NameBytes, nameOf(ssidOf(b)), 0, NameBytes) == 0;
}

SystemSet::SsidInfo record(const Network &network)
{
    const std::string stored = network.stored.value_or(std::string());
    const bool asks = !network.password.empty() && !network.stored;
    SystemSet::SsidInfo info;
    info.ssid = ssidOf(network.name);
    info.password = stored;
    info.signal = static_cast<unsigned char>(adrift(network.signal, network.drift));
    info.needsPassword = static_cast<unsigned char>(network.needsPassword.value_or(asks ? 1 : 0));
    return info;
}

} // namespace

std::string nameOf(const SSID &ssid)
{
    return {ssid.begin(), std::find(ssid.begin(), ssid.end(), '\0')};
}

SSID ssidOf(const std::string &name)
{
    SSID ssid{};
    std::copy_n(name.begin(), std::min(name.size(), ssid.size()), ssid.begin());
    return ssid;
}

Network *findNetwork(Wifi &wifi, const std::string &name)
{
    const auto found = std::find_if(wifi.networks.begin(), wifi.networks.end(),
                                    [&name](const Network &network) { return sameName(network.name, name); });
    return found == wifi.networks.end() ? nullptr : &*found;
}

const Network *knownNetwork(const Wifi &wifi)
{
    const auto found = std::find_if(wifi.networks.begin(), wifi.networks.end(), [](const Network &network) {
        return network.answers && network.stored == network.password;
    });
    return found == wifi.networks.end() ? nullptr : &*found;
}

void enter(Wifi &wifi, const std::string &name)
{
    wifi.connected = true;
    wifi.joined = name;
}

void leave(Wifi &wifi)
{
    wifi.connected = false;
    wifi.joined.clear();
}

int adrift(int signal, int drift)
{
    if (drift <= 0)
        return signal;
    return std::clamp(signal + Core::instance().drift(drift), 1, 100);
}

std::vector<Network> crowd(int count)
{
    static const char *const places[] = {"Hall", "Line", "Office", "Store", "Dock", "Lab", "Gate"};
    std::vector<Network> networks;
    for (int i = 0; i < count; ++i) {
        Network network;
        network.name = std::string(places[i % 7]) + ' ' + std::to_string(i + 1);
        network.signal = 100 - i * 7 % 97;
        if (i % 3 != 0)
            network.password = "password-" + std::to_string(i + 1);
        if (i % 5 == 1)
            network.stored = network.password;
        networks.push_back(network);
    }
    return networks;
}

std::vector<SystemSet::SsidInfo> scan(Panel &panel)
{
    std::vector<SystemSet::SsidInfo> list;
    list.reserve(panel.wifi.networks.size());
    for (const Network &network : panel.wifi.networks)
        list.push_back(record(network));
    return list;
}

void forgetAll(Panel &panel)
{
    for (Network &network : panel.wifi.networks)
        network.stored.reset();
    dropLink(panel);
}

void dropLink(Panel &panel)
{
    leave(panel.wifi);
    if (Adapter *wifi = panel.find(SystemSet::WIFI))
        wifi->live = {};
}

SystemSet::StateWifi join(Panel &panel, const std::string &name, const std::string &password)
{
    const Adapter *adapter = panel.find(SystemSet::WIFI);
    if (adapter == nullptr || !adapter->enabled || !adapter->link)
        return SystemSet::WIFI_OFFLINE;
    Network *network = findNetwork(panel.wifi, name);
    if (network == nullptr || !network->answers)
        return SystemSet::WIFI_TIMEOUT;
    if (!network->password.empty() && network->password != password) {
        network->stored.reset();
        return SystemSet::WIFI_WRONG_PASSWORD;
    }
    network->stored = network->password;
    enter(panel.wifi, network->name);
    if (!adapter->dhcp)
        applyStored(panel, SystemSet::WIFI);
    return SystemSet::WIFI_CONNECTED;
}

int currentSignal(const Panel &panel)
{
    if (!panel.wifi.connected)
        return 0;
    for (const Network &network : panel.wifi.networks) {
        if (sameName(network.name, panel.wifi.joined))
            return adrift(network.signal, network.drift);
    }
    return panel.wifi.signal;
}

} // namespace HmiSimulator
