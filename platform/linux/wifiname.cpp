#include "linux/wifiname.h"

#include <algorithm>

namespace HmiLinux {

HMI::SSID ssidOf(const QByteArray &name)
{
    HMI::SSID ssid{};
    if (std::size_t(name.size()) < ssid.size())
        std::copy(name.cbegin(), name.cend(), ssid.begin());
    return ssid;
}

QByteArray bytesOf(const HMI::SSID &ssid)
{
    const auto *end = std::find(ssid.begin(), std::prev(ssid.end()), '\0');
    return {ssid.data(), int(std::distance(ssid.begin(), end))};
}

QByteArray wifiNameIn(const QVariant &value)
{
    const QByteArray name = value.toByteArray();
    const bool isUsable =
        std::size_t(name.size()) < std::tuple_size<HMI::SSID>::value && !name.contains('\0');
    return isUsable ? name : QByteArray();
}

} // namespace HmiLinux
