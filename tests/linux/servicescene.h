#pragma once

#include "tests/linux/paneldirectory.h"
#include "tests/support/paneltest.h"

#include "linux/addressrules.h"
#include "linux/service.h"
#include "linux/worker.h"

#include <chrono>
#include <future>
#include <mutex>
#include <vector>

/// A panel with two wired ports and its service, as an operator uses it.
struct ServiceScene {
    ServiceScene()
    {
        panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
                  "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = none\nMOBILE_4G = none\n");
    }

    /// @p bus is the address of a message bus; empty for the system's.
    void startOn(const QString &bus) { service = std::make_unique<HmiLinux::Service>(panel.root(), bus); }
    /// Whether the service has read the daemon.
    bool waitForDaemon() const
    {
        return QTest::qWaitFor([this] { return lan0().known; }, Patience);
    }
    /// Whether the worker has done what it was asked for so far. A daemon on this thread stands still meanwhile.
    bool waitForWorker() const
    {
        const auto done = std::make_shared<std::promise<void>>();
        service->later([done] { done->set_value(); });
        return done->get_future().wait_for(std::chrono::milliseconds(Patience)) == std::future_status::ready;
    }
    HmiLinux::AdapterState lan0() const { return service->snapshot()->adapters.at(0); }
    HmiLinux::AdapterState lan1() const { return service->snapshot()->adapters.at(1); }
    HmiLinux::ProfileValues values(std::size_t place = 0) const { return service->snapshot()->values(place); }
    bool hasWish(std::size_t place = 0) const { return !service->snapshot()->wishes.at(place).isEmpty(); }
    bool waitForWishes() const
    {
        return QTest::qWaitFor([this] { return !hasWish(0) && !hasWish(1); }, Patience);
    }

    template <class Ask> void gather(std::size_t place, const Ask &ask)
    {
        service->wish(place, true, ask);
        service->later([this, place] { service->worker().network().writer(place)->gather(); });
    }
    void setAddresses(const HmiLinux::Addresses &addresses)
    {
        // One after the other, as a page does.
        gather(0, [&](HmiLinux::Wish &wish) { wish.ip = addresses.ip; });
        gather(0, [&](HmiLinux::Wish &wish) { wish.mask = addresses.mask; });
        gather(0, [&](HmiLinux::Wish &wish) { wish.gateway = addresses.gateway; });
    }
    void enable(bool on, std::size_t place = 0)
    {
        service->wish(place, true, [on](HmiLinux::Wish &wish) { wish.enabled = on; });
        service->later([this, place] { service->worker().network().writer(place)->writeEnabled(); });
    }
    void setDhcp(bool on, std::size_t place = 0)
    {
        service->wish(place, true, [on](HmiLinux::Wish &wish) { wish.dhcp = on; });
        service->later([this, place] {
            service->worker().network().writer(place)->writeDhcp([this](HMI::SystemSet::DHCP_STATE state) {
                const std::lock_guard<std::mutex> lock(mutex);
                reported.push_back(state);
            });
        });
    }
    QVector<int> reports()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return QVector<int>(reported.begin(), reported.end());
    }
    void forgetReports()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        reported.clear();
    }
    /// Waits until as many requests have been answered.
    bool waitForReports(int count)
    {
        return QTest::qWaitFor([this, count] { return reports().size() >= count; }, Patience);
    }

    static HMI::IP ip(const char *dotted) { return *HmiLinux::addressOf(QString::fromLatin1(dotted)); }

    static constexpr int Patience = 30000;
    PanelDirectory panel;
    std::mutex mutex;
    std::vector<int> reported;
    std::unique_ptr<HmiLinux::Service> service; // ends before what its reports are put into
};
