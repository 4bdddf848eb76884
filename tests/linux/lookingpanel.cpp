#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <QtCore/QCoreApplication>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

/// Asks for every change that the contract has, of a device that may only be looked at, and tells what the service
/// says of itself before and afterwards.

namespace {

using namespace std::chrono_literals;
using HMI::SystemSet;

SystemSet &panel()
{
    return MeyerSingleton<SystemSet>::instance();
}

void tellReadings()
{
    std::string line;
    const auto add = [&line](long long value) { line += std::to_string(value) + ' '; };
    for (const SystemSet::NIC nic : {SystemSet::LAN0, SystemSet::LAN1}) {
        for (const HMI::IP address :
             {panel().getIp(nic), panel().getIpFromEE(nic), panel().getSubnetMaskFromEE(nic),
              panel().getGatewayFromEE(nic), panel().getDns(nic).first})
            add(quint32(address));
        add(panel().isDhcpOn(nic));
        add(panel().isNicEnabled(nic));
    }
    line += "brightness ";
    add(panel().bright());
    add(panel().isBuzzerOn());
    add(panel().getLanguage());
    add(panel().getDefaultNIC());
    std::puts(line.c_str());
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    while (panel().getIp(SystemSet::LAN0) == 0)
        std::this_thread::sleep_for(1ms);
    tellReadings();

    panel().setIp(SystemSet::LAN0, 0x0A000002, true);
    panel().setSubnetMask(SystemSet::LAN0, 0xFFFFFF00, true);
    panel().setGateway(SystemSet::LAN0, 0x0A000001, true);
    panel().setDns(SystemSet::LAN0, {0x09090909, 0x08080808});
    std::atomic<bool> isReported{false};
    bool hasFailed = false;
    panel().setDHCP(
        SystemSet::LAN0, false,
        [&isReported, &hasFailed](SystemSet::DHCP_STATE state) {
            hasFailed = state == SystemSet::DHCP_FAILED;
            isReported = true;
        },
        true);
    std::atomic<int> wifiReports{0};
    panel().connectWifi({'P', 'l', 'a', 'n', 't'}, "its password",
                        [&wifiReports](SystemSet::StateWifi) { ++wifiReports; });
    panel().resetWifi([&wifiReports](auto) { ++wifiReports; });
    panel().enableNIC(SystemSet::LAN1, false, true);
    panel().setDefaultNIC(SystemSet::LAN1, false);
    panel().setBright(SystemSet::BRIGHT_MIN, true);
    panel().setBuzzerOn(!panel().isBuzzerOn());
    panel().beep(true);
    panel().setLanguage(panel().getLanguage() == SystemSet::CHINESE ? SystemSet::ENGLISH
                                                                    : SystemSet::CHINESE);
    const bool isClockSet = panel().setSystemTime(1000000000);
    panel().syncHwclock();
    panel().reboot();

    while (!isReported || wifiReports < 2)
        std::this_thread::sleep_for(1ms);
    tellReadings();
    return hasFailed && !isClockSet ? 0 : 1;
}
