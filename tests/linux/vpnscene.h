#pragma once

#include "tests/linux/fakevpn.h"
#include "tests/linux/networkscene.h"

#include "linux/vpntunnel.h"

/// A panel with tunnels to both servers.
struct VpnScene : NetworkScene {
    VpnScene() { configure("Asia = asia\nEurope = europe\nretry = 1\n"); }
    ~VpnScene() { service.reset(); }
    VpnScene(const VpnScene &) = delete;
    VpnScene &operator=(const VpnScene &) = delete;

    void configure(const QByteArray &tunnels) const
    {
        panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
                  "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = none\nMOBILE_4G = none\n[vpn]\n" + tunnels);
    }
    void addBoth()
    {
        vpn.addConnection(QStringLiteral("asia"));
        vpn.addConnection(QStringLiteral("europe"));
    }
    void switchTunnel(bool on)
    {
        service->vpn().setOn(on, true);
        onTunnel([](HmiLinux::VpnTunnel *tunnel) { tunnel->choose(); });
    }
    void choose(HMI::SystemSet::VPNServer server)
    {
        service->vpn().setServer(server);
        onTunnel([](HmiLinux::VpnTunnel *tunnel) { tunnel->choose(); });
    }
    void drop(HMI::SystemSet::VPNServer server)
    {
        onTunnel([server](HmiLinux::VpnTunnel *tunnel) { tunnel->drop(server); });
    }
    template <class Act> void onTunnel(const Act &act)
    {
        // Not through the member, which is null already while the service ends.
        service->later([known = service.get(), act] { act(known->worker().network().vpn()); });
    }
    /// In the numbers of the contract.
    int link(HMI::SystemSet::VPNServer server = HMI::SystemSet::ASIA) const
    {
        return int(service->vpnLink(server));
    }
    HMI::IP address() const { return service->snapshot()->adapters.at(4).live.ip; }

    FakeVpn vpn{&daemon};
};
