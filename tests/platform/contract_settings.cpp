#include "contracts.h"

#include <atomic>
#include <ctime>
#include <thread>

using HMI::SystemSet;
using namespace Contract;

void ContractSettings::brightnessRoundTrip()
{
    const SystemSet::Bright before = service().bright();
    for (int level = SystemSet::BRIGHT_MIN; level <= SystemSet::BRIGHT_MAX; ++level) {
        service().setBright(static_cast<SystemSet::Bright>(level), level % 8 == 0);
        QCOMPARE(int(service().bright()), level);
    }
    service().setBright(before, true);
    QCOMPARE(service().bright(), before);
}

void ContractSettings::brightnessOutOfRangeIsRefused()
{
    const SystemSet::Bright before = service().bright();
    for (const int level : {0, 33, 99, -1}) {
        service().setBright(static_cast<SystemSet::Bright>(level), true);
        QCOMPARE(service().bright(), before);
    }
}

void ContractSettings::buzzerRoundTrip()
{
    const bool before = service().isBuzzerOn();
    service().setBuzzerOn(!before);
    QCOMPARE(service().isBuzzerOn(), !before);
    service().setBuzzerOn(before);
    QCOMPARE(service().isBuzzerOn(), before);
}

void ContractSettings::languageRoundTrip()
{
    const SystemSet::Language before = service().getLanguage();
    for (const SystemSet::Language language : {SystemSet::CHINESE, SystemSet::ENGLISH}) {
        service().setLanguage(language);
        QCOMPARE(service().getLanguage(), language);
    }
    service().setLanguage(before);
}

void ContractSettings::dnsRoundTrip()
{
    for (const SystemSet::NIC nic : EditableAdapters) {
        if (!has(nic))
            continue;
        const std::pair<HMI::IP, HMI::IP> before = service().getDns(nic);
        service().setDns(nic, {0x0A000001, 0xFFFFFFFF});
        QCOMPARE(quint32(service().getDns(nic).first), 0x0A000001U);
        QCOMPARE(quint32(service().getDns(nic).second), 0xFFFFFFFFU);
        service().setDns(nic, before);
        QCOMPARE(quint32(service().getDns(nic).first), quint32(before.first));
        QCOMPARE(quint32(service().getDns(nic).second), quint32(before.second));
    }
}

void ContractSettings::staticAddressesAreStored()
{
    for (const SystemSet::NIC nic : EditableAdapters) {
        if (!has(nic))
            continue;
        const HMI::IP ip = service().getIpFromEE(nic);
        const HMI::IP mask = service().getSubnetMaskFromEE(nic);
        const HMI::IP gateway = service().getGatewayFromEE(nic);
        // Address and gateway do not agree: that is not the service's affair.
        service().setIp(nic, 0x0A141E28, true);
        service().setSubnetMask(nic, 0xFFFFFFFC, true);
        service().setGateway(nic, 0xC0A8FE01, true);
        QCOMPARE(quint32(service().getIpFromEE(nic)), 0x0A141E28U);
        QCOMPARE(quint32(service().getSubnetMaskFromEE(nic)), 0xFFFFFFFCU);
        QCOMPARE(quint32(service().getGatewayFromEE(nic)), 0xC0A8FE01U);
        service().setIp(nic, ip, true);
        service().setSubnetMask(nic, mask, true);
        service().setGateway(nic, gateway, true);
        QCOMPARE(quint32(service().getIpFromEE(nic)), quint32(ip));
        QCOMPARE(quint32(service().getSubnetMaskFromEE(nic)), quint32(mask));
        QCOMPARE(quint32(service().getGatewayFromEE(nic)), quint32(gateway));
    }
}

void ContractSettings::defaultAdapterRoundTrip()
{
    const SystemSet::NIC before = service().getDefaultNIC();
    for (const SystemSet::NIC nic : EditableAdapters) {
        service().setDefaultNIC(nic, false);
        QCOMPARE(service().getDefaultNIC() == nic, has(nic) || before == nic);
        service().setDefaultNIC(before, false);
    }
    QCOMPARE(service().getDefaultNIC(), before);
}

void ContractSettings::adapterSwitchesAtOnce()
{
    for (const SystemSet::NIC nic : AllAdapters) {
        const bool before = service().isNicEnabled(nic);
        service().enableNIC(nic, !before, true);
        QCOMPARE(service().isNicEnabled(nic), has(nic) && !before);
        service().enableNIC(nic, before, true);
        QCOMPARE(service().isNicEnabled(nic), before);
    }
}

void ContractSettings::vpnServerRoundTrip()
{
    const SystemSet::VPNServer before = service().getVPNServer();
    for (const SystemSet::VPNServer server : {SystemSet::EUROPE, SystemSet::ASIA}) {
        service().setVPNServer(server);
        service().resetVPNIp(server);
        QCOMPARE(service().getVPNServer(), server);
        QCOMPARE(quint32(service().getIp(SystemSet::VPN)), 0U);
    }
    service().setVPNServer(before);
    QCOMPARE(service().getVPNServer(), before);
}

void ContractSettings::clockTakesTheTime()
{
    QVERIFY(service().setSystemTime(static_cast<long>(std::time(nullptr))));
    service().syncHwclock();
    QVERIFY(!service().setSystemTime(-1));
}

void ContractSettings::absentAdaptersChangeNothing()
{
    const SystemSet::NIC defaultNic = service().getDefaultNIC();
    const int mask = service().getAllNIC();
    for (const int value : NoAdapters) {
        const auto nic = static_cast<SystemSet::NIC>(value);
        service().setIp(nic, 0x01020304, true);
        service().setSubnetMask(nic, 0x01020304, true);
        service().setGateway(nic, 0x01020304, true);
        service().setDns(nic, {0x01020304, 0x01020304});
        service().enableNIC(nic, true, true);
        service().setDefaultNIC(nic, false);
        QCOMPARE(quint32(service().getIpFromEE(nic)), 0U);
        QVERIFY(!service().isNicEnabled(nic));
    }
    QCOMPARE(service().getDefaultNIC(), defaultNic);
    QCOMPARE(service().getAllNIC(), mask);
}

void ContractSettings::buzzerBesideGetters()
{
    const bool before = service().isBuzzerOn();
    std::atomic<bool> done{false};
    std::thread writer([&done, before] {
        for (int i = 0; i < 50; ++i)
            service().setBuzzerOn(i % 2 == 0);
        service().setBuzzerOn(before);
        done = true;
    });
    while (!done) {
        service().isBuzzerOn();
        service().bright();
        service().getIp(SystemSet::LAN0);
        service().beep(true);
    }
    writer.join();
    QCOMPARE(service().isBuzzerOn(), before);
}
