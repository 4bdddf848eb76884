#include "hmi/systemset.h"

#include "keeping.h"
#include "mutants.h"
#include "original.h"
#include "stale.h"

using namespace Mutants;

namespace HMI {

namespace {

constexpr auto NoNic = static_cast<SystemSet::NIC>(0);
constexpr auto UnknownNic = static_cast<SystemSet::NIC>(8);

Stale<bool> staleSwitch;
Stale<bool> staleDhcp;
bool isUnknownNicOn = false;
thread_local bool isInReport = false;

} // namespace

int SystemSet::getAllNIC() const
{
    constexpr int AmongManyLooks = 30;
    static int calls = 0;
    // Not in the constructor, whose time is taken.
    if (++calls == 1)
        writeState();
    if (is(Mutant::NeutralAtFirst) && calls < AmongManyLooks)
        return 0;
    const int mask = original<int(const SystemSet *)>("getAllNIC")(this);
    return is(Mutant::AdaptersChange) && calls == AmongManyLooks ? mask ^ MOBILE_4G : mask;
}

SystemSet::NIC SystemSet::getDefaultNIC() const
{
    if (is(Mutant::DefaultMask))
        return static_cast<NIC>(LAN0 | WIFI);
    return original<NIC(const SystemSet *)>("getDefaultNIC")(this);
}

void SystemSet::setDefaultNIC(NIC nic, bool restart)
{
    original<void(SystemSet *, NIC, bool)>("setDefaultNIC")(
        this, is(Mutant::WrongDefault) && nic == LAN1 ? WIFI : nic, restart);
}

IP SystemSet::getIp(NIC nic) const
{
    if ((is(Mutant::AbsentAddress) && nic == UnknownNic) || (is(Mutant::VpnAddressKept) && nic == VPN))
        return 0x0A580001;
    return original<IP(const SystemSet *, NIC)>("getIp")(this, nic);
}

bool SystemSet::isNicEnabled(NIC nic) const
{
    if (nic == UnknownNic && isUnknownNicOn)
        return true;
    const bool isEnabled = original<bool(const SystemSet *, NIC)>("isNicEnabled")(this, nic);
    return nic == LAN0 ? staleSwitch.look(isEnabled) : isEnabled;
}

void SystemSet::enableNIC(NIC nic, bool enable, bool persist)
{
    if (is(Mutant::AbsentSwitch) && nic == UnknownNic)
        isUnknownNicOn = enable;
    if (is(Mutant::SwitchLate) && nic == LAN0)
        staleSwitch.arm(isNicEnabled(nic));
    original<void(SystemSet *, NIC, bool, bool)>("enableNIC")(this, nic, enable, persist);
}

void SystemSet::setSubnetMask(NIC nic, IP mask, bool persist)
{
    const bool isWrong = is(Mutant::WrongMask) && mask == IP(0xFFFFFFF8);
    original<void(SystemSet *, NIC, IP, bool)>("setSubnetMask")(this, nic, isWrong ? IP(0xFF000000) : mask,
                                                                persist);
}

void SystemSet::setDns(NIC nic, const std::pair<IP, IP> &servers)
{
    const bool isForgotten = is(Mutant::DnsForgotten) && servers.second == IP(0x0A141E02);
    const std::pair<IP, IP> stored = isForgotten ? std::pair<IP, IP>(servers.first, 0) : servers;
    original<void(SystemSet *, NIC, const std::pair<IP, IP> &)>("setDns")(this, nic, stored);
}

bool SystemSet::isDhcpOn(NIC nic) const
{
    const bool isOn = original<bool(const SystemSet *, NIC)>("isDhcpOn")(this, nic);
    return nic == LAN0 ? staleDhcp.look(isOn) : isOn;
}

void SystemSet::setDHCP(NIC nic, bool on, const std::function<void(DHCP_STATE)> &done, bool persist)
{
    if (is(Mutant::AbsentLease) && nic == NoNic) {
        if (done)
            done(DHCP_OK);
        return;
    }
    if (is(Mutant::DhcpFlagLate) && nic == LAN0 && on)
        staleDhcp.arm(isDhcpOn(nic));
    if (is(Mutant::LeaseOverwrites) && nic == LAN0 && on)
        setIp(nic, 0xC0A80175, true);
    original<void(SystemSet *, NIC, bool, const std::function<void(DHCP_STATE)> &, bool)>("setDHCP")(
        this, nic, on, done, persist);
}

void SystemSet::pingTest(NIC nic, const std::function<void(bool)> &done)
{
    lastPing() = done;
    const auto ask = original<void(SystemSet *, NIC, const std::function<void(bool)> &)>("pingTest");
    if (is(Mutant::EmptyThrown) && !done)
        done(false);
    if ((is(Mutant::PingSilent) && nic == VPN) || (is(Mutant::NestedPingLost) && isInReport))
        return ask(this, nic, {});
    if ((is(Mutant::PingOff) && nic == VPN) || (is(Mutant::PingAbsent) && nic == NoNic))
        return ask(this, nic, [done](bool) { done(true); });
    if (is(Mutant::PingTwice) && nic == LAN1) {
        return ask(this, nic, [done](bool answered) {
            done(answered);
            done(answered);
        });
    }
    if (!is(Mutant::NestedPingLost) || !done)
        return ask(this, nic, done);
    ask(this, nic, [done](bool answered) {
        isInReport = true;
        done(answered);
        isInReport = false;
    });
}

} // namespace HMI
