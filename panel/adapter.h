#pragma once

#include "panel/nic.h"
#include "panel/reading.h"

#include <QtCore/QObject>

#include <array>
#include <optional>
#include <utility>

class QTimer;

namespace QSP {

class WifiLink;

/// The addresses of an adapter that can be seen and edited, in the order in which they are shown.
enum class Address { Ip, SubnetMask, Gateway };
inline constexpr std::array<Address, 3> g_addresses = {Address::Ip, Address::SubnetMask, Address::Gateway};

/// A network adapter: what the service says of it and what the operator chose, and what follows from both.
///
/// The choices run ahead of the service, so that the screen answers to the operator before the service
/// confirms. A choice is written at once and stored; the order of the calls that write is fixed, platforms
/// rely on it. 4G and VPN can be switched on and off, the rest is for adapters that have addresses.
///
/// GUI thread only.
class Adapter : public QObject
{
    Q_OBJECT

public:
    using Dns = std::pair<HMI::IP, HMI::IP>;

    /// @p link is what the adapter needs to have a lease, null for a wired one; it must outlive the adapter.
    Adapter(NIC nic, WifiLink *link, QObject *parent);

    NIC nic() const { return m_nic; }

    // What the service says.
    bool isUp() const;
    bool isDhcpOn() const;
    Dns dns() const;
    HMI::MAC mac() const;
    /// Whether an address is in force by now: asks anew, whatever was read of the addresses before.
    bool hasAddressByNow();

    // What the operator chose. The service's own values once the adapter is shown.
    bool isEnabled() const { return m_isEnabled; }
    bool isStatic() const { return m_isStatic; }
    /// Whether addresses and name servers may be edited.
    bool mayEdit() const { return m_isEnabled && m_isStatic; }

    /// What is to be shown for an address; nothing after a reset. An edit under way is not its business.
    std::optional<HMI::IP> shown(Address address) const { return m_shown[index(address)]; }

    /// The adapter is shown for the first time: takes over the service's values, and asks for a lease again if
    /// it lives by one.
    void begin();
    bool isBegun() const { return m_isBegun; }

    // What the operator does.
    void setEnabled(bool enabled);
    void setStatic(bool isStatic);
    void setAddress(Address address, HMI::IP value);
    void setDns(const Dns &dns);

    // When the screen reads again: forget(), then what is to follow. What was not forgotten is not asked again.

    /// A new moment: what was read counts no more.
    void forget();
    /// The screen was opened: as begin(). A choice that the service does not share is made once more, with
    /// the service's own value.
    void readAll();
    /// The same for one choice alone.
    void adoptEnabled();
    void adoptStatic();
    /// The adapter is seen again: shows what one shown for the first time would show.
    void showAgain();
    /// What is in force may have changed: shows it unless the adapter is off.
    void showInForce();
    void showInForce(Address address);
    /// showAgain(), if what is shown may be a lease: for whoever finds again and again that there is none.
    void dropLease();
    /// A DHCP request was answered.
    void onDhcp(HMI::SystemSet::DHCP_STATE state);
    /// The Wi-Fi configuration was reset: back to DHCP, and nothing to show.
    void reset();

signals:
    /// Before the service is told.
    void enabling(bool enabled);
    void enabledChanged(bool enabled);
    void staticChanged(bool isStatic);
    /// The same value may be shown again: an edit may stand in its place.
    void shownChanged(QSP::Address address);
    /// The name servers may have changed.
    void dnsDue();

private:
    template <class Value> using PerAddress = std::array<Value, g_addresses.size()>;
    static std::size_t index(Address address) { return static_cast<std::size_t>(address); }

    HMI::IP live(Address address) const;
    HMI::IP stored(Address address) const;
    bool isInUse() const { return isUp() && m_isEnabled; }
    bool hasLease() const;
    bool isLinked() const;

    void show(Address address, std::optional<HMI::IP> value);
    void showLive();
    void showStored();
    void offerStored();

    void onJoined(bool wasLeaseAwaited);
    void writeEnabled(bool enabled);
    void writeDhcp(bool on);

    const NIC m_nic;
    WifiLink *const m_link;
    QTimer *const m_leaseTimer;

    Reading<bool> m_isUp;
    Reading<bool> m_isDhcpOn;
    Reading<Dns> m_dns;
    Reading<HMI::MAC> m_mac;
    PerAddress<Reading<HMI::IP>> m_live;
    PerAddress<Reading<HMI::IP>> m_stored;

    bool m_isBegun = false;
    bool m_wasUpAtFirst = false; ///< only then switching it lets the name servers be shown again
    bool m_isEnabled = false;
    bool m_isStatic = false;
    bool m_showsInForce = false;
    PerAddress<std::optional<HMI::IP>> m_shown;
};

} // namespace QSP

Q_DECLARE_METATYPE(QSP::Address)
