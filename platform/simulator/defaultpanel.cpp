#include "simulator/defaultpanel.h"

namespace HmiSimulator {

namespace {

using HMI::IP;
using HMI::SystemSet;

constexpr IP address(quint32 a, quint32 b, quint32 c, quint32 d)
{
    return a << 24U | b << 16U | c << 8U | d;
}

constexpr IP Mask24 = address(255, 255, 255, 0);
constexpr IP Mask16 = address(255, 255, 0, 0);

Adapter fixedLan()
{
    Adapter lan;
    lan.stored = {address(192, 168, 1, 10), Mask24, address(192, 168, 1, 1)};
    lan.lease = {address(192, 168, 1, 117), Mask24, address(192, 168, 1, 254)};
    lan.live = lan.stored;
    lan.mac = {0x02, 0x1B, 0x44, 0x11, 0x3A, 0xB7};
    lan.dns = {address(192, 168, 1, 1), address(192, 168, 1, 2)};
    return lan;
}

Adapter leasedLan()
{
    Adapter lan;
    lan.dhcp = true;
    lan.stored = {address(10, 0, 0, 20), Mask24, address(10, 0, 0, 1)};
    lan.lease = {address(172, 20, 5, 117), Mask16, address(172, 20, 0, 1)};
    lan.live = lan.lease;
    lan.mac = {0x02, 0x1B, 0x44, 0x11, 0x3A, 0xB8};
    lan.dns = {address(172, 20, 0, 1), 0};
    return lan;
}

Adapter wireless()
{
    Adapter wifi;
    wifi.dhcp = true;
    wifi.stored = {address(192, 168, 50, 30), Mask24, address(192, 168, 50, 1)};
    wifi.lease = {address(192, 168, 50, 143), Mask24, address(192, 168, 50, 254)};
    wifi.live = wifi.lease;
    wifi.mac = {0x02, 0x1B, 0x44, 0x11, 0x3A, 0xB9};
    wifi.dns = {address(192, 168, 50, 1), 0};
    return wifi;
}

Adapter mobile()
{
    Adapter modem;
    modem.dhcp = true;
    modem.lease = {address(100, 72, 14, 9), address(255, 255, 255, 252), address(100, 72, 14, 10)};
    modem.live = modem.lease;
    return modem;
}

Adapter tunnel()
{
    Adapter vpn;
    vpn.enabled = false;
    vpn.lease = {address(10, 88, 3, 61), Mask16, address(10, 88, 0, 1)};
    return vpn;
}

std::vector<Network> neighbourhood()
{
    return {
        {"Works Hall", "press-line-4", 82, 4, "press-line-4"},
        {"Works Hall Guests", "", 74, 5},
        {"Maintenance", "torque55Nm", 66, 6},
        {"Büro Süd", "Grüße aus dem Büro", 58, 6},
        {"装配车间", "zhuangpei2020", 51, 7},
        // "assembly line" as an access point with a GB2312 name sends it
        {"\xD7\xB0\xC5\xE4\xCF\xDF", "gongchang01", 43, 7},
        {"Pump Room 3", "old-password-changed", 38, 6, "pump-room"},
        {"Forklift Charging Bay, East Gate", "lift4you!", 31, 8},
        {"Warehouse", "asleep-access-point", 17, 5, std::nullopt, false},
    };
}

} // namespace

Panel defaultPanel()
{
    Panel panel;
    panel.nicMask =
        SystemSet::LAN0 | SystemSet::LAN1 | SystemSet::WIFI | SystemSet::MOBILE_4G | SystemSet::VPN;
    panel.adapters = {{SystemSet::LAN0, fixedLan()},
                      {SystemSet::LAN1, leasedLan()},
                      {SystemSet::WIFI, wireless()},
                      {SystemSet::MOBILE_4G, mobile()},
                      {SystemSet::VPN, tunnel()}};
    panel.wifi.networks = neighbourhood();
    panel.wifi.connected = true;
    panel.wifi.joined = "Works Hall";
    panel.mobile = {2, 64, 6, 2};
    panel.serialNumber = "PS10-2024-004711";
    return panel;
}

} // namespace HmiSimulator
