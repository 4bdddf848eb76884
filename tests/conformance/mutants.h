#pragma once

#include <array>

namespace Mutants {

/// The ways in which the simulated service can be broken; PANEL_MUTANT names one.
enum class Mutant {
    None,
    SlowStart,
    StartCrash,
    GetterThrows,
    AdaptersChange,
    DefaultMask,
    AbsentAddress,
    AbsentSwitch,
    WrongDefault,
    SwitchLate,
    WrongMask,
    DnsForgotten,
    DhcpFlagLate,
    LeaseOverwrites,
    AbsentLease,
    PingSilent,
    PingOff,
    PingAbsent,
    BrightZero,
    BrightOther,
    BrightCrash,
    BrightOutside,
    BeepWaits,
    BuzzerLate,
    BuzzerRace,
    LanguageSeven,
    LanguageIgnored,
    SerialBytes,
    HwclockThrows,
    HwclockHangs,
    TimeBefore1970,
    TimeExits,
    MobileSignal,
    MobileState,
    VpnServerValue,
    VpnStateValue,
    VpnServerLate,
    VpnServerCrash,
    VpnAddressKept,
    SleepingGetter,
    SlowGetter,
    SlowAdapterGetter,
    ScanBlocks,
    NestedPingLost,
    EmptyThrown,
    EmptyCrash,
    SignalValue,
    ScanSignal,
    ScanWhileOff,
    UnknownJoined,
    ReplacedJoined,
    PasswordKept,
    BuzzerLost,
    ReportAfterEnd,
    EndCrash,
    EndHang,
};

struct Row {
    Mutant mutant;
    const char *name;
    const char *verdict; ///< what the check must say of it
    const char *check;
};

// clang-format off
/// Every mutant with the one check that finds it. tests/conformance/mutants.py reads the names from here.
inline constexpr std::array AllMutants = {
    Row{Mutant::SlowStart, "slow-start", "warned", "life.start"},
    Row{Mutant::StartCrash, "start-crash", "failed", "life.start"},
    Row{Mutant::GetterThrows, "getter-throws", "failed", "life.answers"},
    Row{Mutant::AdaptersChange, "adapters-change", "failed", "adapters.constant"},
    Row{Mutant::DefaultMask, "default-mask", "failed", "adapters.default"},
    Row{Mutant::AbsentAddress, "absent-address", "failed", "adapters.absent"},
    Row{Mutant::AbsentSwitch, "absent-switch", "failed", "adapters.untouched"},
    Row{Mutant::WrongDefault, "wrong-default", "failed", "adapters.choice"},
    Row{Mutant::SwitchLate, "switch-late", "failed", "adapters.switching"},
    Row{Mutant::WrongMask, "wrong-mask", "failed", "addresses.stored"},
    Row{Mutant::DnsForgotten, "dns-forgotten", "failed", "dns.stored"},
    Row{Mutant::DhcpFlagLate, "dhcp-flag-late", "failed", "dhcp.lease"},
    Row{Mutant::LeaseOverwrites, "lease-overwrites", "failed", "dhcp.static"},
    Row{Mutant::AbsentLease, "absent-lease", "failed", "dhcp.absent"},
    Row{Mutant::PingSilent, "ping-silent", "failed", "ping.report"},
    Row{Mutant::PingOff, "ping-off", "failed", "ping.report"},
    Row{Mutant::PingAbsent, "ping-absent", "failed", "ping.absent"},
    Row{Mutant::BrightZero, "bright-zero", "failed", "brightness.value"},
    Row{Mutant::BrightOther, "bright-other", "failed", "brightness.levels"},
    Row{Mutant::BrightCrash, "bright-crash", "failed", "brightness.levels"},
    Row{Mutant::BrightOutside, "bright-outside", "failed", "brightness.limits"},
    Row{Mutant::BeepWaits, "beep-waits", "failed", "buzzer.beep"},
    Row{Mutant::BuzzerLate, "buzzer-late", "failed", "buzzer.switching"},
    Row{Mutant::BuzzerRace, "buzzer-race", "failed", "buzzer.threads"},
    Row{Mutant::LanguageSeven, "language-seven", "failed", "language.value"},
    Row{Mutant::LanguageIgnored, "language-ignored", "failed", "language.switching"},
    Row{Mutant::SerialBytes, "serial-bytes", "failed", "identity.serial"},
    Row{Mutant::HwclockThrows, "hwclock-throws", "failed", "clock.set"},
    Row{Mutant::HwclockHangs, "hwclock-hangs", "failed", "clock.set"},
    Row{Mutant::TimeBefore1970, "time-before-1970", "failed", "clock.limits"},
    Row{Mutant::TimeExits, "time-exits", "failed", "clock.limits"},
    Row{Mutant::MobileSignal, "mobile-signal", "failed", "mobile.values"},
    Row{Mutant::MobileState, "mobile-state", "warned", "mobile.values"},
    Row{Mutant::VpnServerValue, "vpn-server-value", "failed", "vpn.values"},
    Row{Mutant::VpnStateValue, "vpn-state-value", "warned", "vpn.values"},
    Row{Mutant::VpnServerLate, "vpn-server-late", "failed", "vpn.server"},
    Row{Mutant::VpnServerCrash, "vpn-server-crash", "failed", "vpn.server"},
    Row{Mutant::VpnAddressKept, "vpn-address-kept", "failed", "vpn.address"},
    Row{Mutant::SleepingGetter, "sleeping-getter", "failed", "speed.panel"},
    Row{Mutant::SlowGetter, "slow-getter", "warned", "speed.panel"},
    Row{Mutant::SlowAdapterGetter, "slow-adapter-getter", "failed", "speed.adapter"},
    Row{Mutant::ScanBlocks, "scan-blocks", "failed", "requests.at-once"},
    Row{Mutant::NestedPingLost, "nested-ping-lost", "failed", "requests.calling-back"},
    Row{Mutant::EmptyThrown, "empty-thrown", "failed", "requests.unheard"},
    Row{Mutant::EmptyCrash, "empty-crash", "failed", "requests.unheard"},
    Row{Mutant::SignalValue, "signal-value", "failed", "wifi.link"},
    Row{Mutant::ScanSignal, "scan-signal", "failed", "wifi.scan"},
    Row{Mutant::ScanWhileOff, "scan-while-off", "failed", "wifi.off"},
    Row{Mutant::UnknownJoined, "unknown-joined", "failed", "wifi.unknown"},
    Row{Mutant::ReplacedJoined, "replaced-joined", "failed", "wifi.replaced"},
    Row{Mutant::PasswordKept, "password-kept", "failed", "wifi.reset"},
    Row{Mutant::BuzzerLost, "buzzer-lost", "warned", "panel.restored"},
    Row{Mutant::ReportAfterEnd, "report-after-end", "failed", "life.silence"},
    Row{Mutant::EndCrash, "end-crash", "failed", "life.end"},
    Row{Mutant::EndHang, "end-hang", "failed", "life.end"},
};
// clang-format on

/// Whether this process plays @p mutant.
bool is(Mutant mutant);

} // namespace Mutants
