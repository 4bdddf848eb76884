#pragma once

#include "tests/linux/fakewifi.h"
#include "tests/linux/networkscene.h"
#include "tests/linux/wifiacts.h"

/// A panel with a wireless adapter besides its ports.
struct WifiScene : NetworkScene, WifiActs {
    WifiScene() : NetworkScene(false), WifiActs(this), wifi(&daemon)
    {
        panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
                  "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = wlan0\nMOBILE_4G = none\n");
        isUp = isUp && daemon.publish(bus.address());
    }
    // Its reports are put into what is here.
    ~WifiScene() { service.reset(); }
    WifiScene(const WifiScene &) = delete;
    WifiScene &operator=(const WifiScene &) = delete;

    bool startWithWifi()
    {
        startService();
        return waitForAdapter();
    }

    // What an activation comes to, as real devices were seen to tell it.
    static FakeNetworkManager::Steps joins()
    {
        return {{40, 0}, {50, 0}, {60, 0}, {40, 0}, {50, 0}, {70, 0}, {80, 0}, {90, 0}, {100, 0}};
    }
    static FakeNetworkManager::Steps refuses() { return {{40, 0}, {50, 0}, {60, 8}, {120, 7}, {30, 0}}; }
    static FakeNetworkManager::Steps isAbsent() { return {{40, 0}, {50, 0}, {120, 53}, {30, 0}}; }

    FakeWifi wifi;
};
