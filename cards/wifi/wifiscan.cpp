#include "cards/wifi/wifiscan.h"

#include "panel/nic.h"
#include "shell/base/guithread.h"
#include "shell/base/logging.h"

namespace QSP {

WifiScan::WifiScan(QObject *parent) : QObject(parent), m_limit(ServiceLimits::scan, "scanLimit", this)
{
    connect(&m_limit, &QTimer::timeout, this, [this] { answer(nullptr); });
}

WifiScan::~WifiScan() = default;

void WifiScan::scan()
{
    callService<&HMI::SystemSet::scanWifi>(receiver("scanWifi"));
}

void WifiScan::reset()
{
    callService<&HMI::SystemSet::resetWifi>(receiver("resetWifi"));
}

HMI::SystemSet::WifiListCallback WifiScan::receiver(const char *operation)
{
    qCDebug(logWifi, "%s asked for", operation);
    m_receiver = std::make_unique<QObject>();
    m_limit.start();
    return onGuiThread(operation, m_receiver.get(),
                       [this](QObject *, const Records &records) { answer(records); });
}

void WifiScan::answer(const Records &records)
{
    m_receiver.reset();
    m_limit.stop();
    if (records)
        qCDebug(logWifi, "scan: %d networks", static_cast<int>(records->size()));
    else
        qCDebug(logWifi, "scan: no list");
    emit answered(records);
}

} // namespace QSP
