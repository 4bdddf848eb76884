#include "hmi/systemset.h"

#include "tests/hostile/hostility.h"

namespace HMI {

struct SystemSet::Private : HostileService::Hostility {
    /// Any number, or what a calm panel says.
    int number(int calm)
    {
        return answer([calm] { return calm; }, [this] { return whim().number(); });
    }
    bool flag(bool calm)
    {
        return answer([calm] { return calm; }, [this] { return whim().below(2) == 0; });
    }
    IP address(quint32 calm)
    {
        return answer([calm] { return IP(calm); }, [this] { return IP(whim().address()); });
    }
    void change(std::atomic<int> &value, int to)
    {
        // One that does not comply says so nowhere.
        if (!whim().isWild())
            value = to;
    }
    void change(std::atomic<int> &mask, int bit, bool on) { change(mask, on ? mask | bit : mask & ~bit); }
};

namespace {

constexpr int allAdapters =
    SystemSet::LAN0 | SystemSet::LAN1 | SystemSet::WIFI | SystemSet::MOBILE_4G | SystemSet::VPN;

constexpr SSID joinedNetwork()
{
    SSID name{};
    name[0] = 'H';
    name[1] = 'a';
    name[2] = 'l';
    name[3] = 'l';
    return name;
}

} // namespace

SystemSet::SystemSet() : d(new Private) {}

SystemSet::~SystemSet()
{
    delete d;
}

IP SystemSet::getIp(NIC) const
{
    return d->address(0xC0A8010A);
}

IP SystemSet::getSubnetMask(NIC) const
{
    return d->address(0xFFFFFF00);
}

IP SystemSet::getGateway(NIC) const
{
    return d->address(0xC0A80101);
}

IP SystemSet::getIpFromEE(NIC) const
{
    return d->address(0xC0A8020B);
}

IP SystemSet::getSubnetMaskFromEE(NIC) const
{
    return d->address(0xFFFF0000);
}

IP SystemSet::getGatewayFromEE(NIC) const
{
    return d->address(0xC0A80202);
}

void SystemSet::setIp(NIC, IP, bool) {}
void SystemSet::setSubnetMask(NIC, IP, bool) {}
void SystemSet::setGateway(NIC, IP, bool) {}

MAC SystemSet::getMac(NIC) const
{
    MAC mac{};
    for (unsigned char &byte : mac)
        byte = static_cast<unsigned char>(d->number(0x1B));
    return mac;
}

bool SystemSet::isDhcpOn(NIC nic) const
{
    return d->flag((d->settings().dhcp & nic) != 0);
}

void SystemSet::setDHCP(NIC nic, bool on, const std::function<void(DHCP_STATE)> &done, bool)
{
    d->change(d->settings().dhcp, nic, on);
    if (done)
        d->report([this, done] { done(static_cast<DHCP_STATE>(d->number(DHCP_OK))); });
}

int SystemSet::getAllNIC() const
{
    return d->answer([] { return allAdapters; },
                     [this] { return d->whim().below(2) == 0 ? d->whim().number() : d->whim().below(128); });
}

bool SystemSet::isNicEnabled(NIC nic) const
{
    return d->flag((d->settings().enabled & nic) != 0);
}

void SystemSet::enableNIC(NIC nic, bool enable, bool)
{
    d->change(d->settings().enabled, nic, enable);
}

SystemSet::NIC SystemSet::getDefaultNIC() const
{
    return static_cast<NIC>(d->number(d->settings().defaultAdapter));
}

void SystemSet::setDefaultNIC(NIC nic, bool)
{
    d->change(d->settings().defaultAdapter, nic);
}

void SystemSet::pingTest(NIC, const std::function<void(bool)> &done)
{
    if (done)
        d->report([this, done] { done(d->flag(true)); });
}

void SystemSet::scanWifi(const WifiListCallback &done)
{
    if (done)
        d->report([this, done] { done(d->whim().networks()); });
}

void SystemSet::resetWifi(const WifiListCallback &done)
{
    scanWifi(done);
}

void SystemSet::connectWifi(const SSID &, const std::string &, const std::function<void(StateWifi)> &done)
{
    if (!done)
        return;
    const int calm = d->whim().below(5);
    d->report([this, done, calm] { done(static_cast<StateWifi>(d->number(calm))); });
    d->report([this, done, calm] { done(static_cast<StateWifi>(d->number(calm))); });
}

SSID SystemSet::currentWifiSsid() const
{
    return d->answer(joinedNetwork, [this] { return d->whim().name(); });
}

bool SystemSet::isWifiConnected() const
{
    return d->flag(true);
}

int SystemSet::currentWifiSignalStrength() const
{
    return d->number(70);
}

int SystemSet::get4GState(NIC) const
{
    return d->number(2);
}

int SystemSet::get4GSignal(NIC) const
{
    return d->number(60);
}

SystemSet::VPNServer SystemSet::getVPNServer() const
{
    return static_cast<VPNServer>(d->number(d->settings().server));
}

void SystemSet::setVPNServer(VPNServer server)
{
    d->change(d->settings().server, server);
}

int SystemSet::getVPNServerState(VPNServer) const
{
    return d->number(5);
}

void SystemSet::resetVPNIp(VPNServer) {}

std::pair<IP, IP> SystemSet::getDns(NIC) const
{
    return {d->address(0x08080808), d->address(0x01010101)};
}

void SystemSet::setDns(NIC, const std::pair<IP, IP> &) {}

bool SystemSet::setSystemTime(long)
{
    return d->flag(true);
}

void SystemSet::syncHwclock() {}

SystemSet::Bright SystemSet::bright() const
{
    return static_cast<Bright>(d->number(d->settings().bright));
}

void SystemSet::setBright(Bright level, bool)
{
    d->change(d->settings().bright, level);
}

bool SystemSet::isBuzzerOn() const
{
    return d->flag(d->settings().buzzer != 0);
}

void SystemSet::setBuzzerOn(bool on)
{
    d->change(d->settings().buzzer, on ? 1 : 0);
}

void SystemSet::beep(bool) const
{
    d->courier().deliverInGetter();
}

SystemSet::Language SystemSet::getLanguage() const
{
    return static_cast<Language>(d->number(d->settings().language));
}

void SystemSet::setLanguage(Language language)
{
    d->change(d->settings().language, language);
}

std::string SystemSet::getSerialNumber() const
{
    return d->answer([] { return std::string("QSP-0001"); }, [this] { return d->whim().text(); });
}

void SystemSet::reboot() {}

} // namespace HMI
