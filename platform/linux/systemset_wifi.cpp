#include "linux/systemset_p.h"

#include "linux/wifi.h"
#include "linux/worker.h"

using namespace HmiLinux;

namespace HMI {

void SystemSet::scanWifi(const WifiListCallback &done)
{
    d->service.later([this, done] {
        if (Wifi *wifi = d->service.worker().network().wifi())
            wifi->scan(done);
        else if (done)
            done(nullptr);
    });
}

void SystemSet::resetWifi(const WifiListCallback &done)
{
    if (d->onlyTells(QStringLiteral("forget all networks")))
        return scanWifi(done);
    d->service.later([this, done] {
        if (Wifi *wifi = d->service.worker().network().wifi())
            wifi->reset(done);
        else if (done)
            done(nullptr);
    });
}

void SystemSet::connectWifi(const SSID &ssid, const std::string &password,
                            const std::function<void(StateWifi)> &done)
{
    const QByteArray name = QByteArray(ssid.data(), int(ssid.size()));
    if (d->onlyTells(QStringLiteral("join the network ") + QString::fromUtf8(name.constData()))) {
        if (done)
            d->service.later([done] { done(WIFI_OFFLINE); });
        return;
    }
    const auto secret = std::make_shared<const Secret>(password);
    d->service.later([this, ssid, secret, done] {
        if (Wifi *wifi = d->service.worker().network().wifi())
            wifi->join(ssid, secret, done);
        else if (done)
            done(WIFI_OFFLINE);
    });
}

SSID SystemSet::currentWifiSsid() const
{
    return d->read<SSID>(
        WIFI, [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).wifi.ssid; });
}

bool SystemSet::isWifiConnected() const
{
    return d->read<bool>(
        WIFI, [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).wifi.isJoined; });
}

int SystemSet::currentWifiSignalStrength() const
{
    return d->read<int>(
        WIFI, [](const Snapshot &now, std::size_t place) { return now.adapters.at(place).wifi.strength; });
}

} // namespace HMI
