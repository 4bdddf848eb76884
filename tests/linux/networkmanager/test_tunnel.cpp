#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/text.h"

#include "linux/vpntunnel.h"

#include <QtCore/QProcess>

#include <atomic>

using namespace HmiLinux;
using HMI::SystemSet;

/// What a real daemon makes of a tunnel that it cannot begin: no plug-in is there, and a kernel need not know WireGuard.
class TestTunnel : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutItsPluginItDoesNotBegin();
    void connectionThatIsStoredLater();

private:
    void switchTunnel(bool on)
    {
        m_scene->service->vpn().setOn(on, true);
        m_scene->service->later(
            [known = m_scene->service.get()] { known->worker().network().vpn()->choose(); });
    }
    void watch();
    /// The switch, the request and its answer are told; the request alone may be over before anybody looks.
    bool waitForAnswer() const
    {
        return QTest::qWaitFor([this] { return m_changes->load() == 3; }, 60000);
    }
    int link() const { return int(m_scene->service->snapshot()->vpnLinks.at(0)); }
    static bool store();
    static bool forget() { return ask({text("connection"), text("delete"), text("asia")}); }
    static bool ask(const QStringList &arguments)
    {
        QProcess process;
        process.start(text("nmcli"), arguments);
        return process.waitForFinished(60000) && process.exitCode() == 0;
    }

    std::unique_ptr<SandboxScene> m_scene;
    std::shared_ptr<std::atomic<int>> m_changes;
};

void TestTunnel::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<SandboxScene>();
    m_scene->panel.put(text("/etc/panelsettings/linux.conf"),
                       "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = none\nMOBILE_4G = none\n"
                       "[vpn]\nAsia = asia\nretry = 600\n");
}

void TestTunnel::cleanup()
{
    m_scene.reset();
    forget();
    endWatch();
}

void TestTunnel::watch()
{
    m_changes = std::make_shared<std::atomic<int>>(0);
    m_scene->service->later([known = m_scene->service.get(), changes = m_changes] {
        VpnTunnel *tunnel = known->worker().network().vpn();
        connect(tunnel, &VpnTunnel::changed, tunnel, [changes] { ++*changes; });
    });
}

bool TestTunnel::store()
{
    QFile profile(text("/run/harness/profiles/asia.nmconnection"));
    if (!profile.open(QIODevice::WriteOnly) ||
        !profile.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return false;
    profile.write(
        "[connection]\nid=asia\nuuid=5eed0000-0000-4000-8000-0000000000aa\ntype=vpn\nautoconnect=false\n"
        "[vpn]\nservice-type=org.freedesktop.NetworkManager.absent\n[ipv4]\nmethod=auto\n");
    profile.close();
    return ask({text("connection"), text("load"), profile.fileName()});
}

void TestTunnel::withoutItsPluginItDoesNotBegin()
{
    QVERIFY(store());
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
    QVERIFY(m_scene->service->place(SystemSet::VPN));
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0, 60000);
    expectMessage(text("the tunnel to Asia does not begin: .*not installed"));
    watch();
    switchTunnel(true);
    QVERIFY(waitForAnswer());
    QTRY_COMPARE(link(), 0);
    QVERIFY(m_scene->values(4).enabled);
    switchTunnel(false);
    QVERIFY(!m_scene->values(4).enabled);
}

void TestTunnel::connectionThatIsStoredLater()
{
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0, 60000);
    expectMessage(text("there is no tunnel to Asia: no connection is stored as \"asia\""));
    watch();
    switchTunnel(true);
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK)); // some round with the daemon
    QCOMPARE(link(), 0);
    expectMessage(text("the tunnel to Asia does not begin: .*not installed"));
    QVERIFY(store());
    QVERIFY(waitForAnswer());
    QTRY_COMPARE(link(), 0);
}

PANEL_TEST_MAIN(TestTunnel)
#include "test_tunnel.moc"
