#include "hmi/systemset.h"

#include "keeping.h"
#include "mutants.h"
#include "original.h"
#include "pastime.h"
#include "stale.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

using namespace Mutants;

namespace HMI {

namespace {

constexpr auto UnknownLanguage = static_cast<SystemSet::Language>(7);
constexpr auto UnknownServer = static_cast<SystemSet::VPNServer>(5);

Stale<bool> staleBuzzer;
Stale<SystemSet::VPNServer> staleServer;
std::atomic<bool> isBuzzerBusy{false};
bool isBuzzerLost = false;
bool isLanguageKnown = false;
bool isServerKnown = false;

} // namespace

SystemSet::Bright SystemSet::bright() const
{
    if (is(Mutant::BrightZero))
        return static_cast<Bright>(0);
    if (isBuzzerBusy)
        return BRIGHT_MIN;
    return original<Bright(const SystemSet *)>("bright")(this);
}

void SystemSet::setBright(Bright level, bool save)
{
    constexpr int Level = 17;
    int taken = level;
    if (is(Mutant::BrightOther) && level == Level)
        taken = Level + 1;
    if (is(Mutant::BrightCrash) && level == Level)
        std::abort();
    while (is(Mutant::BrightHang) && level == Level)
        Pastime::sleep(1000);
    if (is(Mutant::BrightCrash) || is(Mutant::BrightHang))
        keepLevel(level);
    if (is(Mutant::BrightOutside) && level == BRIGHT_MAX + 1)
        taken = BRIGHT_MAX;
    original<void(SystemSet *, Bright, bool)>("setBright")(this, static_cast<Bright>(taken), save);
}

bool SystemSet::isBuzzerOn() const
{
    const bool isOn = original<bool(const SystemSet *)>("isBuzzerOn")(this);
    return staleBuzzer.look(isOn) != isBuzzerLost;
}

void SystemSet::setBuzzerOn(bool on)
{
    if (isBuzzerLost)
        return;
    if (is(Mutant::BuzzerLate))
        staleBuzzer.arm(!on);
    if (is(Mutant::BuzzerRace)) {
        isBuzzerBusy = true;
        Pastime::sleep(1);
        isBuzzerBusy = false;
    }
    original<void(SystemSet *, bool)>("setBuzzerOn")(this, on);
}

void SystemSet::beep(bool on) const
{
    if (is(Mutant::BeepWaits))
        Pastime::sleep(50);
    original<void(const SystemSet *, bool)>("beep")(this, on);
}

SystemSet::Language SystemSet::getLanguage() const
{
    if (is(Mutant::LanguageSeven) && !isLanguageKnown)
        return UnknownLanguage;
    return original<Language(const SystemSet *)>("getLanguage")(this);
}

void SystemSet::setLanguage(Language language)
{
    if (is(Mutant::LanguageIgnored) && language == CHINESE)
        return;
    isLanguageKnown = language != UnknownLanguage;
    original<void(SystemSet *, Language)>("setLanguage")(this, isLanguageKnown ? language : ENGLISH);
}

std::string SystemSet::getSerialNumber() const
{
    static bool hasThrown = false;
    if (is(Mutant::GetterThrows) && !hasThrown) {
        hasThrown = true;
        throw std::runtime_error("no serial number");
    }
    if (is(Mutant::SerialBytes))
        return "PS10-\xFF\xFE";
    return original<std::string(const SystemSet *)>("getSerialNumber")(this);
}

bool SystemSet::setSystemTime(long seconds)
{
    if (seconds < 0 && is(Mutant::TimeBefore1970))
        return true;
    if (seconds < 0 && is(Mutant::TimeExits))
        std::exit(EXIT_SUCCESS);
    return original<bool(SystemSet *, long)>("setSystemTime")(this, seconds);
}

void SystemSet::syncHwclock()
{
    isBuzzerLost = is(Mutant::BuzzerLost);
    if (is(Mutant::HwclockThrows))
        throw std::runtime_error("no hardware clock");
    while (is(Mutant::HwclockHangs))
        Pastime::sleep(1000);
    original<void(SystemSet *)>("syncHwclock")(this);
}

int SystemSet::get4GState(NIC nic) const
{
    if (is(Mutant::MobileState) && nic == MOBILE_4G)
        return 9;
    return original<int(const SystemSet *, NIC)>("get4GState")(this, nic);
}

int SystemSet::get4GSignal(NIC nic) const
{
    if (is(Mutant::MobileSignal) && nic == MOBILE_4G)
        return 120;
    return original<int(const SystemSet *, NIC)>("get4GSignal")(this, nic);
}

SystemSet::VPNServer SystemSet::getVPNServer() const
{
    if (is(Mutant::SlowGetter))
        Pastime::work(0.4);
    if (is(Mutant::VpnServerValue) && !isServerKnown)
        return UnknownServer;
    return staleServer.look(original<VPNServer(const SystemSet *)>("getVPNServer")(this));
}

void SystemSet::setVPNServer(VPNServer server)
{
    if (is(Mutant::VpnServerCrash))
        std::raise(SIGSEGV);
    if (is(Mutant::VpnServerLate))
        staleServer.arm(getVPNServer());
    isServerKnown = server != UnknownServer;
    original<void(SystemSet *, VPNServer)>("setVPNServer")(this, server);
}

int SystemSet::getVPNServerState(VPNServer server) const
{
    if (is(Mutant::VpnStateValue))
        return 9;
    return original<int(const SystemSet *, VPNServer)>("getVPNServerState")(this, server);
}

MAC SystemSet::getMac(NIC nic) const
{
    if (is(Mutant::SlowAdapterGetter) && nic == LAN1)
        Pastime::work(1.5);
    return original<MAC(const SystemSet *, NIC)>("getMac")(this, nic);
}

int SystemSet::currentWifiSignalStrength() const
{
    if (is(Mutant::SleepingGetter))
        Pastime::sleep(2);
    if (is(Mutant::SignalValue))
        return 130;
    return original<int(const SystemSet *)>("currentWifiSignalStrength")(this);
}

} // namespace HMI
