#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/wifiacts.h"

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

/// A panel in a sandbox whose daemon has a wireless device by script.
struct ScriptedScene : SandboxScene, WifiActs {
    ScriptedScene() : WifiActs(this)
    {
        panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
                  "[adapters]\nLAN0 = none\nLAN1 = none\nWIFI = wlan0\nMOBILE_4G = none\n");
    }
    ~ScriptedScene() { service.reset(); }
    ScriptedScene(const ScriptedScene &) = delete;
    ScriptedScene &operator=(const ScriptedScene &) = delete;

    static void appear(const QByteArray &name, const char *rest)
    {
        const QByteArray digits = name.isEmpty() ? QByteArray("''") : name.toHex();
        tell(QByteArray("script network ").append(digits).append(' ').append(rest).constData());
    }
    /// Whether each profile is stored, and its name.
    static QStringList profiles() { return tell("script profiles"); }
};

} // namespace

/// Wi-Fi over the bus, with a daemon that is none of ours: its replies and its signals come as it likes.
class TestScriptedWifi : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void outcomes();
    void knownNetwork();
    void namesOfEveryKind();
    void radio();
    void crowd();
    void refusedScan();
    void deviceTakenAway();

private:
    std::unique_ptr<ScriptedScene> m_scene;
};

void TestScriptedWifi::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<ScriptedScene>();
    m_scene->tell("script silence");
    m_scene->tell("script scan answered");
    m_scene->appear("Home", "70 wpa2 password1");
    m_scene->appear("New", "60 wpa3 password2");
    m_scene->startService();
    QVERIFY(m_scene->waitForAdapter());
}

void TestScriptedWifi::cleanup()
{
    if (m_scene && m_scene->service) {
        // The daemon outlives the panel.
        const std::size_t before = m_scene->listCount();
        m_scene->resetNetworks();
        QVERIFY(m_scene->waitForLists(before + 1));
    }
    m_scene.reset();
    endWatch();
}

void TestScriptedWifi::outcomes()
{
    QCOMPARE(m_scene->joined("Home", "password2"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QCOMPARE(m_scene->joined("Home", "short"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QCOMPARE(m_scene->joined("New", "password1"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QCOMPARE(m_scene->joined("Nowhere", "password1"), int(SystemSet::WIFI_TIMEOUT));
    QTRY_VERIFY(m_scene->profiles().isEmpty());
    QCOMPARE(m_scene->joined("New", "password2"), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(m_scene->link().isJoined);
    QCOMPARE(bytesOf(m_scene->link().ssid), QByteArray("New"));
    QCOMPARE(m_scene->link().strength, 60);
    QCOMPARE(m_scene->joined("Home", "password1"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(bytesOf(m_scene->link().ssid), QByteArray("Home"));
    QCOMPARE(m_scene->profiles(), (QStringList{QStringLiteral("stored Panel WIFI New"),
                                               QStringLiteral("stored Panel WIFI Home")}));
}

void TestScriptedWifi::knownNetwork()
{
    QCOMPARE(m_scene->joined("Home", "password1"), int(SystemSet::WIFI_CONNECTED));
    const WifiActs::Records *list = m_scene->scanned();
    QVERIFY(list != nullptr);
    QCOMPARE(int(list->size()), 2);
    QCOMPARE(list->at(0).password, std::string("password1"));
    QCOMPARE(int(list->at(0).needsPassword), 0);
    QCOMPARE(int(list->at(1).needsPassword), 1);
    m_scene->tell("script vanish 486f6d65");
    QTRY_VERIFY(!m_scene->link().isJoined);
    m_scene->appear("Home", "80 wpa2 password1");
    QCOMPARE(m_scene->joined("Home", ""), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(m_scene->profiles(), QStringList{QStringLiteral("stored Panel WIFI Home")});
}

void TestScriptedWifi::namesOfEveryKind()
{
    const QByteArray longest(32, 'x');
    const QByteArray invalid("\xff\xfe\xd5\xc5", 4);
    m_scene->appear(longest, "90 wpa2 password3");
    m_scene->appear(invalid, "80 open");
    m_scene->appear(QByteArray(), "55 wpa2 password4"); // it hides
    m_scene->appear(QByteArray("cut\0here", 8), "50 open");
    const WifiActs::Records *list = m_scene->scanned();
    QVERIFY(list != nullptr);
    QVector<QByteArray> names;
    for (const SystemSet::SsidInfo &record : *list)
        names.append(WifiActs::nameOf(record));
    QCOMPARE(names, (QVector<QByteArray>{longest, invalid, "Home", "New"}));
    QCOMPARE(m_scene->joined(longest, "password3"), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(bytesOf(m_scene->link().ssid), longest);
    QCOMPARE(m_scene->joined(invalid, ""), int(SystemSet::WIFI_CONNECTED));
    QCOMPARE(bytesOf(m_scene->link().ssid), invalid);
    QCOMPARE(m_scene->joined(longest, ""), int(SystemSet::WIFI_CONNECTED)); // known by its bytes
    QCOMPARE(m_scene->profiles().size(), 2);
}

void TestScriptedWifi::radio()
{
    for (const bool on : {false, true}) {
        m_scene->enable(on, WifiActs::Place);
        QTRY_VERIFY(!m_scene->hasWish(WifiActs::Place));
        QCOMPARE(m_scene->values(WifiActs::Place).enabled, on);
    }
}

void TestScriptedWifi::crowd()
{
    m_scene->tell("script crowd 200");
    const WifiActs::Records *list = m_scene->scanned();
    QVERIFY(list != nullptr);
    QCOMPARE(int(list->size()), 202);
}

void TestScriptedWifi::refusedScan()
{
    m_scene->tell("script scan refused");
    const WifiActs::Records *list = m_scene->scanned();
    QVERIFY(list != nullptr);
    QCOMPARE(int(list->size()), 2);
}

void TestScriptedWifi::deviceTakenAway()
{
    m_scene->tell("script outcome wlan0 stuck");
    m_scene->join("Home", "password1");
    QTRY_COMPARE(m_scene->adapter().deviceState, 50U);
    m_scene->tell("script device wlan0 out");
    QVERIFY(m_scene->waitForReports(2));
    QCOMPARE(m_scene->reports().at(1), int(SystemSet::WIFI_OFFLINE));
    QTRY_VERIFY(!m_scene->adapter().known);
    m_scene->tell("script device wlan0 in");
    QVERIFY(m_scene->waitForAdapter());
    m_scene->tell("script outcome wlan0 itself");
    m_scene->appear("Home", "70 wpa2 password1");
    QCOMPARE(m_scene->joined("Home", "password1"), int(SystemSet::WIFI_CONNECTED));
}

PANEL_TEST_MAIN(TestScriptedWifi)
#include "test_scripted_wifi.moc"
