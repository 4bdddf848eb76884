#include "hmi/systemset.h"

#include "mutants.h"
#include "original.h"

#include <chrono>
#include <thread>

using namespace Mutants;

namespace HMI {

namespace {

using List = std::unique_ptr<std::vector<SystemSet::SsidInfo>>;
using AskForList = void(SystemSet *, const SystemSet::WifiListCallback &);

SystemSet::SsidInfo someNetwork()
{
    SystemSet::SsidInfo network{};
    network.ssid[0] = 'x';
    network.signal = 50;
    return network;
}

} // namespace

void SystemSet::scanWifi(const WifiListCallback &done)
{
    constexpr std::chrono::milliseconds Blocking{300};
    const auto ask = original<AskForList>("scanWifi");
    if (is(Mutant::ScanBlocks))
        std::this_thread::sleep_for(Blocking);
    if (is(Mutant::EmptyCrash) && !done)
        std::thread([done] { done(nullptr); }).join();
    const bool isOff = !isNicEnabled(WIFI);
    if (!done || !is(isOff ? Mutant::ScanWhileOff : Mutant::ScanSignal))
        return ask(this, done);
    ask(this, [done](List list) {
        if (!list)
            list = std::make_unique<std::vector<SsidInfo>>();
        list->push_back(someNetwork());
        if (is(Mutant::ScanSignal))
            list->back().signal = 150;
        done(std::move(list));
    });
}

void SystemSet::resetWifi(const WifiListCallback &done)
{
    const auto ask = original<AskForList>("resetWifi");
    if (!is(Mutant::PasswordKept))
        return ask(this, done);
    ask(this, [done](List list) {
        list->push_back(someNetwork());
        list->back().password = "kept";
        done(std::move(list));
    });
}

void SystemSet::connectWifi(const SSID &ssid, const std::string &password,
                            const std::function<void(StateWifi)> &done)
{
    const bool isUnknown = ssid.front() == 'n'; // "no network has this name"
    const bool isJoined = isUnknown && done &&
                          ((is(Mutant::UnknownJoined) && !password.empty()) ||
                           (is(Mutant::ReplacedJoined) && password.empty()));
    original<void(SystemSet *, const SSID &, const std::string &, const std::function<void(StateWifi)> &)>(
        "connectWifi")(this, ssid, password, done);
    if (isJoined)
        done(WIFI_CONNECTED);
}

} // namespace HMI
