#include "cards/network/wifilink.h"

#include "cards/network/nic.h"
#include "shell/approotitem.h"

#include <algorithm>

namespace QSP {

bool WifiLink::isConnected()
{
    return systemSet().isWifiConnected();
}

QString WifiLink::ssid()
{
    const HMI::SSID name = systemSet().currentWifiSsid();
    const auto end = std::find(name.begin(), name.end(), '\0');
    return QString::fromUtf8(name.data(), static_cast<int>(end - name.begin()));
}

void WifiLink::updateSignalStrength()
{
    const AppRootItem *root = AppRootItem::instance();
    QQuickItem *card = root ? root->getCardItem(AppRootItem::Cards::Wifi) : nullptr;
    // By name: the Wi-Fi page knows this card, so this card must not know the page.
    if (card && card->metaObject()->indexOfMethod("updateSignalStrength()") >= 0)
        QMetaObject::invokeMethod(card, "updateSignalStrength");
}

} // namespace QSP
