#pragma once

#include "tests/linux/fakewifi.h"
#include "tests/linux/networkscene.h"

#include "linux/wifi.h"
#include "linux/wifiname.h"

/// A panel with a wireless adapter besides its ports.
struct WifiScene : NetworkScene {
    using Records = std::vector<HMI::SystemSet::SsidInfo>;
    static constexpr std::size_t Place = 2;

    WifiScene() : NetworkScene(false), wifi(&daemon)
    {
        panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
                  "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = wlan0\nMOBILE_4G = none\n");
        isUp = isUp && daemon.publish(bus.address());
    }
    // Its reports are put into what is here.
    ~WifiScene() { service.reset(); }
    WifiScene(const WifiScene &) = delete;
    WifiScene &operator=(const WifiScene &) = delete;

    bool startAndWait()
    {
        startService();
        return QTest::qWaitFor([this] { return adapter().known; }, Patience);
    }
    HmiLinux::AdapterState adapter() const { return service->snapshot()->adapters.at(Place); }
    HmiLinux::WifiLink link() const { return adapter().wifi; }
    HmiLinux::Wifi *driver() { return service->worker().network().wifi(); }

    void scan()
    {
        service->later(
            [this] { driver()->scan([this](std::unique_ptr<Records> list) { take(std::move(list)); }); });
    }
    void resetNetworks()
    {
        service->later(
            [this] { driver()->reset([this](std::unique_ptr<Records> list) { take(std::move(list)); }); });
    }
    bool waitForLists(std::size_t count)
    {
        return QTest::qWaitFor([this, count] { return listCount() >= count; }, Patience);
    }
    std::size_t listCount()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return lists.size();
    }
    /// A list that was delivered; null where there was none.
    const Records *list(std::size_t place = 0)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return lists.at(place).get();
    }
    /// Scans, and the list of it.
    const Records *scanned()
    {
        const std::size_t before = listCount();
        scan();
        return waitForLists(before + 1) ? list(before) : nullptr;
    }

    void join(const QByteArray &name, const char *password)
    {
        const auto secret = std::make_shared<const HmiLinux::Secret>(password);
        service->later([this, name, secret] {
            driver()->join(HmiLinux::ssidOf(name), secret, [this](HMI::SystemSet::StateWifi state) {
                const std::lock_guard<std::mutex> lock(mutex);
                reported.push_back(state);
            });
        });
    }
    /// Joins and returns what it came to.
    int joined(const QByteArray &name, const char *password)
    {
        forgetReports();
        join(name, password);
        return waitForReports(2) ? reports().at(1) : -1;
    }
    /// Lets a limit of the service end at once.
    void endLimit(const QString &name)
    {
        service->later([this, name] { driver()->findChild<QTimer *>(name)->start(0); });
    }

    // What an activation comes to, as real devices were seen to tell it.
    static FakeNetworkManager::Steps joins()
    {
        return {{40, 0}, {50, 0}, {60, 0}, {40, 0}, {50, 0}, {70, 0}, {80, 0}, {90, 0}, {100, 0}};
    }
    static FakeNetworkManager::Steps refuses() { return {{40, 0}, {50, 0}, {60, 8}, {120, 7}, {30, 0}}; }
    static FakeNetworkManager::Steps isAbsent() { return {{40, 0}, {50, 0}, {120, 53}, {30, 0}}; }

    static QByteArray nameOf(const HMI::SystemSet::SsidInfo &record)
    {
        return HmiLinux::bytesOf(record.ssid);
    }

    FakeWifi wifi;
    std::vector<std::unique_ptr<Records>> lists;

private:
    void take(std::unique_ptr<Records> list)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        lists.push_back(std::move(list));
    }
};
