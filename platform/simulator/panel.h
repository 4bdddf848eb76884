#pragma once

/// The simulated panel as plain data: everything that a scenario can describe
/// and a test can set. The service answers from one value of HmiSimulator::Panel.

#include "hmi/systemset.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace HmiSimulator {

/// Address, mask and gateway of an adapter; 0 for what is not set.
struct Addresses {
    HMI::IP ip;
    HMI::IP mask;
    HMI::IP gateway;
};

/// One network adapter.
struct Adapter {
    bool enabled = true;
    bool dhcp = false;
    /// Cable in the socket, or aerial connected. Without it DHCP fails and nothing answers a ping.
    bool link = true;
    Addresses live;   ///< in force now; nulled while the adapter is off
    Addresses stored; ///< the static configuration
    Addresses lease;  ///< what the DHCP server gives
    HMI::MAC mac{};
    std::pair<HMI::IP, HMI::IP> dns;
};

/// One wireless network in reach.
struct Network {
    /// Raw bytes. 33 bytes make a record without terminator; bytes beyond that are cut.
    std::string name;
    /// The password it asks for; empty for an open network.
    std::string password;
    int signal = 60;
    /// Largest step, in percent, by which the signal differs from one look to the next; it stays within 1 to 100.
    int drift = 0;
    /// The password that the panel keeps; none when it never joined. May be out of date.
    std::optional<std::string> stored = std::nullopt;
    /// False: attempts to join end in a time-out.
    bool answers = true;
    /// What the scan says in needsPassword; by default 1 when secured and not stored, else 0.
    std::optional<int> needsPassword = std::nullopt;
};

struct Wifi {
    std::vector<Network> networks;
    bool connected = false;
    std::string joined; ///< raw name of the joined network
    int signal = 0;     ///< strength of a joined network that is not in the list
};

/// The mobile modem.
struct Mobile {
    int state = 0; ///< as SystemSet::get4GState()
    int signal = 0;
    int drift = 0;
    int settles = 2; ///< the state reached some time after switching on
};

/// The maintenance tunnel.
struct Vpn {
    int server = HMI::SystemSet::ASIA;
    int state = 0;                    ///< of the chosen server; the other one always reads 0
    std::array<int, 2> settles{5, 5}; ///< the state that each server reaches some time after switching on
};

/// Milliseconds from a request to its report, or to the next state.
struct Delays {
    int dhcp = 900;  ///< lease
    int fixed = 150; ///< switching to the static addresses
    int ping = 700;
    int scan = 1500;
    int reset = 2000;
    int connecting = 100; ///< to the "connecting" report
    int connect = 1800;   ///< to the final report
    int mobile = 4000;    ///< modem: connecting to settled
    int vpn = 3000;       ///< tunnel: connecting to settled
    int buzzer = 0;       ///< setBuzzerOn() takes that long, as a slow flash would

    /// The same delay for all reports and states; the buzzer is written at once.
    static Delays all(int milliseconds);
};

/// The operations that report through a callback.
enum class Operation { Dhcp, Ping, Scan, Reset, Connect };
constexpr int OperationCount = 5;

/// How a report comes.
enum class Delivery {
    Normal,      ///< after its delay, on the simulator's thread
    Late,        ///< lateBy milliseconds after that
    Never,       ///< what was asked for happens, the report does not come
    Twice,       ///< two reports, one after the other
    Synchronous, ///< from within the call
    Held,        ///< waits until it is fired by hand, see fireNext()
};

struct DeliveryFault {
    Delivery delivery = Delivery::Normal;
    int lateBy = 3000; ///< milliseconds
    int times = 0;     ///< after so many requests delivery is normal again; 0: for all
};

/// What goes wrong. Values out of range are no faults but plain state: set them where they belong.
struct Faults {
    std::array<DeliveryFault, OperationCount> delivery;
    /// Reported by setDHCP() instead of the natural outcome; 0 leases whatever the adapter's state is.
    std::optional<int> dhcp;
    /// Reported by pingTest() instead of the natural outcome.
    std::optional<bool> ping;
    /// Reported by connectWifi() instead of the natural ones, in this order; 2 joins the network.
    std::vector<int> connect;
    bool nullList = false;     ///< scanWifi() and resetWifi() deliver null
    bool clockRefused = false; ///< setSystemTime() answers false

    DeliveryFault &of(Operation operation) { return delivery[static_cast<std::size_t>(operation)]; }
};

/// A whole panel. Integers stand where the service has enumerations, so that
/// values can be set which no panel should answer.
struct Panel {
    int nicMask = 0;                 ///< what getAllNIC() answers
    std::map<int, Adapter> adapters; ///< by HMI::SystemSet::NIC; all five are there, present or not
    int defaultNic = HMI::SystemSet::LAN0;
    Wifi wifi;
    Mobile mobile;
    Vpn vpn;
    int bright = 20;
    int savedBright = 20; ///< the level last set with save
    bool buzzer = true;
    int language = HMI::SystemSet::ENGLISH;
    std::string serialNumber;
    long long clockOffset = 0; ///< seconds that the panel's clock is ahead of the machine's, see panelclock.h
    long long clockStandsAt = -1; ///< seconds since the epoch at which the panel's clock stands; -1: it goes
    long long hardwareClockOffset = 0; ///< the same for the hardware clock, set by syncHwclock()
    Delays delays;
    Faults faults;

    /// The adapter when the panel has it, else null.
    const Adapter *find(int nic) const;
    Adapter *find(int nic);
};

} // namespace HmiSimulator
