#include "panel/wifilink.h"

#include "panel/nic.h"
#include "panel/ssid.h"
#include "shell/base/logging.h"

#include <tuple>

namespace QSP {

WifiLink::WifiLink(QObject *parent) : QObject(parent) {}

WifiLink::Reading WifiLink::ask()
{
    Reading reading;
    reading.isConnected = callService<&HMI::SystemSet::isWifiConnected>();
    // The service may know the name before it calls itself connected.
    reading.ssid = terminatedSsid(callService<&HMI::SystemSet::currentWifiSsid>());
    if (reading.isConnected)
        reading.signalStrength = callService<&HMI::SystemSet::currentWifiSignalStrength>();
    return reading;
}

const WifiLink::Reading &WifiLink::reading() const
{
    if (!m_reading)
        m_reading = ask();
    return *m_reading;
}

void WifiLink::read()
{
    const Reading now = ask();
    const auto values = [](const Reading &reading) {
        return std::tie(reading.isConnected, reading.ssid, reading.signalStrength);
    };
    const bool isNew = !m_reading || values(*m_reading) != values(now);
    m_reading = now;
    if (isNew) {
        qCDebug(logWifi, "link: %s \"%s\", %d %%", now.isConnected ? "connected to" : "not connected,",
                qUtf8Printable(displayName(getSsidFromCurWifi(now.ssid))), now.signalStrength);
        emit changed();
    }
    emit wasRead();
}

void WifiLink::refresh()
{
    if (!m_reading)
        read();
}

void WifiLink::reset()
{
    m_attempt.reset();
    emit wasReset();
}

QString WifiLink::name() const
{
    return getSsidFromCurWifi(ssid());
}

} // namespace QSP
