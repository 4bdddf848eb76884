#include "contracts.h"

#include <QtCore/QElapsedTimer>

using HMI::SystemSet;
using namespace Contract;

void ContractGetters::oneInstance()
{
    QCOMPARE(&MeyerSingleton<SystemSet>::instance(), &MeyerSingleton<SystemSet>::instance());
}

void ContractGetters::adaptersAreConstant()
{
    const int mask = service().getAllNIC();
    for (const SystemSet::NIC nic : AllAdapters) {
        const bool enabled = service().isNicEnabled(nic);
        service().enableNIC(nic, enabled, true);
        QCOMPARE(service().getAllNIC(), mask);
        QCOMPARE(service().isNicEnabled(nic), enabled);
    }
}

void ContractGetters::absentAdaptersReadNothing()
{
    std::vector<SystemSet::NIC> absent;
    for (const int value : NoAdapters)
        absent.push_back(static_cast<SystemSet::NIC>(value));
    for (const SystemSet::NIC nic : AllAdapters) {
        if (!has(nic))
            absent.push_back(nic);
    }
    const HMI::MAC noMac{};
    for (const SystemSet::NIC nic : absent) {
        QCOMPARE(quint32(service().getIp(nic)), 0U);
        QCOMPARE(quint32(service().getSubnetMask(nic)), 0U);
        QCOMPARE(quint32(service().getGateway(nic)), 0U);
        QCOMPARE(quint32(service().getIpFromEE(nic)), 0U);
        QCOMPARE(quint32(service().getSubnetMaskFromEE(nic)), 0U);
        QCOMPARE(quint32(service().getGatewayFromEE(nic)), 0U);
        QVERIFY(service().getMac(nic) == noMac);
        QCOMPARE(quint32(service().getDns(nic).first), 0U);
        QCOMPARE(quint32(service().getDns(nic).second), 0U);
        QVERIFY(!service().isNicEnabled(nic));
        QVERIFY(!service().isDhcpOn(nic));
        QCOMPARE(service().get4GState(nic), 0);
        QCOMPARE(service().get4GSignal(nic), 0);
    }
}

void ContractGetters::valuesAreInRange()
{
    const auto inRange = [](int value, int low, int high) { return value >= low && value <= high; };
    QVERIFY(inRange(service().bright(), SystemSet::BRIGHT_MIN, SystemSet::BRIGHT_MAX));
    QVERIFY(inRange(service().getLanguage(), SystemSet::CHINESE, SystemSet::ENGLISH));
    QVERIFY(inRange(service().getVPNServer(), SystemSet::ASIA, SystemSet::EUROPE));
    QVERIFY(inRange(service().getVPNServerState(SystemSet::ASIA), 0, 5));
    QVERIFY(inRange(service().getVPNServerState(SystemSet::EUROPE), 0, 5));
    QVERIFY(inRange(service().get4GState(SystemSet::MOBILE_4G), 0, 2));
    QVERIFY(inRange(service().get4GSignal(SystemSet::MOBILE_4G), 0, 100));
    QVERIFY(inRange(service().currentWifiSignalStrength(), 0, 100));
    const std::string serial = service().getSerialNumber();
    QCOMPARE(QString::fromStdString(serial).toStdString(), serial); // well-formed UTF-8
}

void ContractGetters::joinedNetworkIsTerminated()
{
    const HMI::SSID ssid = service().currentWifiSsid();
    QCOMPARE(ssid.back(), '\0');
    if (!service().isWifiConnected())
        QVERIFY(ssid == HMI::SSID{});
}

void ContractGetters::gettersAreCheap()
{
    constexpr int rounds = 200;
    constexpr int gettersARound = 15;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < rounds; ++i) {
        const SystemSet::NIC nic = SystemSet::LAN0;
        service().getIp(nic);
        service().getSubnetMask(nic);
        service().getGateway(nic);
        service().isDhcpOn(nic);
        service().isNicEnabled(nic);
        service().getDns(nic);
        service().getDefaultNIC();
        service().get4GState(SystemSet::MOBILE_4G);
        service().get4GSignal(SystemSet::MOBILE_4G);
        service().getVPNServerState(service().getVPNServer());
        service().isWifiConnected();
        service().currentWifiSsid();
        service().currentWifiSignalStrength();
        service().bright();
    }
    // A fraction of a millisecond each, with room for a machine that is busy.
    QVERIFY2(clock.nsecsElapsed() < qint64(rounds) * gettersARound * 500000,
             qPrintable(QString::number(clock.elapsed())));
}
