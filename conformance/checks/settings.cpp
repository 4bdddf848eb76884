#include "conformance/checks/settings.h"

#include "conformance/checks/asking.h"
#include "conformance/message.h"

#include <algorithm>

using HMI::SystemSet;

namespace Conformance {

namespace {

/// Takes numbers and texts from the fields of a message, in the order in which they were written.
class FieldReader
{
public:
    explicit FieldReader(Fields fields) : m_fields(std::move(fields)) {}

    std::string text() { return m_at < m_fields.size() ? m_fields[m_at++] : std::string(); }
    quint32 number()
    {
        const std::string digits = text();
        return digits.empty() ? 0 : static_cast<quint32>(std::stoul(digits));
    }
    template <class Value> Value as() { return static_cast<Value>(number()); }

private:
    Fields m_fields;
    std::size_t m_at = 0;
};

} // namespace

bool Settings::isNeutral() const
{
    return std::all_of(adapters.begin(), adapters.end(), [](const auto &entry) {
        const AdapterSettings &adapter = entry.second;
        const quint32 bits =
            adapter.ip | adapter.mask | adapter.gateway | adapter.dns.first | adapter.dns.second;
        return bits == 0 && !adapter.isEnabled && !adapter.isDhcpOn;
    });
}

Settings Settings::read()
{
    Settings settings;
    for (const AdapterName &adapter : AdapterNames) {
        const SystemSet::NIC nic = adapter.nic;
        if (!has(nic))
            continue;
        settings.adapters[nic] = {service().getIpFromEE(nic),      service().getSubnetMaskFromEE(nic),
                                  service().getGatewayFromEE(nic), service().getDns(nic),
                                  service().isNicEnabled(nic),     service().isDhcpOn(nic)};
    }
    settings.defaultAdapter = service().getDefaultNIC();
    settings.vpnServer = service().getVPNServer();
    settings.bright = service().bright();
    settings.language = service().getLanguage();
    settings.isBuzzerOn = service().isBuzzerOn();
    settings.network = service().currentWifiSsid();
    return settings;
}

void Settings::addPassword(Check &check)
{
    if (network == HMI::SSID{})
        return;
    const ListReports reports = askForScan();
    if (!check.waitFor([&] { return !reports->isEmpty(); }, check.patience(ListLimit)) || !reports->at(0))
        return;
    for (const SystemSet::SsidInfo &found : *reports->at(0)) {
        if (found.ssid == network)
            password = found.password;
    }
}

std::string Settings::encoded() const
{
    Fields fields;
    const auto put = [&fields](quint32 number) { fields.push_back(std::to_string(number)); };
    put(static_cast<quint32>(adapters.size()));
    for (const auto &[nic, adapter] : adapters) {
        put(nic);
        for (const HMI::IP address :
             {adapter.ip, adapter.mask, adapter.gateway, adapter.dns.first, adapter.dns.second})
            put(address);
        put(adapter.isEnabled ? 1 : 0);
        put(adapter.isDhcpOn ? 1 : 0);
    }
    put(defaultAdapter);
    put(static_cast<quint32>(vpnServer));
    put(static_cast<quint32>(bright));
    put(static_cast<quint32>(language));
    put(isBuzzerOn ? 1 : 0);
    fields.emplace_back(network.begin(), network.end());
    fields.push_back(password);
    return encode(fields);
}

std::optional<Settings> Settings::decoded(const std::string &text)
{
    if (text.empty())
        return std::nullopt;
    FieldReader fields(decode(text.substr(0, text.size() - 1)));
    Settings settings;
    for (quint32 left = fields.number(); left > 0; --left) {
        AdapterSettings &adapter = settings.adapters[fields.as<SystemSet::NIC>()];
        for (HMI::IP *address :
             {&adapter.ip, &adapter.mask, &adapter.gateway, &adapter.dns.first, &adapter.dns.second})
            *address = fields.number();
        adapter.isEnabled = fields.number() != 0;
        adapter.isDhcpOn = fields.number() != 0;
    }
    settings.defaultAdapter = fields.as<SystemSet::NIC>();
    settings.vpnServer = fields.as<SystemSet::VPNServer>();
    settings.bright = fields.as<SystemSet::Bright>();
    settings.language = fields.as<SystemSet::Language>();
    settings.isBuzzerOn = fields.number() != 0;
    const std::string name = fields.text();
    std::copy_n(name.begin(), std::min(name.size(), settings.network.size()), settings.network.begin());
    settings.password = fields.text();
    return settings;
}

} // namespace Conformance
