#include "conformance/checks/calllimits.h"
#include "conformance/checks/check.h"
#include "conformance/checks/cost.h"
#include "conformance/checks/functions.h"

using HMI::SystemSet;

namespace Conformance {

namespace {

/// Measures getters and remembers the slowest.
class Stopwatch
{
public:
    explicit Stopwatch(Check &check) : m_check(check) {}
    Stopwatch(const Stopwatch &) = delete;
    Stopwatch &operator=(const Stopwatch &) = delete;
    ~Stopwatch()
    {
        m_check.note("slowest: " + m_slowest + ", " + milliseconds(m_cost) +
                     " in the 95th percentile of its calls");
    }

    void measure(const char *getter, const std::function<void()> &call)
    {
        const double cost = usualCostOf(call, [this] { m_check.alive(); });
        if (cost > GetterLimit)
            m_check.failed(getter, "an answer within " + milliseconds(GetterLimit), milliseconds(cost));
        else if (cost > GetterWarning)
            m_check.warned(getter, "an answer within " + milliseconds(GetterWarning), milliseconds(cost));
        if (cost > m_cost || m_slowest.empty()) {
            m_cost = cost;
            m_slowest = getter;
        }
    }

private:
    Check &m_check;
    std::string m_slowest;
    double m_cost = 0;
};

} // namespace

void Checks::speedPanel(Check &check)
{
    Stopwatch stopwatch(check);
    const SystemSet &panel = service();
    stopwatch.measure("getAllNIC", [&] { panel.getAllNIC(); });
    stopwatch.measure("getDefaultNIC", [&] { panel.getDefaultNIC(); });
    stopwatch.measure("currentWifiSsid", [&] { panel.currentWifiSsid(); });
    stopwatch.measure("isWifiConnected", [&] { panel.isWifiConnected(); });
    stopwatch.measure("currentWifiSignalStrength", [&] { panel.currentWifiSignalStrength(); });
    stopwatch.measure("get4GState", [&] { panel.get4GState(SystemSet::MOBILE_4G); });
    stopwatch.measure("get4GSignal", [&] { panel.get4GSignal(SystemSet::MOBILE_4G); });
    stopwatch.measure("getVPNServer", [&] { panel.getVPNServer(); });
    stopwatch.measure("getVPNServerState", [&] { panel.getVPNServerState(SystemSet::ASIA); });
    stopwatch.measure("bright", [&] { panel.bright(); });
    stopwatch.measure("isBuzzerOn", [&] { panel.isBuzzerOn(); });
    stopwatch.measure("getLanguage", [&] { panel.getLanguage(); });
    stopwatch.measure("getSerialNumber", [&] { panel.getSerialNumber(); });
}

void Checks::speedAdapter(Check &check)
{
    Stopwatch stopwatch(check);
    const SystemSet &panel = service();
    const SystemSet::NIC nic = check.adapter();
    stopwatch.measure("getIp", [&] { panel.getIp(nic); });
    stopwatch.measure("getSubnetMask", [&] { panel.getSubnetMask(nic); });
    stopwatch.measure("getGateway", [&] { panel.getGateway(nic); });
    stopwatch.measure("getIpFromEE", [&] { panel.getIpFromEE(nic); });
    stopwatch.measure("getSubnetMaskFromEE", [&] { panel.getSubnetMaskFromEE(nic); });
    stopwatch.measure("getGatewayFromEE", [&] { panel.getGatewayFromEE(nic); });
    stopwatch.measure("getMac", [&] { panel.getMac(nic); });
    stopwatch.measure("getDns", [&] { panel.getDns(nic); });
    stopwatch.measure("isDhcpOn", [&] { panel.isDhcpOn(nic); });
    stopwatch.measure("isNicEnabled", [&] { panel.isNicEnabled(nic); });
}

} // namespace Conformance
