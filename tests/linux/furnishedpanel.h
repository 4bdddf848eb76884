#pragma once

#include "tests/linux/fakemodemmanager.h"
#include "tests/linux/fakevpn.h"
#include "tests/linux/fakewifi.h"
#include "tests/linux/paneldirectory.h"
#include "tests/linux/privatebus.h"

/// A panel with all that the service asks for: files in a temporary directory, timedated and logind of our own, and
/// NetworkManager with a modem, tunnels and networks too unless the system's bus has a real one.
class FurnishedPanel
{
public:
    enum class Daemons { Own, Real };

    explicit FurnishedPanel(Daemons daemons = Daemons::Own);
    FurnishedPanel(const FurnishedPanel &) = delete;
    FurnishedPanel &operator=(const FurnishedPanel &) = delete;

    /// Whether the daemons can be reached from now on. Processes that are started then find the panel.
    bool start();

    FakeNetworkManager &network() { return m_network; }
    FakeWifi &wifi() { return m_wifi; }

private:
    void furnishFiles() const;
    void furnishNetwork();
    void furnishWifi();

    bool m_isReal;
    PanelDirectory m_files;
    PrivateBus m_bus;
    FakeNetworkManager m_network;
    FakeVpn m_tunnels{&m_network};
    FakeWifi m_wifi{&m_network};
    FakeModemManager m_modems;
    FakeObjects m_others;
};
