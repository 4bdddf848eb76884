#include "panel/wifilink.h"

#include "panel/nic.h"
#include "panel/ssid.h"

namespace QSP {

bool WifiLink::isConnected() const
{
    return systemSet().isWifiConnected();
}

HMI::SSID WifiLink::ssid() const
{
    return terminatedSsid(systemSet().currentWifiSsid());
}

QString WifiLink::name() const
{
    return getSsidFromCurWifi(ssid());
}

int WifiLink::signalStrength() const
{
    return systemSet().currentWifiSignalStrength();
}

} // namespace QSP
