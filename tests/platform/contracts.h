#pragma once

/// What every implementation of the settings service must do, as tests. They
/// know hmi/systemset.h alone and ask first which adapters there are, so that
/// any libhmisystemset.so can be put through them: see docs/service-contract.md.
/// Whatever they change they put back, except joined networks and stored
/// passwords: resetting Wi-Fi is part of the contract.

#include <QtCore/QObject>
#include <QtTest/QtTest>

#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <initializer_list>

namespace Contract {

inline HMI::SystemSet &service()
{
    return MeyerSingleton<HMI::SystemSet>::instance();
}

constexpr std::initializer_list<HMI::SystemSet::NIC> AllAdapters = {
    HMI::SystemSet::LAN0, HMI::SystemSet::LAN1, HMI::SystemSet::WIFI, HMI::SystemSet::MOBILE_4G,
    HMI::SystemSet::VPN};
/// The adapters whose addresses an operator can edit.
constexpr std::initializer_list<HMI::SystemSet::NIC> EditableAdapters = {
    HMI::SystemSet::LAN0, HMI::SystemSet::LAN1, HMI::SystemSet::WIFI};

inline bool has(HMI::SystemSet::NIC nic)
{
    return (service().getAllNIC() & nic) != 0;
}

/// Values that no adapter has: nothing, several bits, an unknown bit.
constexpr std::initializer_list<int> NoAdapters = {0, 3, 8, 255};

} // namespace Contract

/// What getters answer.
class ContractGetters : public QObject
{
    Q_OBJECT

private slots:
    void oneInstance();
    void adaptersAreConstant();
    void absentAdaptersReadNothing();
    void valuesAreInRange();
    void joinedNetworkIsTerminated();
    void gettersAreCheap();
};

/// What setters do.
class ContractSettings : public QObject
{
    Q_OBJECT

private slots:
    void brightnessRoundTrip();
    void brightnessOutOfRangeIsRefused();
    void buzzerRoundTrip();
    void languageRoundTrip();
    void dnsRoundTrip();
    void staticAddressesAreStored();
    void defaultAdapterRoundTrip();
    void adapterSwitchesAtOnce();
    void vpnServerRoundTrip();
    void clockTakesTheTime();
    void absentAdaptersChangeNothing();
    void buzzerBesideGetters();
};

/// Operations that report later.
class ContractRequests : public QObject
{
    Q_OBJECT

private slots:
    void dhcpReports_data();
    void dhcpReports();
    void switchingToStaticPutsStoredInForce();
    void pingReports();
    void scanDeliversAList();
    void unknownNetworkIsNotJoined();
    void newAttemptReplacesOld();
    void resetForgets();
    void emptyFunctionsAreNotCalled();
    void requestsReturnAtOnce();
};
