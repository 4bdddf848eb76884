#pragma once

#include "linux/modemstate.h"
#include "linux/profile.h"
#include "linux/vpnstate.h"
#include "linux/wifilink.h"

#include <array>
#include <optional>

namespace HmiLinux {

/// The adapters, as places in a list.
constexpr std::array<HMI::SystemSet::NIC, 5> Adapters = {HMI::SystemSet::LAN0, HMI::SystemSet::LAN1,
                                                         HMI::SystemSet::WIFI, HMI::SystemSet::MOBILE_4G,
                                                         HMI::SystemSet::VPN};
/// Nothing for what is no single adapter.
std::optional<std::size_t> placeOf(HMI::SystemSet::NIC nic);
/// As configuration and log call it.
QString nameOf(HMI::SystemSet::NIC nic);

/// What the operator asked of an adapter that the daemon has not answered yet. It is what getters say meanwhile.
struct Wish {
    std::optional<bool> enabled;
    std::optional<bool> dhcp;
    std::optional<HMI::IP> ip;
    std::optional<HMI::IP> mask;
    std::optional<HMI::IP> gateway;
    std::optional<Dns> dns;
    std::optional<bool> isDefault;
    bool persist = true;
    quint64 number = 0; ///< grows with each thing asked

    bool isEmpty() const;
    bool hasAddresses() const { return ip || mask || gateway; }
    /// @p values with what is wished in their place.
    ProfileValues over(ProfileValues values) const;
};

/// One adapter as it is.
struct AdapterState {
    bool known = false; ///< the daemon has a device for it
    ProfileValues values = {false, false, {}, {}, false};
    Addresses live;
    Dns liveDns;
    HMI::MAC mac = {};
    bool carriesDefaultRoute = false;
    WifiLink wifi;      ///< of the wireless adapter alone
    bool isKept = true; ///< there is a profile of the panel's own, or there will be when one is needed
    // For who writes, not for who reads.
    uint deviceState = 0;
    QString interface;     ///< the one that packets take; empty when it is not told
    QString device;        ///< path
    QString activeProfile; ///< path; empty when none is in force
    QString profile;       ///< path of the panel's own; empty until it is made
    QStringList others;    ///< paths of more of them: of networks that are not joined
    /// The panel's own is for another interface, which was this adapter before the configuration changed.
    bool isBoundElsewhere = false;
    bool autoconnects = false; ///< the daemon puts in force what fits, by itself

    /// Whether there is a profile of the panel's own, for this adapter and no other.
    bool hasOwn() const { return !profile.isEmpty() && !isBoundElsewhere; }
};

/// All that getters of the network answer from. Immutable once published.
struct Snapshot {
    std::array<AdapterState, Adapters.size()> adapters;
    std::array<Wish, Adapters.size()> wishes;
    ModemState modem;
    VpnChoice vpn;
    VpnLinks vpnLinks = {};
    int round = 0; ///< readings of the daemon so far

    /// What is set, or will be when the daemon has done as asked.
    ProfileValues values(std::size_t place) const;
    Dns dns(std::size_t place) const;
    /// Nothing when neither the operator nor the daemon has chosen.
    std::optional<std::size_t> defaultPlace() const;
};

} // namespace HmiLinux
