#pragma once

#include "hmi/systemset.h"

#include <array>

namespace Conformance {

/// What a check does to the panel.
enum class Effect { Looks, Changes };

/// The adapters that checks are about; one that is about several is made for each.
constexpr int NoAdapter = 0;
constexpr int EditableAdapters = HMI::SystemSet::LAN0 | HMI::SystemSet::LAN1 | HMI::SystemSet::WIFI;
constexpr int RouteAdapters = EditableAdapters | HMI::SystemSet::MOBILE_4G; ///< may be the default one
constexpr int EveryAdapter = RouteAdapters | HMI::SystemSet::VPN;

/// A check of the settings service, as --list shows it.
struct CheckInfo {
    const char *group;
    const char *name;
    int adapters; ///< mask of HMI::SystemSet::NIC
    Effect effect;
    const char *expectation;
};

// clang-format off
/// All checks, in the order in which they are made. Those before "life.answers" and after "panel.restored" have no
/// function of their own: loading, and the end of the process, make them.
inline constexpr std::array ServiceChecks = {
    CheckInfo{"members", "load", NoAdapter, Effect::Looks, "the library can be loaded with all its symbols bound"},
    CheckInfo{"members", "complete", NoAdapter, Effect::Looks, "every member of HMI::SystemSet is defined"},
    CheckInfo{"life", "start", NoAdapter, Effect::Looks, "the service is there within 100 ms"},
    CheckInfo{"life", "answers", NoAdapter, Effect::Looks, "every getter answers, for every adapter, and throws nothing"},

    CheckInfo{"adapters", "constant", NoAdapter, Effect::Looks, "the panel has the same adapters at every look"},
    CheckInfo{"adapters", "default", NoAdapter, Effect::Looks, "the default adapter is one adapter, no mask"},
    CheckInfo{"adapters", "absent", NoAdapter, Effect::Looks, "an adapter that is not there reads 0, false, nothing"},
    CheckInfo{"adapters", "untouched", NoAdapter, Effect::Changes, "setting an adapter that is not there changes nothing"},
    CheckInfo{"adapters", "choice", RouteAdapters, Effect::Changes, "the default adapter is the one that was chosen"},
    CheckInfo{"adapters", "switching", EveryAdapter, Effect::Changes, "the switch changes at the call"},
    CheckInfo{"addresses", "stored", EditableAdapters, Effect::Changes, "static address, mask and gateway are kept"},
    CheckInfo{"dns", "stored", EditableAdapters, Effect::Changes, "both DNS servers are kept"},
    CheckInfo{"dhcp", "lease", EditableAdapters, Effect::Changes, "the flag changes at the call, the outcome is reported, and a lease has an address"},
    CheckInfo{"dhcp", "static", EditableAdapters, Effect::Changes, "a lease leaves the stored addresses alone, and switching off puts them in force"},
    CheckInfo{"dhcp", "absent", NoAdapter, Effect::Looks, "DHCP of an adapter that is not there fails"},
    CheckInfo{"ping", "report", EveryAdapter, Effect::Looks, "a ping has an outcome; over an adapter that is off it is no answer"},
    CheckInfo{"ping", "absent", NoAdapter, Effect::Looks, "a ping over an adapter that is not there is not answered"},

    CheckInfo{"brightness", "value", NoAdapter, Effect::Looks, "the level is 1 to 32"},
    CheckInfo{"brightness", "levels", NoAdapter, Effect::Changes, "every level from 1 to 32 is taken at once"},
    CheckInfo{"brightness", "limits", NoAdapter, Effect::Changes, "a level outside 1 to 32 changes nothing"},
    CheckInfo{"buzzer", "beep", NoAdapter, Effect::Looks, "a beep does not make anybody wait"},
    CheckInfo{"buzzer", "switching", NoAdapter, Effect::Changes, "the buzzer is as it was switched"},
    CheckInfo{"buzzer", "threads", NoAdapter, Effect::Changes, "getters answer the same while a worker thread switches the buzzer"},
    CheckInfo{"language", "value", NoAdapter, Effect::Looks, "the language is one of the two"},
    CheckInfo{"language", "switching", NoAdapter, Effect::Changes, "the language is recorded"},
    CheckInfo{"identity", "serial", NoAdapter, Effect::Looks, "the serial number is UTF-8 and stays the same"},
    CheckInfo{"clock", "set", NoAdapter, Effect::Changes, "the clock takes the time, and so does the hardware clock"},
    CheckInfo{"clock", "limits", NoAdapter, Effect::Changes, "a time before 1970 is refused"},
    CheckInfo{"mobile", "values", HMI::SystemSet::MOBILE_4G, Effect::Looks, "state and signal are in range"},
    CheckInfo{"vpn", "values", HMI::SystemSet::VPN, Effect::Looks, "server and state are in range"},
    CheckInfo{"vpn", "server", HMI::SystemSet::VPN, Effect::Changes, "the server is the one that was chosen"},
    CheckInfo{"vpn", "address", HMI::SystemSet::VPN, Effect::Changes, "the tunnel's address is dropped on demand"},

    CheckInfo{"speed", "panel", NoAdapter, Effect::Looks, "getters of the panel answer within a fraction of a millisecond"},
    CheckInfo{"speed", "adapter", EveryAdapter, Effect::Looks, "getters of an adapter answer within a fraction of a millisecond"},

    CheckInfo{"requests", "at-once", NoAdapter, Effect::Looks, "pings and scans return at once"},
    CheckInfo{"requests", "calling-back", NoAdapter, Effect::Looks, "a report may call the service"},
    CheckInfo{"requests", "unheard", NoAdapter, Effect::Looks, "an empty function is not called"},

    CheckInfo{"wifi", "link", HMI::SystemSet::WIFI, Effect::Looks, "name, state and signal of the joined network agree"},
    CheckInfo{"wifi", "scan", HMI::SystemSet::WIFI, Effect::Looks, "a scan delivers well-formed networks"},
    CheckInfo{"wifi", "off", HMI::SystemSet::WIFI, Effect::Changes, "a scan finds nothing while Wi-Fi is off"},
    CheckInfo{"wifi", "unknown", HMI::SystemSet::WIFI, Effect::Changes, "a network that does not exist is not joined, and that is reported finally"},
    CheckInfo{"wifi", "replaced", HMI::SystemSet::WIFI, Effect::Changes, "a new attempt replaces the one under way"},
    CheckInfo{"wifi", "reset", HMI::SystemSet::WIFI, Effect::Changes, "a reset forgets networks and passwords, then delivers a scan"},

    // Of all requests made by then.
    CheckInfo{"requests", "once", NoAdapter, Effect::Looks, "leases, pings and scans are reported once"},

    CheckInfo{"panel", "restored", NoAdapter, Effect::Changes, "the panel is again as it was"},
    CheckInfo{"life", "silence", NoAdapter, Effect::Looks, "no report comes after the service has ended"},
    CheckInfo{"life", "end", NoAdapter, Effect::Looks, "the service ends, in time and without a crash"},
};
// clang-format on

} // namespace Conformance
