#pragma once

#include "tests/linux/fakenetworkmanager.h"
#include "tests/linux/privatebus.h"
#include "tests/linux/servicescene.h"

#include "linux/nmnames.h"

/// A panel whose daemon is the test's own.
struct NetworkScene : ServiceScene {
    explicit NetworkScene(bool withDaemon = true)
    {
        daemon.addPort(QStringLiteral("lan0"), QStringLiteral("02:00:00:00:00:10"));
        daemon.addPort(QStringLiteral("lan1"), QStringLiteral("02:00:00:00:00:11"));
        isUp = bus.start() && (!withDaemon || daemon.publish(bus.address()));
    }
    ~NetworkScene() { service.reset(); }
    NetworkScene(const NetworkScene &) = delete;
    NetworkScene &operator=(const NetworkScene &) = delete;

    void startService() { startOn(bus.address()); }
    bool startAndWait()
    {
        startService();
        return waitForDaemon();
    }

    /// Puts LAN0 on a lease with a profile of the panel's own.
    bool giveProfile()
    {
        setDhcp(true);
        const bool isThere = waitForReports(1) && waitForWishes();
        forgetReports();
        daemon.forgetCalls();
        return isThere;
    }

    PrivateBus bus;
    FakeNetworkManager daemon;
    bool isUp = false;
};
