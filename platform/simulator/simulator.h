#pragma once

/// The control interface of the simulated panel, for tests and demo hosts. The
/// screen never sees it.
///
/// A test usually begins with reset(), sets what it needs with change() or a
/// shortcut, operates the screen and reads calls(). Everything here may be
/// called from any thread, before and after the service itself is first used.
///
///     HmiSimulator::reset();
///     HmiSimulator::setManual(true);
///     ... tap "Static IP" off ...
///     QCOMPARE(HmiSimulator::calls(), {"setDHCP(LAN0, true, persist)"});
///     HmiSimulator::fireNext("setDHCP");

#include "simulator/panel.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace HmiSimulator {

// --- The panel as a whole ---

/// Back to the default panel (scenarios/default.json): state, delays and
/// faults. Waiting reports are dropped, manual mode and the recording of
/// getters end, the journal is emptied. Waits for a report that is just running.
HMI_EXPORT void reset();
/// A copy of the panel as it is now.
HMI_EXPORT Panel panel();
/// Changes the panel in one step, as if from elsewhere; nothing is journalled.
/// @p edit runs under the simulator's lock: it must not call the service or this interface.
HMI_EXPORT void change(const std::function<void(Panel &)> &edit);

/// Replaces the panel by what a scenario file says; what the file leaves out is as in the default
/// panel. Requests under way are dropped; the journal stays. A file that is missing or in any way
/// wrong is refused as a whole: false, the panel is as it was, @p error reads "FILE:LINE: REASON"
/// ("FILE: REASON" for one that cannot be read).
/// The format is described in docs/service-contract.md.
HMI_EXPORT bool loadScenario(const std::string &path, std::string *error = nullptr);
/// The same from a text; @p name stands for the file name in @p error.
HMI_EXPORT bool loadScenarioText(const std::string &json, std::string *error = nullptr,
                                 const std::string &name = "scenario");

// --- Shortcuts for change() ---

/// The adapters present; any bits.
HMI_EXPORT void setAdapters(int mask);
HMI_EXPORT void setLiveAddress(HMI::SystemSet::NIC nic, HMI::IP ip, HMI::IP mask, HMI::IP gateway);
HMI_EXPORT void setStoredAddress(HMI::SystemSet::NIC nic, HMI::IP ip, HMI::IP mask, HMI::IP gateway);
HMI_EXPORT void setNicEnabled(HMI::SystemSet::NIC nic, bool enabled);
/// The DHCP flag alone: no lease is taken.
HMI_EXPORT void setDhcpOn(HMI::SystemSet::NIC nic, bool on);
HMI_EXPORT void setDefaultNic(int nic);
HMI_EXPORT void setNetworks(const std::vector<Network> &networks);
/// @p count networks with different names, signals and protections; the same ones each time.
HMI_EXPORT std::vector<Network> crowd(int count);
/// Joined to @p name (raw bytes), which need not be in the list; @p signal counts then.
HMI_EXPORT void joinNetwork(const std::string &name, int signal = 70);
HMI_EXPORT void leaveNetwork();
/// Any values; the signal stays as it is set here (no drift).
HMI_EXPORT void setMobile(int state, int signal);
/// State of the chosen server; any value.
HMI_EXPORT void setVpnState(int state);
HMI_EXPORT void setBright(int level);
HMI_EXPORT void setBuzzerOn(bool on);
HMI_EXPORT void setLanguage(int language);
HMI_EXPORT void setSerialNumber(const std::string &bytes);
/// All delays at once, in milliseconds.
HMI_EXPORT void setDelays(int milliseconds);
/// How the reports of @p operation come from now on.
HMI_EXPORT void setDelivery(Operation operation, Delivery delivery, int lateBy = 3000);

// --- Reports by hand ---

/// Manual mode: no report comes by itself; each waits until it is fired. States
/// that change with time (4G, VPN) go on. Switching it off lets all waiting ones go.
HMI_EXPORT void setManual(bool manual);
/// The reports under way, oldest first, as the calls that asked for them: "setDHCP(LAN0)",
/// "pingTest(LAN0)", "scanWifi", "resetWifi", "connectWifi" (its "connecting" report and the
/// final one are two entries).
HMI_EXPORT std::vector<std::string> pending();
/// The thread that a report fired by hand comes on.
enum class FireOn { SimulatorThread, CallingThread };
/// Makes the oldest waiting report whose text begins with @p prefix and returns
/// when its callback has returned. False when there is none.
HMI_EXPORT bool fireNext(const std::string &prefix = {}, FireOn thread = FireOn::SimulatorThread);
/// Makes all waiting reports, also those that come up meanwhile (1,000 at most); returns how many.
HMI_EXPORT int fireAll(FireOn thread = FireOn::SimulatorThread);
/// Forgets the waiting reports; what was asked for does not happen.
HMI_EXPORT void dropPending();
/// Waits until nothing but held reports is left to do; false when @p milliseconds did not suffice.
HMI_EXPORT bool waitIdle(int milliseconds = 5000);

// --- The journal: every call of the service ---

enum class Kind {
    Getter, ///< recorded only after setGettersRecorded(true)
    Action, ///< everything else: setters, requests, beep(), reboot()
    Report, ///< a callback was called
};

struct Entry {
    std::uint64_t sequence; ///< grows by one an entry, also over clearJournal()
    Kind kind;
    std::string operation; ///< "setDHCP"
    std::vector<std::string>
        arguments;   ///< {"LAN0", "true", "persist"}; of a report: what was asked, then the answer
    bool mainThread; ///< made on the main thread of the process
    long thread;     ///< the kernel's thread number

    /// "setDHCP(LAN0, true, persist)"; passwords are never in it, a password that is not empty reads ****.
    HMI_EXPORT std::string text() const;
};

/// All entries, oldest first. The journal keeps the newest 10,000.
HMI_EXPORT std::vector<Entry> journal();
/// How many entries had to go since clearJournal().
HMI_EXPORT std::uint64_t journalDropped();
/// The texts of all calls (actions, and getters when they are recorded; no reports).
/// Texts are UTF-8; any other byte of a network name is written as a backslash, an x and two digits.
HMI_EXPORT std::vector<std::string> calls();
/// The texts of calls to one operation, for example "setBright".
HMI_EXPORT std::vector<std::string> calls(const std::string &operation);
/// The texts of the reports made: "setDHCP(LAN0, DHCP_OK)".
HMI_EXPORT std::vector<std::string> reports();
HMI_EXPORT void clearJournal();
/// Tells every further entry to @p watcher at once, on the thread and in the order in which it is made; null
/// ends that. The watcher must not call the service, nor anything here.
HMI_EXPORT void watchJournal(std::function<void(const Entry &)> watcher);
HMI_EXPORT void setGettersRecorded(bool on);

} // namespace HmiSimulator

extern "C" {

/// loadScenario() for a host that only knows the name of the service's library and looks this
/// symbol up in it; a library without it is no simulator. Returns 0 on success. Else @p error, when
/// not null, receives the reason: UTF-8, cut to @p errorSize bytes with the terminating NUL.
HMI_EXPORT int HmiSimulatorLoadScenario(const char *path, char *error, int errorSize);

/// watchJournal() for such a host: @p line gets each entry's text, and whether it is a report of the panel (1)
/// or a call of the screen (0). Null ends that.
HMI_EXPORT void HmiSimulatorWatchJournal(void (*line)(int isReport, const char *text));
}
