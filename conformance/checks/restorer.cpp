#include "conformance/checks/restorer.h"

#include "conformance/checks/asking.h"

using HMI::SystemSet;

namespace Conformance {

namespace {

constexpr Milliseconds SettleLimit{2000};

} // namespace

template <class Value>
void Restorer::put(Check &check, const std::string &what, const std::function<Value()> &get,
                   const Value &wanted, const std::function<void()> &set)
{
    if (get() == wanted || m_lost.count(what) > 0)
        return;
    set();
    if (!check.waitFor([&] { return get() == wanted; }, SettleLimit))
        m_lost.insert(what);
}

void Restorer::putBack(Check &check, SystemSet::NIC nic, const AdapterSettings &wanted)
{
    const auto name = [nic](const char *what) { return what + nameOf(nic); };
    put<HMI::IP>(
        check, name("ip"), [nic] { return service().getIpFromEE(nic); }, wanted.ip,
        [&] { service().setIp(nic, wanted.ip, true); });
    put<HMI::IP>(
        check, name("mask"), [nic] { return service().getSubnetMaskFromEE(nic); }, wanted.mask,
        [&] { service().setSubnetMask(nic, wanted.mask, true); });
    put<HMI::IP>(
        check, name("gateway"), [nic] { return service().getGatewayFromEE(nic); }, wanted.gateway,
        [&] { service().setGateway(nic, wanted.gateway, true); });
    put<std::pair<HMI::IP, HMI::IP>>(
        check, name("dns"), [nic] { return service().getDns(nic); }, wanted.dns,
        [&] { service().setDns(nic, wanted.dns); });
    put<bool>(
        check, name("switch"), [nic] { return service().isNicEnabled(nic); }, wanted.isEnabled,
        [&] { service().enableNIC(nic, wanted.isEnabled, true); });
    put<bool>(
        check, name("dhcp"), [nic] { return service().isDhcpOn(nic); }, wanted.isDhcpOn,
        [&] {
            const DhcpReports reports = askForDhcp(nic, wanted.isDhcpOn);
            check.waitFor([&] { return !reports->isEmpty(); }, check.patience(LeaseLimit));
        });
}

void Restorer::putBack(Check &check)
{
    for (const auto &[nic, wanted] : m_settings.adapters)
        putBack(check, nic, wanted);
    put<SystemSet::NIC>(
        check, "default adapter", [] { return service().getDefaultNIC(); }, m_settings.defaultAdapter,
        [this] { service().setDefaultNIC(m_settings.defaultAdapter, false); });
    put<SystemSet::VPNServer>(
        check, "server", [] { return service().getVPNServer(); }, m_settings.vpnServer,
        [this] { service().setVPNServer(m_settings.vpnServer); });
    put<SystemSet::Bright>(
        check, "brightness", [] { return service().bright(); }, m_settings.bright,
        [this] { service().setBright(m_settings.bright, true); });
    put<SystemSet::Language>(
        check, "language", [] { return service().getLanguage(); }, m_settings.language,
        [this] { service().setLanguage(m_settings.language); });
    put<bool>(
        check, "buzzer", [] { return service().isBuzzerOn(); }, m_settings.isBuzzerOn,
        [this] { service().setBuzzerOn(m_settings.isBuzzerOn); });
}

void Restorer::rejoin(Check &check) const
{
    if (m_settings.network == HMI::SSID{} || service().currentWifiSsid() == m_settings.network)
        return;
    const JoinReports reports = askToJoin(m_settings.network, m_settings.password);
    check.waitFor([&] { return finalOf(*reports).has_value(); }, check.patience(JoinLimit));
    // The name may come after the report.
    check.waitFor([this] { return service().currentWifiSsid() == m_settings.network; }, SettleLimit);
    // As the screen does after joining, where the platform does not do it by itself.
    if (!service().isDhcpOn(SystemSet::WIFI) || service().getIp(SystemSet::WIFI) != HMI::IP())
        return;
    const DhcpReports leased = askForDhcp(SystemSet::WIFI, true);
    check.waitFor([&] { return !leased->isEmpty(); }, check.patience(LeaseLimit));
}

void Restorer::compare(Check &check) const
{
    const Settings found = Settings::read();
    const auto compareValue = [&check](const char *operation, const auto &value, const auto &wanted) {
        if (!(value == wanted))
            check.warned(operation, text(wanted) + ", as it was", text(value));
    };
    for (const auto &[nic, wanted] : m_settings.adapters) {
        const auto adapter = found.adapters.find(nic);
        if (adapter == found.adapters.end())
            continue;
        check.about(nic);
        compareValue("getIpFromEE", adapter->second.ip, wanted.ip);
        compareValue("getSubnetMaskFromEE", adapter->second.mask, wanted.mask);
        compareValue("getGatewayFromEE", adapter->second.gateway, wanted.gateway);
        compareValue("getDns", adapter->second.dns, wanted.dns);
        compareValue("isNicEnabled", adapter->second.isEnabled, wanted.isEnabled);
        compareValue("isDhcpOn", adapter->second.isDhcpOn, wanted.isDhcpOn);
    }
    check.about({});
    compareValue("getDefaultNIC", int(found.defaultAdapter), int(m_settings.defaultAdapter));
    compareValue("getVPNServer", int(found.vpnServer), int(m_settings.vpnServer));
    compareValue("bright", int(found.bright), int(m_settings.bright));
    compareValue("getLanguage", int(found.language), int(m_settings.language));
    compareValue("isBuzzerOn", found.isBuzzerOn, m_settings.isBuzzerOn);
    compareValue("currentWifiSsid", found.network, m_settings.network);
}

} // namespace Conformance
