#include "simulatortest.h"

#include <QtCore/QDir>

using HmiSimulator::Panel;

/// Scenario files: the ones we ship load, wrong ones are refused with line and reason.
class TestSimulatorScenarios : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        beginWatch();
    }

    void shippedOnesLoad_data();
    void shippedOnesLoad();
    void defaultIsTheBuiltInPanel();
    void emptyScenarioIsTheDefaultPanel();
    void presentAdaptersAreTheNamedOnes();
    void everyKeyIsRead();
    void bytesInThreeForms();
    void refused_data();
    void refused();
    void refusalChangesNothing();
    void loadingDropsWhatIsUnderWay();
    void hostEntry();
};

namespace {

/// Everything that a panel holds, one value a line.
QStringList described(const Panel &panel)
{
    QStringList list;
    const auto add = [&list](const char *name, auto... values) {
        QStringList texts{QString::fromLatin1(name)};
        (texts.append(QString::number(static_cast<double>(values))), ...);
        list.append(texts.join(' '));
    };
    const auto addAddresses = [&add](const char *name, const HmiSimulator::Addresses &addresses) {
        add(name, quint32(addresses.ip), quint32(addresses.mask), quint32(addresses.gateway));
    };
    add("adapters", panel.nicMask, panel.defaultNic);
    for (const auto &[nic, adapter] : panel.adapters) {
        add("adapter", nic, adapter.enabled, adapter.dhcp, adapter.link);
        addAddresses("live", adapter.live);
        addAddresses("stored", adapter.stored);
        addAddresses("lease", adapter.lease);
        for (const unsigned char byte : adapter.mac)
            add("mac", byte);
        add("dns", quint32(adapter.dns.first), quint32(adapter.dns.second));
    }
    for (const HmiSimulator::Network &network : panel.wifi.networks) {
        list.append(QString::fromLatin1(network.name.c_str()) + ' ' +
                    QString::fromStdString(network.password) + ' ' +
                    QString::fromStdString(network.stored.value_or("none")));
        add("network", network.signal, network.drift, network.answers, network.needsPassword.value_or(-1));
    }
    list.append(QString::fromLatin1(panel.wifi.joined.c_str()));
    add("wifi", panel.wifi.connected, panel.wifi.signal);
    add("mobile", panel.mobile.state, panel.mobile.signal, panel.mobile.drift, panel.mobile.settles);
    add("vpn", panel.vpn.server, panel.vpn.state, panel.vpn.settles[0], panel.vpn.settles[1]);
    add("device", panel.bright, panel.savedBright, panel.buzzer, panel.language, panel.clockOffset,
        panel.hardwareClockOffset);
    list.append(QString::fromLatin1(panel.serialNumber.c_str()));
    const HmiSimulator::Delays &delays = panel.delays;
    add("delays", delays.dhcp, delays.fixed, delays.ping, delays.scan, delays.reset, delays.connecting,
        delays.connect, delays.mobile, delays.vpn, delays.buzzer);
    for (const HmiSimulator::DeliveryFault &fault : panel.faults.delivery)
        add("delivery", static_cast<int>(fault.delivery), fault.lateBy, fault.times);
    add("faults", panel.faults.dhcp.value_or(-1), panel.faults.ping.value_or(false),
        panel.faults.ping.has_value(), panel.faults.nullList, panel.faults.clockRefused);
    for (const int report : panel.faults.connect)
        add("connect", report);
    return list;
}

} // namespace

void TestSimulatorScenarios::shippedOnesLoad_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = QDir(QStringLiteral(PANEL_SCENARIOS)).entryList({"*.json"}, QDir::Files);
    QVERIFY(files.size() >= 15);
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << file;
}

void TestSimulatorScenarios::shippedOnesLoad()
{
    QFETCH(const QString, file);
    const QStringList before = described(HmiSimulator::panel());
    std::string error = "left over";
    QVERIFY2(HmiSimulator::loadScenario(scenarioPath(file).toStdString(), &error), error.c_str());
    QCOMPARE(error, std::string());
    QCOMPARE(described(HmiSimulator::panel()) == before, file == "default.json");
}

void TestSimulatorScenarios::defaultIsTheBuiltInPanel()
{
    const QStringList builtIn = described(HmiSimulator::panel());
    HmiSimulator::setBright(3);
    QVERIFY(HmiSimulator::loadScenario(scenarioPath("default.json").toStdString()));
    QCOMPARE(described(HmiSimulator::panel()), builtIn);
}

void TestSimulatorScenarios::emptyScenarioIsTheDefaultPanel()
{
    const QStringList builtIn = described(HmiSimulator::panel());
    HmiSimulator::setBright(3);
    QVERIFY(HmiSimulator::loadScenarioText("{}"));
    QCOMPARE(described(HmiSimulator::panel()), builtIn);
}

void TestSimulatorScenarios::presentAdaptersAreTheNamedOnes()
{
    QVERIFY(HmiSimulator::loadScenario(scenarioPath("lan0-only.json").toStdString()));
    QCOMPARE(service().getAllNIC(), 1);
    QVERIFY(!service().isWifiConnected());
    QVERIFY(HmiSimulator::loadScenario(scenarioPath("no-adapter.json").toStdString()));
    QCOMPARE(service().getAllNIC(), 0);
    QVERIFY(HmiSimulator::loadScenario(scenarioPath("vpn-only.json").toStdString()));
    QCOMPARE(service().getAllNIC(), 64);
    QCOMPARE(service().getVPNServerState(SystemSet::EUROPE), 5);
    QVERIFY(HmiSimulator::loadScenario(scenarioPath("wifi-crowd.json").toStdString()));
    QCOMPARE(HmiSimulator::panel().wifi.networks.size(), std::size_t(200));
}

void TestSimulatorScenarios::everyKeyIsRead()
{
    std::string error;
    const bool loaded = HmiSimulator::loadScenarioText(R"({
        "comment": "All keys, none at its default.",
        "adapters": {
            "LAN0": { "enabled": false, "dhcp": true, "link": false, "mac": "0a:0B:0c:0D:0e:0F",
                      "stored": { "ip": "1.2.3.4", "mask": "255.0.0.0", "gateway": "1.0.0.1" },
                      "lease": { "ip": "5.6.7.8", "mask": "255.255.0.0", "gateway": "5.6.0.1" },
                      "dns": { "preferred": "9.9.9.1", "alternate": "9.9.9.2" } },
            "WIFI": { "dhcp": false }, "4G": {}, "VPN": { "enabled": true }
        },
        "defaultAdapter": "4G",
        "wifi": {
            "networks": [ { "name": "N", "password": "P", "signal": 7, "drift": 3, "stored": "S",
                            "answers": false, "needsPassword": 2 } ],
            "crowd": 2,
            "joined": "N"
        },
        "mobile": { "state": 1, "signal": 33, "drift": 0, "settles": 0 },
        "vpn": { "server": "Europe", "state": 3, "settles": { "Asia": 2, "Europe": 4 } },
        "brightness": 5, "buzzer": false, "language": "zh", "serialNumber": "SN", "clockOffset": -60,
        "delays": { "all": 1, "dhcp": 2, "fixed": 3, "ping": 4, "scan": 5, "reset": 6, "connecting": 7,
                    "connect": 8, "mobile": 9, "vpn": 10, "buzzer": 11 },
        "faults": {
            "setDHCP": { "delivery": "late", "lateBy": 12, "times": 2, "result": 1 },
            "pingTest": { "delivery": "never", "result": true },
            "scanWifi": { "delivery": "twice" },
            "resetWifi": { "delivery": "synchronous" },
            "connectWifi": { "delivery": "held", "reports": [1, 7] },
            "nullList": true, "clockRefused": true
        },
        "nonsense": { "vpnState": 77 }
    })",
                                                       &error);
    QVERIFY2(loaded, error.c_str());
    const Panel panel = HmiSimulator::panel();
    QCOMPARE(panel.nicMask, 1 + 4 + 16 + 64);
    QCOMPARE(panel.defaultNic, 16);
    const HmiSimulator::Adapter &lan = panel.adapters.at(SystemSet::LAN0);
    QVERIFY(!lan.enabled && lan.dhcp && !lan.link);
    QVERIFY((lan.mac == HMI::MAC{10, 11, 12, 13, 14, 15}));
    QCOMPARE(quint32(lan.stored.ip), 0x01020304U);
    QCOMPARE(quint32(lan.stored.mask), 0xFF000000U);
    QCOMPARE(quint32(lan.stored.gateway), 0x01000001U);
    QCOMPARE(quint32(lan.lease.ip), 0x05060708U);
    QCOMPARE(quint32(lan.lease.mask), 0xFFFF0000U);
    QCOMPARE(quint32(lan.lease.gateway), 0x05060001U);
    QCOMPARE(quint32(lan.live.ip), 0U);
    QCOMPARE(quint32(lan.dns.first), 0x09090901U);
    QCOMPARE(quint32(lan.dns.second), 0x09090902U);
    QCOMPARE(quint32(panel.adapters.at(SystemSet::WIFI).live.ip), 0xC0A8321EU);
    QCOMPARE(panel.wifi.networks.size(), std::size_t(3));
    const HmiSimulator::Network &network = panel.wifi.networks.front();
    QCOMPARE(network.name + network.password + *network.stored, std::string("NPS"));
    QCOMPARE(network.signal * 10 + network.drift, 73);
    QVERIFY(!network.answers);
    QCOMPARE(*network.needsPassword, 2);
    QVERIFY(panel.wifi.connected);
    QCOMPARE(panel.wifi.joined, std::string("N"));
    QCOMPARE(panel.mobile.state, 1);
    QCOMPARE(panel.mobile.signal, 33);
    QCOMPARE(panel.mobile.drift + panel.mobile.settles, 0);
    QCOMPARE(panel.vpn.server, int(SystemSet::EUROPE));
    QCOMPARE(panel.vpn.state, 77);
    QVERIFY((panel.vpn.settles == std::array<int, 2>{2, 4}));
    QCOMPARE(panel.bright, 5);
    QCOMPARE(panel.savedBright, 5);
    QVERIFY(!panel.buzzer);
    QCOMPARE(panel.language, int(SystemSet::CHINESE));
    QCOMPARE(panel.serialNumber, std::string("SN"));
    QCOMPARE(panel.clockOffset, -60LL);
    const HmiSimulator::Delays &delays = panel.delays;
    const QVector<int> all{delays.dhcp,       delays.fixed,   delays.ping,   delays.scan, delays.reset,
                           delays.connecting, delays.connect, delays.mobile, delays.vpn,  delays.buzzer};
    QCOMPARE(all, (QVector<int>{2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    for (int i = 0; i < HmiSimulator::OperationCount; ++i)
        QCOMPARE(static_cast<int>(panel.faults.delivery[static_cast<std::size_t>(i)].delivery), i + 1);
    QCOMPARE(panel.faults.delivery[0].lateBy, 12);
    QCOMPARE(panel.faults.delivery[0].times, 2);
    QCOMPARE(*panel.faults.dhcp, 1);
    QVERIFY(*panel.faults.ping);
    QVERIFY((panel.faults.connect == std::vector<int>{1, 7}));
    QVERIFY(panel.faults.nullList && panel.faults.clockRefused);
}

void TestSimulatorScenarios::bytesInThreeForms()
{
    QVERIFY(HmiSimulator::loadScenarioText(R"({"serialNumber": {"hex": "41ff"}})"));
    QCOMPARE(service().getSerialNumber(), std::string("A\xFF"));
    QVERIFY(HmiSimulator::loadScenarioText(R"({"serialNumber": {"text": "é", "repeat": 3}})"));
    QCOMPARE(service().getSerialNumber(), std::string("ééé"));
    QVERIFY(HmiSimulator::loadScenarioText(R"({"serialNumber": "A\u0000B"})"));
    QCOMPARE(service().getSerialNumber(), std::string("A\0B", 3));
}

void TestSimulatorScenarios::refused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const char *text, const char *error) {
        QTest::newRow(name) << QByteArray(text) << QString::fromUtf8(error);
    };
    row("nothing", "", "s:1: not JSON: illegal value");
    row("not JSON", "brightness = 5", "s:1: not JSON: illegal value");
    row("broken off", "{\n\"buzzer\": true,\n", "s:3: not JSON: unterminated object");
    row("a list", "[]", "s:1: a scenario must be an object");
    row("bad UTF-8", "{\"comment\": \"\xFF\"}", "s:1: not JSON: invalid UTF8 string");
    row("unknown key", "{\n  \"buzzer\": true,\n  \"brigth\": 5\n}", "s:3: unknown key \"brigth\"");
    row("unknown key below", "{\"wifi\": {\n\"networks\": [\n{},\n{\"nmae\": 1}]}}",
        "s:4: unknown key \"nmae\"");
    row("unknown adapter", "{\"adapters\": {\n\"LAN2\": {}}}", "s:2: unknown key \"LAN2\"");
    row("unknown fault", "{\"faults\": {\n\n\"reboot\": {}}}", "s:3: unknown key \"reboot\"");
    row("escaped key", "{\n\"a\\u0062\": 1}", "s:2: unknown key \"ab\"");
    row("key with quote", "{\n\"a\\\"\": 1,\n\"buzzer\": 0}", R"(s:2: unknown key "a"")");
    row("twice", "{\"buzzer\": true,\n\"buzzer\": false}", "s:2: key \"buzzer\" stands twice");
    row("too bright", "{\n\"brightness\": 33}", "s:2: \"brightness\" must be a whole number from 1 to 32");
    row("too dark", "{\"brightness\": 0}", "s:1: \"brightness\" must be a whole number from 1 to 32");
    row("a fraction", "{\"brightness\": 1.5}", "s:1: \"brightness\" must be a whole number from 1 to 32");
    row("text for number", R"({"brightness": "5"})",
        "s:1: \"brightness\" must be a whole number from 1 to 32");
    row("huge number", "{\"clockOffset\": 1e300}",
        "s:1: \"clockOffset\" must be a whole number from -2147483647 to 2147483647");
    row("number for truth", "{\"buzzer\": 1}", "s:1: \"buzzer\" must be true or false");
    row("language", R"({"language": "de"})", R"(s:1: "language" must be one of "zh", "en")");
    row("null", "{\"language\": null}", R"(s:1: "language" must be one of "zh", "en")");
    row("address", "{\"adapters\": {\"LAN0\": {\"stored\": {\n\"ip\": \"1.2.3.256\"}}}}",
        R"(s:2: "ip" must be an address like "192.168.1.10")");
    row("short address", R"({"adapters": {"LAN0": {"dns": {"preferred": "1.2.3"}}}})",
        R"(s:1: "preferred" must be an address like "192.168.1.10")");
    row("hardware address", R"({"adapters": {"LAN0": {"mac": "02:00:00:00:00:0G"}}})",
        R"(s:1: "mac" must be a hardware address like "02:1B:44:11:3A:B7")");
    row("adapter is no object", R"({"adapters": {"LAN0": true}})", "s:1: \"LAN0\" must be an object");
    row("wifi is no object", "{\"wifi\": []}", "s:1: \"wifi\" must be an object");
    row("network is no object", "{\"wifi\": {\"networks\": [\n1]}}", "s:2: \"0\" must be an object");
    row("networks is no list", R"({"wifi": {"networks": {}}})",
        "s:1: \"networks\" must be a list of 0 to 10000");
    row("long name", R"({"wifi": {"networks": [{"name": "0123456789012345678901234567890123"}]}})",
        "s:1: \"name\" has 34 bytes, may have 33");
    row("odd hex", "{\"serialNumber\": {\n\"hex\": \"abc\"}}",
        "s:2: \"hex\" must be pairs of hexadecimal digits");
    row("neither form", "{\"serialNumber\": {}}",
        R"(s:1: "serialNumber" needs "hex" or "text", each a text)");
    row("no text", "{\"serialNumber\": 5}",
        R"(s:1: "serialNumber" must be a text, or an object with "hex" or "text")");
    row("delay", R"({"delays": {"dhcp": -1}})", "s:1: \"dhcp\" must be a whole number from 0 to 600000");
    row("delivery", R"({"faults": {"setDHCP": {"delivery": "sometimes"}}})",
        R"(s:1: "delivery" must be one of "normal", "late", "never", "twice", "synchronous", "held")");
    row("reports", R"({"faults": {"connectWifi": {"reports": [1, "2"]}}})",
        "s:1: \"reports\" must be a list of numbers from 0 to 255");
    row("first of several", "{\n\"zzz\": 1,\n\"brightness\": 99,\n\"aaa\": 2}", "s:2: unknown key \"zzz\"");
    row("comment", "{\"comment\": 1}", "s:1: \"comment\" must be a text");
}

void TestSimulatorScenarios::refused()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, error);
    std::string reason;
    QVERIFY(!HmiSimulator::loadScenarioText(text.toStdString(), &reason, "s"));
    QCOMPARE(QString::fromStdString(reason), error);
    QVERIFY(!HmiSimulator::loadScenarioText(text.toStdString()));
}

void TestSimulatorScenarios::refusalChangesNothing()
{
    HmiSimulator::setBright(3);
    HmiSimulator::setManual(true);
    ping(SystemSet::LAN0);
    const QStringList before = described(HmiSimulator::panel());
    QVERIFY(!HmiSimulator::loadScenarioText(R"({"buzzer": false, "brightness": 99})"));
    QCOMPARE(described(HmiSimulator::panel()), before);
    QCOMPARE(HmiSimulator::pending().size(), std::size_t(1));
}

void TestSimulatorScenarios::loadingDropsWhatIsUnderWay()
{
    HmiSimulator::setManual(true);
    const SharedReports reports = ping(SystemSet::LAN0);
    QVERIFY(HmiSimulator::loadScenarioText("{}"));
    QVERIFY(HmiSimulator::pending().empty());
    QCOMPARE(reports->values().size(), 0);
    QCOMPARE(lines(HmiSimulator::calls()), QStringList{"pingTest(LAN0)"});
}

void TestSimulatorScenarios::hostEntry()
{
    char error[12] = "untouched";
    QCOMPARE(HmiSimulatorLoadScenario(qPrintable(scenarioPath("lan0-only.json")), error, sizeof error), 0);
    QCOMPARE(error, "");
    QCOMPARE(service().getAllNIC(), 1);
    QCOMPARE(HmiSimulatorLoadScenario("/nowhere.json", error, sizeof error), 1);
    QCOMPARE(error, "/nowhere.js");
    QCOMPARE(HmiSimulatorLoadScenario("/nowhere.json", nullptr, 0), 1);
    QCOMPARE(HmiSimulatorLoadScenario(nullptr, error, 0), 1);
    QCOMPARE(error, "/nowhere.js");
}

PANEL_TEST_MAIN(TestSimulatorScenarios)
#include "test_simulator_scenarios.moc"
