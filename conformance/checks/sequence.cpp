#include "conformance/checks/sequence.h"

#include "conformance/checks/asking.h"
#include "conformance/checks/calllimits.h"
#include "conformance/checks/cost.h"
#include "conformance/checks/functions.h"

#include <algorithm>
#include <string_view>

using HMI::SystemSet;

namespace Conformance {

namespace {

struct Made {
    const char *group;
    const char *name;
    void (*function)(Check &);
};

constexpr std::array Functions = {
    Made{"life", "answers", &Checks::answers},
    Made{"adapters", "constant", &Checks::adaptersConstant},
    Made{"adapters", "default", &Checks::adaptersDefault},
    Made{"adapters", "absent", &Checks::adaptersAbsent},
    Made{"adapters", "untouched", &Checks::adaptersUntouched},
    Made{"adapters", "choice", &Checks::adaptersChoice},
    Made{"adapters", "switching", &Checks::adaptersSwitching},
    Made{"addresses", "stored", &Checks::addressesStored},
    Made{"dns", "stored", &Checks::dnsStored},
    Made{"dhcp", "lease", &Checks::dhcpLease},
    Made{"dhcp", "static", &Checks::dhcpStatic},
    Made{"dhcp", "absent", &Checks::dhcpAbsent},
    Made{"ping", "report", &Checks::pingReport},
    Made{"ping", "absent", &Checks::pingAbsent},
    Made{"brightness", "value", &Checks::brightnessValue},
    Made{"brightness", "levels", &Checks::brightnessLevels},
    Made{"brightness", "limits", &Checks::brightnessLimits},
    Made{"buzzer", "beep", &Checks::buzzerBeep},
    Made{"buzzer", "switching", &Checks::buzzerSwitching},
    Made{"buzzer", "threads", &Checks::buzzerThreads},
    Made{"language", "value", &Checks::languageValue},
    Made{"language", "switching", &Checks::languageSwitching},
    Made{"identity", "serial", &Checks::identitySerial},
    Made{"clock", "set", &Checks::clockSet},
    Made{"clock", "limits", &Checks::clockLimits},
    Made{"mobile", "values", &Checks::mobileValues},
    Made{"vpn", "values", &Checks::vpnValues},
    Made{"vpn", "server", &Checks::vpnServer},
    Made{"vpn", "address", &Checks::vpnAddress},
    Made{"speed", "panel", &Checks::speedPanel},
    Made{"speed", "adapter", &Checks::speedAdapter},
    Made{"requests", "at-once", &Checks::requestsAtOnce},
    Made{"requests", "calling-back", &Checks::requestsCallingBack},
    Made{"requests", "unheard", &Checks::requestsUnheard},
    Made{"wifi", "link", &Checks::wifiLink},
    Made{"wifi", "scan", &Checks::wifiScan},
    Made{"wifi", "off", &Checks::wifiOff},
    Made{"wifi", "unknown", &Checks::wifiUnknown},
    Made{"wifi", "replaced", &Checks::wifiReplaced},
    Made{"wifi", "reset", &Checks::wifiReset},
    Made{"requests", "once", &Checks::requestsOnce},
};

// Loading and starting come before the first that has a function; restoring and ending after the last.
constexpr std::size_t Before = 3;
constexpr std::size_t After = 3;
constexpr const CheckInfo &StartInfo = ServiceChecks[Before - 1];
constexpr const CheckInfo &RestoredInfo = ServiceChecks[ServiceChecks.size() - After];
constexpr const CheckInfo &EndInfo = ServiceChecks.back();

constexpr bool haveSameNames()
{
    if (Functions.size() + Before + After != ServiceChecks.size())
        return false;
    for (std::size_t i = 0; i < Functions.size(); ++i) {
        const CheckInfo &info = ServiceChecks[i + Before];
        if (std::string_view(Functions[i].group) != info.group ||
            std::string_view(Functions[i].name) != info.name)
            return false;
    }
    return true;
}
static_assert(haveSameNames(), "every check of the list has its function here, in the same order");

/// The groups that a run cannot do without.
bool isFrame(std::string_view group)
{
    return group == "life" || group == "panel";
}

/// Calls @p function; what it throws fails @p check.
void callSafely(Check &check, const std::function<void()> &function)
{
    try {
        function();
    } catch (const std::exception &error) {
        check.failed("the service", "nothing is thrown", error.what());
    } catch (...) {
        check.failed("the service", "nothing is thrown", "something that is no std::exception");
    }
}

} // namespace

void Sequence::run()
{
    start(StartInfo);
    // In a process that follows one that died the panel is no longer what it was.
    if (const std::optional<Settings> settings = Settings::decoded(m_order.settings))
        m_restorer.emplace(*settings);
    for (std::size_t i = 0; i < Functions.size(); ++i) {
        const CheckInfo &info = ServiceChecks[i + Before];
        if (!isWanted(info))
            continue;
        make(info, [this, i](Check &check) {
            Functions[i].function(check);
            if (!m_restorer)
                rememberPanel(check);
        });
    }
    restore(RestoredInfo);
    m_witness.begin(Check(EndInfo, {}, m_order, m_witness).result());
    leaveRequests();
}

bool Sequence::isWanted(const CheckInfo &info) const
{
    return m_order.groups.empty() || isFrame(info.group) || m_order.groups.count(info.group) > 0;
}

bool Sequence::changesWifi() const
{
    return !m_order.isReadOnly && (m_order.adapters & m_adapters & SystemSet::WIFI) != 0;
}

void Sequence::start(const CheckInfo &info)
{
    Check check(info, {}, m_order, m_witness);
    m_witness.begin(check.result());
    const double cost = costOf([] { service(); });
    if (cost > StartWarning)
        check.warned("SystemSet", "there within " + milliseconds(StartWarning), milliseconds(cost));
    callSafely(check, [&] {
        settle(check);
        m_adapters = service().getAllNIC();
    });
    m_witness.end(check.result());
}

void Sequence::settle(Check &check) const
{
    using Clock = std::chrono::steady_clock;
    constexpr Milliseconds BetweenLooks{100};
    if (m_order.settling.count() == 0)
        return;
    const Clock::time_point end = Clock::now() + m_order.settling;
    Settings before = Settings::read();
    while (Clock::now() < end) {
        check.waitFor([] { return false; }, BetweenLooks);
        check.alive();
        Settings now = Settings::read();
        if (!now.isNeutral() && now.encoded() == before.encoded())
            return;
        before = std::move(now);
    }
    check.note((before.isNeutral() ? "still neutral after " : "not settled after ") +
               std::to_string(m_order.settling.count()) + " s");
}

void Sequence::make(const CheckInfo &info, const Function &function)
{
    if (info.adapters == NoAdapter)
        return make(info, {}, function);
    if ((info.adapters & m_adapters) == 0) {
        Check check({info.group, info.name, NoAdapter, info.effect, ""}, {}, m_order, m_witness);
        check.skipped("the panel has no adapter that it is about");
        return m_witness.end(check.result());
    }
    for (const AdapterName &adapter : AdapterNames) {
        if ((info.adapters & m_adapters & m_order.adapters & adapter.nic) != 0)
            make(info, adapter.nic, function);
    }
}

void Sequence::make(const CheckInfo &info, SystemSet::NIC adapter, const Function &function)
{
    Check check(info, adapter, m_order, m_witness);
    if (m_order.isDone(check.result().title()))
        return;
    if (m_order.isReadOnly && info.effect == Effect::Changes) {
        check.skipped("it changes the panel");
        return m_witness.end(check.result());
    }
    m_witness.begin(check.result());
    callSafely(check, [&] {
        function(check);
        if (info.effect == Effect::Changes && m_restorer)
            m_restorer->putBack(check);
    });
    m_witness.end(check.result());
}

void Sequence::rememberPanel(Check &check)
{
    Settings settings = Settings::read();
    // A service that has not read its panel yet would have that written into it at the end.
    if (!settings.adapters.empty() && settings.isNeutral())
        check.warned("the service", "something of an adapter", "nothing; --settle gives it time");
    if (changesWifi())
        settings.addPassword(check);
    m_witness.keep(settings.encoded());
    m_restorer.emplace(std::move(settings));
}

void Sequence::restore(const CheckInfo &info)
{
    make(info, {}, [this](Check &check) {
        if (!m_restorer)
            return check.skipped("nobody knows what it was like");
        m_restorer->putBack(check);
        if (changesWifi())
            m_restorer->rejoin(check);
        m_restorer->compare(check);
    });
}

void Sequence::leaveRequests() const
{
    // So that the service ends while something is under way.
    for (const AdapterName &adapter : AdapterNames) {
        if ((m_adapters & m_order.adapters & adapter.nic) != 0)
            askForPing(adapter.nic);
    }
    if ((m_order.adapters & SystemSet::WIFI) != 0)
        askForScan();
}

} // namespace Conformance
