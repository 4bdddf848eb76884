#include "simulator/scenario.h"

#include "simulator/addressing.h"
#include "simulator/defaultpanel.h"
#include "simulator/jsonlines.h"
#include "simulator/jsonsize.h"
#include "simulator/scenarioreading.h"
#include "simulator/scenariosection.h"
#include "simulator/simulator.h"
#include "simulator/wifineighbourhood.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

#include <limits>

namespace HmiSimulator {

using HMI::SystemSet;

namespace {

constexpr qint64 MaximumFileBytes = 4LL * 1024 * 1024;
constexpr int MaximumDelay = 600000;
constexpr int MaximumNetworks = 10000;
constexpr int MaximumBytes = 100000;
constexpr int AnyMinimum = std::numeric_limits<int>::min();
constexpr int AnyMaximum = std::numeric_limits<int>::max();

struct Name {
    const char *key;
    int nic;
};
constexpr Name Adapters[] = {{"LAN0", SystemSet::LAN0},
                             {"LAN1", SystemSet::LAN1},
                             {"WIFI", SystemSet::WIFI},
                             {"4G", SystemSet::MOBILE_4G},
                             {"VPN", SystemSet::VPN}};

QStringList strings(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list.append(QLatin1String(text));
    return list;
}

void readAddresses(ScenarioSection section, Addresses &addresses)
{
    section.read("ip", addresses.ip);
    section.read("mask", addresses.mask);
    section.read("gateway", addresses.gateway);
}

void readAdapter(ScenarioSection section, Adapter &adapter)
{
    section.read("enabled", adapter.enabled);
    section.read("dhcp", adapter.dhcp);
    section.read("link", adapter.link);
    section.read("mac", adapter.mac);
    readAddresses(section.section("stored"), adapter.stored);
    readAddresses(section.section("lease"), adapter.lease);
    ScenarioSection dns = section.section("dns");
    dns.read("preferred", adapter.dns.first);
    dns.read("alternate", adapter.dns.second);
}

void readAdapters(ScenarioSection &root, Panel &panel)
{
    if (root.has("adapters")) {
        panel.nicMask = 0;
        ScenarioSection adapters = root.section("adapters");
        for (const Name &name : Adapters) {
            if (!adapters.has(name.key))
                continue;
            panel.nicMask |= name.nic;
            readAdapter(adapters.section(name.key), panel.adapters[name.nic]);
        }
        if (panel.nicMask == 0)
            panel.defaultNic = 0;
    }
    int place = 0;
    root.readChoice("defaultAdapter", place, strings({"LAN0", "LAN1", "WIFI", "4G"}));
    if (root.has("defaultAdapter"))
        panel.defaultNic = Adapters[place].nic;
}

Network readNetwork(ScenarioSection section)
{
    constexpr int nameBytes = static_cast<int>(std::tuple_size<HMI::SSID>::value);
    Network network;
    section.readBytes("name", network.name, nameBytes);
    section.readBytes("password", network.password, MaximumBytes);
    section.read("signal", network.signal, 0, 100);
    section.read("drift", network.drift, 0, 100);
    section.read("answers", network.answers);
    if (section.has("stored")) {
        std::string stored;
        section.readBytes("stored", stored, MaximumBytes);
        network.stored = stored;
    }
    if (section.has("needsPassword")) {
        int flag = 0;
        section.read("needsPassword", flag, 0, 255);
        network.needsPassword = flag;
    }
    return network;
}

void readWifi(ScenarioSection section, Wifi &wifi)
{
    if (section.has("networks") || section.has("crowd")) {
        wifi = {};
        const QJsonArray list = section.list("networks", 0, MaximumNetworks);
        for (int i = 0; i < list.size(); ++i)
            wifi.networks.push_back(readNetwork(section.element("networks", i, list.at(i))));
        int count = 0;
        section.read("crowd", count, 0, MaximumNetworks);
        const std::vector<Network> more = crowd(count);
        wifi.networks.insert(wifi.networks.end(), more.begin(), more.end());
    }
    section.read("connected", wifi.connected);
    if (section.has("joined")) {
        section.readBytes("joined", wifi.joined, static_cast<int>(std::tuple_size<HMI::SSID>::value));
        wifi.connected = true;
    }
    if (!wifi.connected)
        wifi.joined.clear();
}

void readLinks(ScenarioSection &root, Panel &panel)
{
    ScenarioSection mobile = root.section("mobile");
    mobile.read("state", panel.mobile.state, 0, 2);
    mobile.read("signal", panel.mobile.signal, 0, 100);
    mobile.read("drift", panel.mobile.drift, 0, 100);
    mobile.read("settles", panel.mobile.settles, 0, 2);

    ScenarioSection vpn = root.section("vpn");
    vpn.readChoice("server", panel.vpn.server, strings({"Asia", "Europe"}));
    vpn.read("state", panel.vpn.state, 0, 5);
    ScenarioSection settles = vpn.section("settles");
    settles.read("Asia", panel.vpn.settles[0], 0, 5);
    settles.read("Europe", panel.vpn.settles[1], 0, 5);
    const Adapter *tunnel = panel.find(SystemSet::VPN);
    if (tunnel != nullptr && tunnel->enabled && !vpn.has("state"))
        panel.vpn.state = panel.vpn.settles[panel.vpn.server == SystemSet::EUROPE ? 1 : 0];
}

void readDevice(ScenarioSection &root, Panel &panel)
{
    root.read("brightness", panel.bright, SystemSet::BRIGHT_MIN, SystemSet::BRIGHT_MAX);
    panel.savedBright = panel.bright;
    root.read("buzzer", panel.buzzer);
    root.readChoice("language", panel.language, strings({"zh", "en"}));
    root.readBytes("serialNumber", panel.serialNumber, MaximumBytes);
    root.read("clockOffset", panel.clockOffset, -AnyMaximum, AnyMaximum);
    root.read("clockStandsAt", panel.clockStandsAt, 0, AnyMaximum);
    panel.hardwareClockOffset = panel.clockOffset;
}

void readDelays(ScenarioSection section, Delays &delays)
{
    if (section.has("all")) {
        int all = 0;
        section.read("all", all, 0, MaximumDelay);
        delays = Delays::all(all);
    }
    section.read("dhcp", delays.dhcp, 0, MaximumDelay);
    section.read("fixed", delays.fixed, 0, MaximumDelay);
    section.read("ping", delays.ping, 0, MaximumDelay);
    section.read("scan", delays.scan, 0, MaximumDelay);
    section.read("reset", delays.reset, 0, MaximumDelay);
    section.read("connecting", delays.connecting, 0, MaximumDelay);
    section.read("connect", delays.connect, 0, MaximumDelay);
    section.read("mobile", delays.mobile, 0, MaximumDelay);
    section.read("vpn", delays.vpn, 0, MaximumDelay);
    section.read("buzzer", delays.buzzer, 0, MaximumDelay);
}

void readDelivery(ScenarioSection &section, DeliveryFault &fault)
{
    int place = 0;
    section.readChoice("delivery", place,
                       strings({"normal", "late", "never", "twice", "synchronous", "held"}));
    fault.delivery = static_cast<Delivery>(place);
    section.read("lateBy", fault.lateBy, 0, MaximumDelay);
    section.read("times", fault.times, 0, AnyMaximum);
}

void readConnectFault(ScenarioSection section, Faults &faults)
{
    readDelivery(section, faults.of(Operation::Connect));
    const QJsonArray reports = section.list("reports", 1, 100);
    for (const QJsonValue &value : reports) {
        const int state = value.toInt(-1);
        if (state < 0 || state > 255)
            section.refuse("reports", QStringLiteral("must be a list of numbers from 0 to 255"));
        faults.connect.push_back(state);
    }
}

void readFaults(ScenarioSection section, Faults &faults)
{
    ScenarioSection dhcp = section.section("setDHCP");
    readDelivery(dhcp, faults.of(Operation::Dhcp));
    if (dhcp.has("result")) {
        int result = 0;
        dhcp.read("result", result, 0, 255);
        faults.dhcp = result;
    }
    ScenarioSection ping = section.section("pingTest");
    readDelivery(ping, faults.of(Operation::Ping));
    if (ping.has("result")) {
        bool result = false;
        ping.read("result", result);
        faults.ping = result;
    }
    ScenarioSection scan = section.section("scanWifi");
    readDelivery(scan, faults.of(Operation::Scan));
    ScenarioSection reset = section.section("resetWifi");
    readDelivery(reset, faults.of(Operation::Reset));
    readConnectFault(section.section("connectWifi"), faults);
    section.read("nullList", faults.nullList);
    section.read("clockRefused", faults.clockRefused);
}

/// Values that no panel should answer, so they have no place among the checked ones.
void readNonsense(ScenarioSection section, Panel &panel)
{
    section.read("adapterMask", panel.nicMask, AnyMinimum, AnyMaximum);
    section.read("defaultAdapter", panel.defaultNic, AnyMinimum, AnyMaximum);
    section.read("mobileState", panel.mobile.state, AnyMinimum, AnyMaximum);
    section.read("mobileSignal", panel.mobile.signal, AnyMinimum, AnyMaximum);
    section.read("vpnServer", panel.vpn.server, AnyMinimum, AnyMaximum);
    section.read("vpnState", panel.vpn.state, AnyMinimum, AnyMaximum);
    section.read("brightness", panel.bright, AnyMinimum, AnyMaximum);
    section.read("language", panel.language, AnyMinimum, AnyMaximum);
    if (section.has("wifiSignals")) {
        int signal = 0;
        section.read("wifiSignals", signal, AnyMinimum, AnyMaximum);
        panel.wifi.signal = signal;
        for (Network &network : panel.wifi.networks) {
            network.signal = signal;
            network.drift = 0;
        }
    }
}

/// What is in force follows from the rest.
void bringUp(Panel &panel)
{
    const Adapter *wifi = panel.find(SystemSet::WIFI);
    if (wifi == nullptr || !wifi->enabled)
        leave(panel.wifi);
    const Adapter *modem = panel.find(SystemSet::MOBILE_4G);
    if (modem == nullptr || !modem->enabled)
        panel.mobile.state = 0;
    for (auto &[nic, adapter] : panel.adapters) {
        adapter.live = {};
        if (!isUp(panel, nic))
            continue;
        const bool leased = adapter.dhcp || nic == SystemSet::MOBILE_4G || nic == SystemSet::VPN;
        adapter.live = leased ? adapter.lease : adapter.stored;
    }
}

void readPanel(const QJsonObject &object, const JsonLines &lines, Panel &panel, ScenarioReading &reading)
{
    ScenarioSection root(object, lines.root(), reading);
    root.readComment();
    readAdapters(root, panel);
    readWifi(root.section("wifi"), panel.wifi);
    readLinks(root, panel);
    readDevice(root, panel);
    readDelays(root.section("delays"), panel.delays);
    readFaults(root.section("faults"), panel.faults);
    bringUp(panel);
    readNonsense(root.section("nonsense"), panel);
}

Scenario refusal(const std::string &name, int line, const QString &reason)
{
    return {std::nullopt, name + ':' + std::to_string(line) + ": " + reason.toStdString()};
}

} // namespace

Scenario readScenario(const std::string &json, const std::string &name)
{
    if (json.size() > MaximumFileBytes)
        return refusal(name, 1, QStringLiteral("is larger than 4 MiB"));
    const QByteArray text = QByteArray::fromStdString(json);
    if (const std::optional<JsonExcess> excess = excessOf(text))
        return refusal(name, excess->line, excess->reason);
    QJsonParseError parsing;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parsing);
    if (parsing.error != QJsonParseError::NoError) {
        return refusal(name, JsonLines::lineAt(text, parsing.offset),
                       QStringLiteral("not JSON: ") + parsing.errorString());
    }
    if (!document.isObject())
        return refusal(name, 1, QStringLiteral("a scenario must be an object"));

    Panel panel = defaultPanel();
    const JsonLines lines(text);
    ScenarioReading reading;
    readPanel(document.object(), lines, panel, reading);
    if (const auto &repeated = lines.repeated()) {
        reading.refuse(repeated->line,
                       QStringLiteral("key %1 stands twice").arg(ScenarioReading::quoted(repeated->key)));
    }
    if (const auto &problem = reading.problem())
        return refusal(name, problem->line, problem->reason);
    return {panel, {}};
}

Scenario readScenarioFile(const std::string &path)
{
    const QString fileName = QString::fromStdString(path);
    QFile file(fileName);
    const QFileInfo info(fileName);
    if (!info.exists())
        return {std::nullopt, path + ": there is no such file"};
    if (!info.isFile()) // a device or a pipe would never end
        return {std::nullopt, path + ": is not a file"};
    if (!file.open(QIODevice::ReadOnly))
        return {std::nullopt, path + ": " + file.errorString().toStdString()};
    return readScenario(file.read(MaximumFileBytes + 1).toStdString(), path);
}

} // namespace HmiSimulator
