#pragma once

#include "tests/lab/labscene.h"
#include "tests/lab/refusals.h"

/// The networks that are heard on the device, and joining them.
namespace Lab {

using Networks = std::vector<SystemSet::SsidInfo>;
using NetworkList = std::shared_ptr<const Networks>;

struct Network {
    const char *place; ///< its word for the control
    const char *name;
    const char *password;
};
constexpr Network Wpa2{"wpa2", "Lab WPA2", "the old way"};
constexpr Network Wpa3{"wpa3", "Lab WPA3", "the new way"};

inline HMI::SSID ssidOf(const char *name)
{
    HMI::SSID ssid = {};
    qstrncpy(ssid.data(), name, uint(ssid.size()));
    return ssid;
}

/// The network of a list; null where it has none of this name.
inline const SystemSet::SsidInfo *find(const NetworkList &list, const Network &network)
{
    if (!list)
        return nullptr;
    const auto found =
        std::find_if(list->cbegin(), list->cend(), [&network](const SystemSet::SsidInfo &record) {
            return qstrcmp(record.ssid.data(), network.name) == 0;
        });
    return found == list->cend() ? nullptr : &*found;
}

/// The list that @p ask delivers; null for none.
template <class Ask> NetworkList listOf(const Ask &ask)
{
    const auto reports = std::make_shared<Reports<NetworkList>>();
    ask([reports](std::unique_ptr<Networks> list) { reports->add(NetworkList(std::move(list))); });
    return reports->waitFor(1) ? reports->at(0) : nullptr;
}

/// Scans. The device is slow: that a scan takes longer than the service waits is no fault of either.
inline NetworkList scanned()
{
    const Refusals refusals;
    NetworkList list = listOf([](const SystemSet::WifiListCallback &done) { panel().scanWifi(done); });
    const QStringList told = Refusals::told().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &warning : told) {
        if (!warning.contains(QLatin1String("the scan does not end")))
            QWARN(warning.toUtf8().constData());
    }
    return list;
}

/// A list that has the network: a radio does not hear everything each time.
inline NetworkList scannedWith(const Network &network)
{
    for (int attempt = 0; attempt < 8; ++attempt) {
        if (NetworkList list = scanned(); find(list, network))
            return list;
    }
    return nullptr;
}

/// Joins, and what it comes to; -1 for nothing.
inline int joined(const Network &network, const char *password)
{
    const auto reports = std::make_shared<Reports<int>>();
    panel().connectWifi(ssidOf(network.name), password,
                        [reports](SystemSet::StateWifi state) { reports->add(state); });
    if (!reports->waitFor(2) || reports->at(0) != SystemSet::WIFI_CONNECTING)
        return -1;
    return reports->at(1);
}

inline bool isIn(const Network &network)
{
    return panel().isWifiConnected() && panel().currentWifiSsid() == ssidOf(network.name);
}

/// Whether the address is one of the network's servers.
inline bool hasAddressOf(quint32 subnet)
{
    return (quint32(panel().getIp(SystemSet::WIFI)) & 0xFFFFFF00U) == subnet;
}

} // namespace Lab
