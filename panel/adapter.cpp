#include "panel/adapter.h"

#include "panel/wifilink.h"
#include "shell/base/guithread.h"
#include "shell/base/logging.h"

#include <QtCore/QTimer>

namespace QSP {

using HMI::SystemSet;

namespace {

// An adapter that was just switched on needs this long before it can ask for a lease.
constexpr int leaseDelay = 1000;

struct AddressCalls {
    using Get = HMI::IP (*)(const NIC &);
    using Set = void (*)(const NIC &, const HMI::IP &, const bool &);

    Get live;   // in force now
    Get stored; // the static configuration
    Set write;
};

// By Address.
constexpr std::array<AddressCalls, g_addresses.size()> g_calls = {{
    {&callService<&SystemSet::getIp>, &callService<&SystemSet::getIpFromEE>, &callService<&SystemSet::setIp>},
    {&callService<&SystemSet::getSubnetMask>, &callService<&SystemSet::getSubnetMaskFromEE>,
     &callService<&SystemSet::setSubnetMask>},
    {&callService<&SystemSet::getGateway>, &callService<&SystemSet::getGatewayFromEE>,
     &callService<&SystemSet::setGateway>},
}};

const char *addressName(Address address)
{
    switch (address) {
    case Address::Ip:
        return "address";
    case Address::SubnetMask:
        return "mask";
    case Address::Gateway:
        return "gateway";
    }
    return "";
}

} // namespace

Adapter::Adapter(NIC nic, WifiLink *link, QObject *parent)
    : QObject(parent), m_nic(nic), m_link(link), m_leaseTimer(new QTimer(this))
{
    m_leaseTimer->setObjectName(QStringLiteral("leaseRequest"));
    m_leaseTimer->setSingleShot(true);
    // A coarse timer may come a twentieth too early.
    m_leaseTimer->setTimerType(Qt::PreciseTimer);
    m_leaseTimer->setInterval(leaseDelay);
    connect(m_leaseTimer, &QTimer::timeout, this, [this] { writeDhcp(true); });
    if (!m_link)
        return;
    connect(m_link, &WifiLink::wasReset, this, &Adapter::reset);
    const JoinAttempt *attempt = &m_link->attempt();
    connect(attempt, &JoinAttempt::joined, this, &Adapter::onJoined);
    connect(attempt, &JoinAttempt::stateChanged, this, [this](JoinAttempt::State state) {
        if (state == JoinAttempt::State::AwaitingName)
            forget();
    });
    connect(attempt, &JoinAttempt::underWayChanged, this, [this, attempt](bool isUnderWay) {
        // A new moment, unless it is that of joined(), which came first.
        if (!isUnderWay && attempt->state() != JoinAttempt::State::Joined)
            forget();
    });
}

// --- What the service says ---

bool Adapter::isUp() const
{
    return m_isUp.get([this] { return callService<&SystemSet::isNicEnabled>(m_nic); });
}

bool Adapter::isDhcpOn() const
{
    return m_isDhcpOn.get([this] { return callService<&SystemSet::isDhcpOn>(m_nic); });
}

Adapter::Dns Adapter::dns() const
{
    return m_dns.get([this] { return callService<&SystemSet::getDns>(m_nic); });
}

HMI::MAC Adapter::mac() const
{
    return m_mac.get([this] { return callService<&SystemSet::getMac>(m_nic); });
}

HMI::IP Adapter::live(Address address) const
{
    return m_live[index(address)].get([this, address] { return g_calls[index(address)].live(m_nic); });
}

HMI::IP Adapter::stored(Address address) const
{
    return m_stored[index(address)].get([this, address] { return g_calls[index(address)].stored(m_nic); });
}

bool Adapter::hasAddressByNow()
{
    for (Reading<HMI::IP> &reading : m_live)
        reading.forget();
    return live(Address::Ip) != 0;
}

bool Adapter::hasLease() const
{
    return isInUse() && isDhcpOn() && isLinked();
}

bool Adapter::isLinked() const
{
    if (!m_link)
        return true;
    // Not in passing: whoever else shows the link is to know of it.
    m_link->refresh();
    return m_link->isConnected();
}

void Adapter::forget()
{
    m_isUp.forget();
    m_isDhcpOn.forget();
    m_dns.forget();
    m_mac.forget();
    for (const Address address : g_addresses) {
        m_live[index(address)].forget();
        m_stored[index(address)].forget();
    }
}

// --- When the screen reads again ---

void Adapter::begin()
{
    if (m_isBegun)
        return;
    m_isBegun = true;
    m_isEnabled = isUp();
    m_wasUpAtFirst = m_isEnabled;
    if (!hasAddresses(m_nic))
        return;
    m_isStatic = !isDhcpOn();
    if (isDhcpOn())
        writeDhcp(true);
    if (hasLease())
        showLive();
    else
        showStored();
}

void Adapter::readAll()
{
    if (!m_isBegun)
        return;
    adoptEnabled();
    if (!hasAddresses(m_nic))
        return;
    adoptStatic();
    if (isDhcpOn())
        writeDhcp(true);
    showAgain();
}

void Adapter::adoptEnabled()
{
    if (m_isBegun && m_isEnabled != isUp())
        setEnabled(isUp());
}

void Adapter::adoptStatic()
{
    if (m_isBegun && hasAddresses(m_nic) && m_isStatic == isDhcpOn())
        setStatic(!isDhcpOn());
}

void Adapter::onDhcp(HMI::SystemSet::DHCP_STATE state)
{
    qCDebug(logNetwork, "%s: DHCP %s", adapterLabel(m_nic),
            state == HMI::SystemSet::DHCP_OK ? "done" : "failed");
    forget();
    if (m_link)
        m_link->forget();
    // An adapter that has a lease but no network yet shows nothing worth reading.
    if (state == HMI::SystemSet::DHCP_OK && !isLinked())
        return;
    showInForce();
}

void Adapter::onJoined(bool wasLeaseAwaited)
{
    if (wasLeaseAwaited)
        forget();
    if (!isLinked())
        return;
    adoptStatic();
    showInForce();
}

void Adapter::reset()
{
    if (!m_isBegun)
        return;
    if (m_isStatic)
        setStatic(false);
    for (const Address address : g_addresses) {
        if (shown(address))
            show(address, std::nullopt);
    }
}

// --- What is shown ---

void Adapter::show(Address address, std::optional<HMI::IP> value)
{
    if (m_shown[index(address)] != value)
        qCDebug(logNetwork, "%s: %s shows %s", adapterLabel(m_nic), addressName(address),
                value ? qPrintable(dotted(*value)) : "nothing");
    m_shown[index(address)] = value;
    emit shownChanged(address);
}

void Adapter::showInForce(Address address)
{
    if (!m_isBegun || !hasAddresses(m_nic) || !isInUse())
        return;
    const HMI::IP value = live(address);
    // Without a link nothing is in force; an edit would start from nothing.
    show(address, value == 0 && !isDhcpOn() ? stored(address) : value);
    m_showsInForce = true;
}

void Adapter::showInForce()
{
    if (!m_isBegun || !isUp())
        return;
    showLive();
    emit dnsDue();
}

void Adapter::showLive()
{
    for (const Address address : g_addresses)
        showInForce(address);
}

void Adapter::showStored()
{
    m_showsInForce = false;
    for (const Address address : g_addresses)
        show(address, stored(address));
}

void Adapter::showAgain()
{
    if (!m_isBegun || !hasAddresses(m_nic))
        return;
    if (hasLease())
        return showLive();
    m_showsInForce = false;
    for (const Address address : g_addresses) {
        // What a reset has emptied shows no lease that is none any more.
        if (shown(address) || !isDhcpOn())
            show(address, stored(address));
    }
}

void Adapter::dropLease()
{
    if (m_showsInForce)
        showAgain();
}

void Adapter::offerStored()
{
    // So that no edit starts from nothing.
    for (const Address address : g_addresses) {
        if (m_isBegun && shown(address).value_or(0) == 0)
            show(address, stored(address));
    }
}

// --- What the operator does ---

void Adapter::setEnabled(bool enabled)
{
    qCDebug(logNetwork, "%s: switched %s", adapterLabel(m_nic), enabled ? "on" : "off");
    m_isEnabled = enabled;
    emit enabling(enabled);
    writeEnabled(enabled);
    // What the service said itself still holds.
    if (!m_isUp.is(enabled))
        forget();
    if (m_link)
        m_link->forget();
    emit enabledChanged(enabled);
    // Its lease ends with it.
    if (!enabled)
        showAgain();
    if (m_wasUpAtFirst)
        emit dnsDue();
}

void Adapter::writeEnabled(bool enabled)
{
    callService<&SystemSet::enableNIC>(m_nic, enabled, true);
    // A request that comes after the operator's later choice would undo it.
    if (enabled && !m_isStatic && hasAddresses(m_nic))
        m_leaseTimer->start();
    else
        m_leaseTimer->stop();
}

void Adapter::setStatic(bool isStatic)
{
    qCDebug(logNetwork, "%s: %s chosen", adapterLabel(m_nic), isStatic ? "static" : "DHCP");
    m_isStatic = isStatic;
    if (isStatic)
        m_leaseTimer->stop();
    writeDhcp(!isStatic);
    if (!m_isDhcpOn.is(!isStatic))
        forget();
    // The fields can be edited from now on, whenever the service reports.
    if (isStatic)
        offerStored();
    emit staticChanged(isStatic);
}

void Adapter::writeDhcp(bool on)
{
    const auto done = onGuiThread(
        "setDHCP", this, [](Adapter *adapter, HMI::SystemSet::DHCP_STATE state) { adapter->onDhcp(state); });
    callService<&SystemSet::setDHCP>(m_nic, on, done, true);
}

void Adapter::setAddress(Address address, HMI::IP value)
{
    qCDebug(logNetwork, "%s: %s set to %s", adapterLabel(m_nic), addressName(address),
            qPrintable(dotted(value)));
    m_shown[index(address)] = value;
    m_live[index(address)].forget();
    m_stored[index(address)].forget();
    g_calls[index(address)].write(m_nic, value, true);
}

void Adapter::setDns(const Dns &dns)
{
    qCDebug(logNetwork, "%s: name servers set to %s and %s", adapterLabel(m_nic),
            qPrintable(dotted(dns.first)), qPrintable(dotted(dns.second)));
    m_dns.forget();
    callService<&SystemSet::setDns>(m_nic, dns);
}

} // namespace QSP
