#include "linux/systemset_p.h"

namespace HMI {

// Wi-Fi is not driven yet: the panel says that it has none, and answers as one without.

void SystemSet::scanWifi(const WifiListCallback &done)
{
    if (done)
        d->service.later([done] { done(nullptr); });
}

void SystemSet::resetWifi(const WifiListCallback &done)
{
    scanWifi(done);
}

void SystemSet::connectWifi(const SSID &, const std::string &, const std::function<void(StateWifi)> &done)
{
    if (done)
        d->service.later([done] { done(WIFI_OFFLINE); });
}

SSID SystemSet::currentWifiSsid() const
{
    return {};
}

bool SystemSet::isWifiConnected() const
{
    return false;
}

int SystemSet::currentWifiSignalStrength() const
{
    return 0;
}

} // namespace HMI
