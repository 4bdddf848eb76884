#pragma once

namespace Conformance {

class Check;

/// What the checks do; checklist.h says what each of them expects.
namespace Checks {

void answers(Check &check);

void adaptersConstant(Check &check);
void adaptersDefault(Check &check);
void adaptersAbsent(Check &check);
void adaptersUntouched(Check &check);
void adaptersChoice(Check &check);
void adaptersSwitching(Check &check);

void addressesStored(Check &check);
void dnsStored(Check &check);
void dhcpLease(Check &check);
void dhcpStatic(Check &check);
void dhcpAbsent(Check &check);
void pingReport(Check &check);
void pingAbsent(Check &check);

void brightnessValue(Check &check);
void brightnessLevels(Check &check);
void brightnessLimits(Check &check);
void buzzerBeep(Check &check);
void buzzerSwitching(Check &check);
void buzzerThreads(Check &check);
void languageValue(Check &check);
void languageSwitching(Check &check);
void identitySerial(Check &check);
void clockSet(Check &check);
void clockLimits(Check &check);

void mobileValues(Check &check);
void vpnValues(Check &check);
void vpnServer(Check &check);
void vpnAddress(Check &check);

void speedPanel(Check &check);
void speedAdapter(Check &check);

void requestsAtOnce(Check &check);
void requestsCallingBack(Check &check);
void requestsUnheard(Check &check);
void requestsOnce(Check &check);

void wifiLink(Check &check);
void wifiScan(Check &check);
void wifiOff(Check &check);
void wifiUnknown(Check &check);
void wifiReplaced(Check &check);
void wifiReset(Check &check);

} // namespace Checks
} // namespace Conformance
