#pragma once

#include "tests/linux/servicescene.h"

#include "linux/wifi.h"
#include "linux/wifiname.h"

/// What an operator does with the wireless adapter of a panel.
class WifiActs
{
public:
    using Records = std::vector<HMI::SystemSet::SsidInfo>;
    static constexpr std::size_t Place = 2;

    explicit WifiActs(ServiceScene *scene) : m_scene(scene) {}

    HmiLinux::AdapterState adapter() const { return m_scene->service->snapshot()->adapters.at(Place); }
    HmiLinux::WifiLink link() const { return adapter().wifi; }
    /// Does something where the service does it.
    template <class Act> void act(const Act &what)
    {
        HmiLinux::Service *service = m_scene->service.get();
        service->later([service, what] { what(service->worker().network().wifi()); });
    }
    bool waitForAdapter() const
    {
        return QTest::qWaitFor([this] { return adapter().known; }, ServiceScene::Patience);
    }

    void scan()
    {
        act([this](HmiLinux::Wifi *wifi) {
            wifi->scan([this](std::unique_ptr<Records> list) { take(std::move(list)); });
        });
    }
    void resetNetworks()
    {
        act([this](HmiLinux::Wifi *wifi) {
            wifi->reset([this](std::unique_ptr<Records> list) { take(std::move(list)); });
        });
    }
    bool waitForLists(std::size_t count)
    {
        return QTest::qWaitFor([this, count] { return listCount() >= count; }, ServiceScene::Patience);
    }
    std::size_t listCount()
    {
        const std::lock_guard<std::mutex> lock(m_scene->mutex);
        return m_lists.size();
    }
    /// A list that was delivered; null where there was none.
    const Records *list(std::size_t place = 0)
    {
        const std::lock_guard<std::mutex> lock(m_scene->mutex);
        return m_lists.at(place).get();
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
        act([this, name, secret](HmiLinux::Wifi *wifi) {
            wifi->join(HmiLinux::ssidOf(name), secret, [this](HMI::SystemSet::StateWifi state) {
                const std::lock_guard<std::mutex> lock(m_scene->mutex);
                m_scene->reported.push_back(state);
            });
        });
    }
    /// Joins and returns what it came to.
    int joined(const QByteArray &name, const char *password)
    {
        m_scene->forgetReports();
        join(name, password);
        return m_scene->waitForReports(2) ? m_scene->reports().at(1) : -1;
    }
    /// Lets a limit of the service end at once.
    void endLimit(const QString &name)
    {
        act([name](HmiLinux::Wifi *wifi) { wifi->findChild<QTimer *>(name)->start(0); });
    }

    static QByteArray nameOf(const HMI::SystemSet::SsidInfo &record)
    {
        return HmiLinux::bytesOf(record.ssid);
    }

private:
    void take(std::unique_ptr<Records> list)
    {
        const std::lock_guard<std::mutex> lock(m_scene->mutex);
        m_lists.push_back(std::move(list));
    }

    ServiceScene *m_scene;
    std::vector<std::unique_ptr<Records>> m_lists;
};
