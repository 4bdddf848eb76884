// A panel with one wired adapter, in memory. Where the comments say "here", a real panel does something.

#include <hmi/systemset.h>

#include "worker.h"

namespace HMI {

namespace {

struct Addresses {
    IP ip;
    IP mask;
    IP gateway;
};

struct Adapter {
    bool isEnabled = false;
    bool isDhcpOn = false;
    Addresses stored;
    Addresses lease;
    std::pair<IP, IP> dns;

    Addresses inForce() const { return !isEnabled ? Addresses() : isDhcpOn ? lease : stored; }
};

constexpr Addresses FactoryAddresses = {0xC0A80164, 0xFFFFFF00, 0xC0A80101}; // 192.168.1.100
constexpr Addresses FirstLease = {0xC0A8014D, 0xFFFFFF00, 0xC0A80101};

/// What getters answer from: nothing of it has to be waited for.
struct State {
    Adapter lan{true, false, FactoryAddresses, {}, {0xC0A80101, 0}};
    Adapter none;
    SystemSet::VPNServer server = SystemSet::ASIA;
    int bright = 20;
    bool isBuzzerOn = true;
    SystemSet::Language language = SystemSet::ENGLISH;

    const Adapter &of(SystemSet::NIC nic) const { return nic == SystemSet::LAN0 ? lan : none; }
};

} // namespace

struct SystemSet::Private {
    State state() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return known;
    }
    template <class Edit> void change(Edit edit)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        edit(known);
    }
    template <class Edit> void changeAdapter(NIC nic, Edit edit)
    {
        if (nic == LAN0)
            change([&edit](State &state) { edit(state.lan); });
    }

    mutable std::mutex mutex;
    State known;
    Worker worker; // last, so that it ends first: after it has, no callback comes
};

SystemSet::SystemSet() : d(new Private) {}

SystemSet::~SystemSet()
{
    delete d;
}

// Addresses

IP SystemSet::getIp(NIC nic) const
{
    return d->state().of(nic).inForce().ip;
}

IP SystemSet::getSubnetMask(NIC nic) const
{
    return d->state().of(nic).inForce().mask;
}

IP SystemSet::getGateway(NIC nic) const
{
    return d->state().of(nic).inForce().gateway;
}

IP SystemSet::getIpFromEE(NIC nic) const
{
    return d->state().of(nic).stored.ip;
}

IP SystemSet::getSubnetMaskFromEE(NIC nic) const
{
    return d->state().of(nic).stored.mask;
}

IP SystemSet::getGatewayFromEE(NIC nic) const
{
    return d->state().of(nic).stored.gateway;
}

void SystemSet::setIp(NIC nic, IP ip, bool)
{
    d->changeAdapter(nic, [ip](Adapter &adapter) { adapter.stored.ip = ip; });
}

void SystemSet::setSubnetMask(NIC nic, IP mask, bool)
{
    d->changeAdapter(nic, [mask](Adapter &adapter) { adapter.stored.mask = mask; });
}

void SystemSet::setGateway(NIC nic, IP gateway, bool)
{
    d->changeAdapter(nic, [gateway](Adapter &adapter) { adapter.stored.gateway = gateway; });
}

MAC SystemSet::getMac(NIC nic) const
{
    return nic == LAN0 ? MAC{0x02, 0x00, 0x5E, 0x10, 0x00, 0x01} : MAC{};
}

// DHCP

bool SystemSet::isDhcpOn(NIC nic) const
{
    return d->state().of(nic).isDhcpOn;
}

void SystemSet::setDHCP(NIC nic, bool on, const std::function<void(DHCP_STATE)> &done, bool)
{
    d->changeAdapter(nic, [on](Adapter &adapter) { adapter.isDhcpOn = on; });
    d->worker.later([this, nic, on, done] { // copies done: the reference ends with this call
        // Here: ask for a lease, and wait for it.
        if (on)
            d->changeAdapter(nic, [](Adapter &adapter) { adapter.lease = FirstLease; });
        if (done)
            done(nic == LAN0 ? DHCP_OK : DHCP_FAILED);
    });
}

// Adapters

int SystemSet::getAllNIC() const
{
    return LAN0;
}

bool SystemSet::isNicEnabled(NIC nic) const
{
    return d->state().of(nic).isEnabled;
}

void SystemSet::enableNIC(NIC nic, bool enable, bool)
{
    d->changeAdapter(nic, [enable](Adapter &adapter) { adapter.isEnabled = enable; });
}

SystemSet::NIC SystemSet::getDefaultNIC() const
{
    return LAN0;
}

void SystemSet::setDefaultNIC(NIC, bool)
{
    // There is no other one to choose.
}

void SystemSet::pingTest(NIC nic, const std::function<void(bool)> &done)
{
    d->worker.later([this, nic, done] {
        const bool answered = d->state().of(nic).inForce().gateway != 0; // here: try it
        if (done)
            done(answered);
    });
}

// Wi-Fi: this panel has none

void SystemSet::scanWifi(const WifiListCallback &done)
{
    if (done)
        d->worker.later([done] { done(nullptr); });
}

void SystemSet::resetWifi(const WifiListCallback &done)
{
    scanWifi(done);
}

void SystemSet::connectWifi(const SSID &, const std::string &, const std::function<void(StateWifi)> &done)
{
    if (done)
        d->worker.later([done] { done(WIFI_OFFLINE); });
}

SSID SystemSet::currentWifiSsid() const
{
    return {};
}

bool SystemSet::isWifiConnected() const
{
    return false;
}

int SystemSet::currentWifiSignalStrength() const
{
    return 0;
}

// 4G and VPN: none either

int SystemSet::get4GState(NIC) const
{
    return 0;
}

int SystemSet::get4GSignal(NIC) const
{
    return 0;
}

SystemSet::VPNServer SystemSet::getVPNServer() const
{
    return d->state().server;
}

void SystemSet::setVPNServer(VPNServer server)
{
    d->change([server](State &state) { state.server = server; });
}

int SystemSet::getVPNServerState(VPNServer) const
{
    return 0;
}

void SystemSet::resetVPNIp(VPNServer) {}

// DNS

std::pair<IP, IP> SystemSet::getDns(NIC nic) const
{
    return d->state().of(nic).dns;
}

void SystemSet::setDns(NIC nic, const std::pair<IP, IP> &servers)
{
    d->changeAdapter(nic, [&servers](Adapter &adapter) { adapter.dns = servers; });
}

// Clock

bool SystemSet::setSystemTime(long seconds)
{
    return seconds >= 0; // here: set the clock, and say whether that went well
}

void SystemSet::syncHwclock()
{
    // Here: copy it to the hardware clock.
}

// Backlight and buzzer

SystemSet::Bright SystemSet::bright() const
{
    return static_cast<Bright>(d->state().bright);
}

void SystemSet::setBright(Bright level, bool)
{
    if (level >= BRIGHT_MIN && level <= BRIGHT_MAX)
        d->change([level](State &state) { state.bright = level; });
}

bool SystemSet::isBuzzerOn() const
{
    return d->state().isBuzzerOn;
}

void SystemSet::setBuzzerOn(bool on)
{
    d->change([on](State &state) { state.isBuzzerOn = on; });
}

void SystemSet::beep(bool) const
{
    // Here: sound the buzzer, if it is on, without waiting for its end.
}

// Language, identity, power

SystemSet::Language SystemSet::getLanguage() const
{
    return d->state().language;
}

void SystemSet::setLanguage(Language language)
{
    d->change([language](State &state) { state.language = language; });
}

std::string SystemSet::getSerialNumber() const
{
    return "EXAMPLE-0001";
}

void SystemSet::reboot()
{
    // Here: restart the panel.
}

} // namespace HMI
