#include "hmi/systemset.h"

namespace HMI {

struct SystemSet::Private {
};

SystemSet::SystemSet() : d(nullptr) {}

SystemSet::~SystemSet() = default;

IP SystemSet::getIp(NIC) const
{
    return 0;
}

IP SystemSet::getSubnetMask(NIC) const
{
    return 0;
}

IP SystemSet::getGateway(NIC) const
{
    return 0;
}

IP SystemSet::getIpFromEE(NIC) const
{
    return 0;
}

IP SystemSet::getSubnetMaskFromEE(NIC) const
{
    return 0;
}

IP SystemSet::getGatewayFromEE(NIC) const
{
    return 0;
}

void SystemSet::setIp(NIC, IP, bool)
{
}

void SystemSet::setSubnetMask(NIC, IP, bool)
{
}

void SystemSet::setGateway(NIC, IP, bool)
{
}

MAC SystemSet::getMac(NIC) const
{
    return {};
}

bool SystemSet::isDhcpOn(NIC) const
{
    return false;
}

void SystemSet::setDHCP(NIC, bool, const std::function<void(DHCP_STATE)> &, bool)
{
}

int SystemSet::getAllNIC() const
{
    return 0;
}

bool SystemSet::isNicEnabled(NIC) const
{
    return false;
}

void SystemSet::enableNIC(NIC, bool, bool)
{
}

SystemSet::NIC SystemSet::getDefaultNIC() const
{
    return LAN0;
}

void SystemSet::setDefaultNIC(NIC, bool)
{
}

void SystemSet::pingTest(NIC, const std::function<void(bool)> &)
{
}

void SystemSet::scanWifi(const WifiListCallback &)
{
}

void SystemSet::resetWifi(const WifiListCallback &)
{
}

void SystemSet::connectWifi(const SSID &, const std::string &, const std::function<void(StateWifi)> &)
{
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
    return ASIA;
}

void SystemSet::setVPNServer(VPNServer)
{
}

int SystemSet::getVPNServerState(VPNServer) const
{
    return 0;
}

void SystemSet::resetVPNIp(VPNServer)
{
}

std::pair<IP, IP> SystemSet::getDns(NIC) const
{
    return {};
}

void SystemSet::setDns(NIC, const std::pair<IP, IP> &)
{
}

bool SystemSet::setSystemTime(long)
{
    return false;
}

void SystemSet::syncHwclock()
{
}

SystemSet::Bright SystemSet::bright() const
{
    return BRIGHT_MAX;
}

void SystemSet::setBright(Bright, bool)
{
}

bool SystemSet::isBuzzerOn() const
{
    return false;
}

void SystemSet::setBuzzerOn(bool)
{
}

void SystemSet::beep(bool) const
{
}

SystemSet::Language SystemSet::getLanguage() const
{
    return ENGLISH;
}

void SystemSet::setLanguage(Language)
{
}

std::string SystemSet::getSerialNumber() const
{
    return {};
}

void SystemSet::reboot()
{
}

} // namespace HMI
