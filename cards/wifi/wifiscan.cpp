#include "cards/wifi/wifiscan.h"

#include "panel/nic.h"
#include "shell/base/guithread.h"

namespace QSP {

WifiScan::WifiScan(QObject *parent) : QObject(parent), m_limit(ServiceLimits::scan, "scanLimit", this)
{
    connect(&m_limit, &QTimer::timeout, this, [this] { answer(nullptr); });
}

WifiScan::~WifiScan() = default;

void WifiScan::scan()
{
    systemSet().scanWifi(receiver());
}

void WifiScan::reset()
{
    systemSet().resetWifi(receiver());
}

HMI::SystemSet::WifiListCallback WifiScan::receiver()
{
    m_receiver = std::make_unique<QObject>();
    m_limit.start();
    return onGuiThread(m_receiver.get(), [this](QObject *, const Records &records) { answer(records); });
}

void WifiScan::answer(const Records &records)
{
    m_receiver.reset();
    m_limit.stop();
    emit answered(records);
}

} // namespace QSP
