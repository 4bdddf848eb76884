#include "simulator/simulator.h"

#include "simulator/scenario.h"
#include "simulator/servicecall.h"
#include "simulator/wifineighbourhood.h"

namespace HmiSimulator {

namespace {

constexpr int MaximumReportsAtOnce = 1000;

bool take(Scenario scenario, std::string *error)
{
    if (error != nullptr)
        *error = scenario.error;
    if (!scenario.panel)
        return false;
    core().replace(std::move(*scenario.panel));
    return true;
}

std::vector<std::string> textsOf(const std::function<bool(const Entry &)> &wanted)
{
    std::vector<std::string> texts;
    for (const Entry &entry : core().journal().entries()) {
        if (wanted(entry))
            texts.push_back(entry.text());
    }
    return texts;
}

} // namespace

void reset()
{
    core().reset();
}

Panel panel()
{
    return core().read([](const Panel &panel) { return panel; });
}

void change(const std::function<void(Panel &)> &edit)
{
    core().write(edit);
}

bool loadScenario(const std::string &path, std::string *error)
{
    return take(readScenarioFile(path), error);
}

bool loadScenarioText(const std::string &json, std::string *error, const std::string &name)
{
    return take(readScenario(json, name), error);
}

void setAdapters(int mask)
{
    change([mask](Panel &panel) { panel.nicMask = mask; });
}

void setLiveAddress(HMI::SystemSet::NIC nic, HMI::IP ip, HMI::IP mask, HMI::IP gateway)
{
    change([=](Panel &panel) { panel.adapters[nic].live = {ip, mask, gateway}; });
}

void setStoredAddress(HMI::SystemSet::NIC nic, HMI::IP ip, HMI::IP mask, HMI::IP gateway)
{
    change([=](Panel &panel) { panel.adapters[nic].stored = {ip, mask, gateway}; });
}

void setNicEnabled(HMI::SystemSet::NIC nic, bool enabled)
{
    change([=](Panel &panel) { panel.adapters[nic].enabled = enabled; });
}

void setDhcpOn(HMI::SystemSet::NIC nic, bool on)
{
    change([=](Panel &panel) { panel.adapters[nic].dhcp = on; });
}

void setDefaultNic(int nic)
{
    change([nic](Panel &panel) { panel.defaultNic = nic; });
}

void setNetworks(const std::vector<Network> &networks)
{
    change([&networks](Panel &panel) { panel.wifi.networks = networks; });
}

void joinNetwork(const std::string &name, int signal)
{
    change([&](Panel &panel) {
        enter(panel.wifi, name);
        panel.wifi.signal = signal;
        if (Network *network = findNetwork(panel.wifi, name)) {
            network->signal = signal;
            network->drift = 0;
        }
    });
}

void leaveNetwork()
{
    change([](Panel &panel) { leave(panel.wifi); });
}

void setMobile(int state, int signal)
{
    change([=](Panel &panel) {
        panel.mobile.state = state;
        panel.mobile.signal = signal;
        panel.mobile.drift = 0;
    });
}

void setVpnState(int state)
{
    change([state](Panel &panel) { panel.vpn.state = state; });
}

void setBright(int level)
{
    change([level](Panel &panel) { panel.bright = level; });
}

void setBuzzerOn(bool on)
{
    change([on](Panel &panel) { panel.buzzer = on; });
}

void setLanguage(int language)
{
    change([language](Panel &panel) { panel.language = language; });
}

void setSerialNumber(const std::string &bytes)
{
    change([&bytes](Panel &panel) { panel.serialNumber = bytes; });
}

void setDelays(int milliseconds)
{
    change([milliseconds](Panel &panel) { panel.delays = Delays::all(milliseconds); });
}

void setDelivery(Operation operation, Delivery delivery, int lateBy)
{
    change([=](Panel &panel) { panel.faults.of(operation) = {delivery, lateBy, 0}; });
}

void setManual(bool manual)
{
    core().thread().setManual(manual);
}

std::vector<std::string> pending()
{
    return core().thread().pending();
}

bool fireNext(const std::string &prefix, FireOn thread)
{
    return core().thread().fireNext(prefix, thread);
}

int fireAll(FireOn thread)
{
    int fired = 0;
    while (fired < MaximumReportsAtOnce && fireNext({}, thread))
        ++fired;
    return fired;
}

void dropPending()
{
    core().thread().dropReports();
}

bool waitIdle(int milliseconds)
{
    return core().thread().waitIdle(milliseconds);
}

std::vector<Entry> journal()
{
    return core().journal().entries();
}

std::uint64_t journalDropped()
{
    return core().journal().dropped();
}

std::vector<std::string> calls()
{
    return textsOf([](const Entry &entry) { return entry.kind != Kind::Report; });
}

std::vector<std::string> calls(const std::string &operation)
{
    return textsOf([&operation](const Entry &entry) {
        return entry.kind != Kind::Report && entry.operation == operation;
    });
}

std::vector<std::string> reports()
{
    return textsOf([](const Entry &entry) { return entry.kind == Kind::Report; });
}

void watchJournal(std::function<void(const Entry &)> watcher)
{
    core().journal().watch(std::move(watcher));
}

void clearJournal()
{
    core().journal().clear();
}

void setGettersRecorded(bool on)
{
    core().journal().setGetters(on);
}

} // namespace HmiSimulator

int HmiSimulatorLoadScenario(const char *path, char *error, int errorSize)
{
    std::string reason;
    const bool loaded = HmiSimulator::loadScenario(path == nullptr ? "" : path, &reason);
    if (error != nullptr && errorSize > 0) {
        const std::size_t length = reason.copy(error, static_cast<std::size_t>(errorSize) - 1);
        error[length] = '\0';
    }
    return loaded ? 0 : 1;
}

void HmiSimulatorWatchJournal(void (*line)(int isReport, const char *text))
{
    if (line == nullptr)
        return HmiSimulator::watchJournal(nullptr);
    HmiSimulator::watchJournal([line](const HmiSimulator::Entry &entry) {
        line(entry.kind == HmiSimulator::Kind::Report ? 1 : 0, entry.text().c_str());
    });
}
