#include "cards/network/wifilink.h"

#include "panel/nic.h"
#include "panel/ssid.h"
#include "shell/approotitem.h"
#include "shell/rootof.h"

namespace QSP {

bool WifiLink::isConnected()
{
    return systemSet().isWifiConnected();
}

QString WifiLink::ssid()
{
    return getSsidFromCurWifi(systemSet().currentWifiSsid());
}

void WifiLink::updateSignalStrength(const QQuickItem *card)
{
    const AppRootItem *root = rootOf(card);
    QQuickItem *page = root ? root->getCardItem(AppRootItem::Cards::Wifi) : nullptr;
    // By name: the Wi-Fi page knows this card, so this card must not know the page.
    if (page && page->metaObject()->indexOfMethod("updateSignalStrength()") >= 0)
        QMetaObject::invokeMethod(page, "updateSignalStrength");
}

} // namespace QSP
