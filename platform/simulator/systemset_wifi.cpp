#include "hmi/systemset.h"

#include "simulator/report.h"
#include "simulator/servicecall.h"
#include "simulator/wifineighbourhood.h"

using namespace HmiSimulator;

namespace HMI {

namespace {

using List = std::vector<SystemSet::SsidInfo>;

/// Reports what a scan finds at the time of the report; null when it fails.
Outcome answerWithList(const SystemSet::WifiListCallback &done)
{
    std::shared_ptr<const List> found = core().write([](Panel &panel) -> std::shared_ptr<const List> {
        const Adapter *wifi = panel.find(SystemSet::WIFI);
        if (panel.faults.nullList || wifi == nullptr || !wifi->enabled)
            return nullptr;
        return std::make_shared<List>(scan(panel));
    });
    if (!done)
        return {};
    return {found ? std::to_string(found->size()) + " networks" : "null",
            [done, found] { done(found ? std::make_unique<List>(*found) : nullptr); }};
}

/// The natural end of an attempt. One that a newer attempt has replaced changes nothing any more.
SystemSet::StateWifi settleAttempt(std::uint64_t attempt, const std::string &name,
                                   const std::string &password)
{
    if (!core().isAttempt(attempt))
        return SystemSet::WIFI_OFFLINE;
    return core().write([&](Panel &panel) { return join(panel, name, password); });
}

/// One report of an attempt that reports by script.
SystemSet::StateWifi settleScripted(std::uint64_t attempt, const std::string &name, int state)
{
    if (state == SystemSet::WIFI_CONNECTED && core().isAttempt(attempt))
        core().write([&name](Panel &panel) { enter(panel.wifi, name); });
    return static_cast<SystemSet::StateWifi>(state);
}

} // namespace

void SystemSet::scanWifi(const WifiListCallback &done)
{
    action("scanWifi");
    const int delay = core().read([](const Panel &panel) { return panel.delays.scan; });
    submit(takeFault(Operation::Scan), {"scanWifi", {}, delay, [done] { return answerWithList(done); }});
}

void SystemSet::resetWifi(const WifiListCallback &done)
{
    action("resetWifi");
    core().beginAttempt();
    const int delay = core().write([](Panel &panel) {
        forgetAll(panel);
        return panel.delays.reset;
    });
    submit(takeFault(Operation::Reset), {"resetWifi", {}, delay, [done] { return answerWithList(done); }});
}

void SystemSet::connectWifi(const SSID &ssid, const std::string &password,
                            const std::function<void(StateWifi)> &done)
{
    action("connectWifi", {text(ssid), masked(password)});
    const std::uint64_t attempt = core().beginAttempt();
    const std::string name = nameOf(ssid);
    const auto [delays, script] = core().write([](Panel &panel) {
        dropLink(panel);
        return std::pair(panel.delays, panel.faults.connect);
    });
    const DeliveryFault fault = takeFault(Operation::Connect);
    const auto report = [&](int delay, std::function<StateWifi()> settle) {
        submit(fault, {"connectWifi", text(ssid), delay,
                       [done, settle = std::move(settle)] { return answer(done, settle()); }});
    };

    if (!script.empty()) {
        int delay = delays.connecting;
        for (const int state : script) {
            report(delay, [=] { return settleScripted(attempt, name, state); });
            delay += delays.connect;
        }
        return;
    }
    report(delays.connecting, [] { return WIFI_CONNECTING; });
    report(delays.connect, [=] { return settleAttempt(attempt, name, password); });
}

SSID SystemSet::currentWifiSsid() const
{
    return get("currentWifiSsid", [](const Panel &panel) {
        return panel.wifi.connected && panel.find(WIFI) != nullptr ? ssidOf(panel.wifi.joined) : SSID{};
    });
}

bool SystemSet::isWifiConnected() const
{
    return get("isWifiConnected",
               [](const Panel &panel) { return panel.wifi.connected && panel.find(WIFI) != nullptr; });
}

int SystemSet::currentWifiSignalStrength() const
{
    return get("currentWifiSignalStrength",
               [](const Panel &panel) { return panel.find(WIFI) != nullptr ? currentSignal(panel) : 0; });
}

} // namespace HMI
