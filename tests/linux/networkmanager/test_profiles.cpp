#include "tests/linux/networkmanager/keyfile.h"
#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/text.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

using Files = QMap<QString, QMap<QByteArray, QByteArray>>;

Addresses usual()
{
    return {ServiceScene::ip("192.168.50.77"), maskOf(24), ServiceScene::ip("192.168.50.1")};
}

QDir directory()
{
    return QDir(text("/run/harness/profiles"));
}

/// The stored profiles that the panel did not make, without the moments at which the daemon used them.
Files foreignProfiles()
{
    Files files;
    const QStringList names = directory().entryList(QDir::Files);
    for (const QString &name : names) {
        QFile file(directory().filePath(name));
        if (name.startsWith(text("Panel ")) || !file.open(QIODevice::ReadOnly))
            continue;
        files[name] = readKeyFile(file.readAll()).value_or(QMap<QByteArray, QByteArray>());
        files[name].remove("connection.timestamp");
    }
    return files;
}

bool does(const QString &program, const QStringList &words)
{
    QProcess process;
    process.start(program, words);
    return process.waitForFinished(60000) && process.exitCode() == 0;
}

/// What somebody at the daemon's own command does.
bool somebody(const QStringList &words)
{
    return does(text("nmcli"), words);
}

} // namespace

/// Profiles that somebody else made, beside the panel's own.
class TestProfiles : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void foreignProfilesAreLeftAlone();
    void foreignProfileInForceIsShown();
    void ownProfileIsPreferredAtEachStart();
    void profilesThatCompete();
    void offStaysOffWhateverFits();
    void ownProfileIsDeletedBySomebody();
    void ownProfileIsChangedBySomebody();

private:
    /// Puts LAN0 on the usual addresses, with a profile of the panel's own.
    bool takeOver();

    std::unique_ptr<SandboxScene> m_scene;
};

void TestProfiles::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<SandboxScene>();
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0 && m_scene->lan1().live.ip != 0, 60000);
}

void TestProfiles::cleanup()
{
    m_scene.reset();
    // As the sandbox was made.
    const QStringList names = directory().entryList({text("Panel *"), text("rival*")}, QDir::Files);
    for (const QString &name : names)
        QVERIFY(somebody({text("connection"), text("delete"), name.section(QLatin1Char('.'), 0, 0)}));
    for (const char *port : {"lan0", "lan1"})
        QVERIFY(somebody({text("connection"), text("up"), text(port)}));
    endWatch();
}

bool TestProfiles::takeOver()
{
    m_scene->forgetReports();
    m_scene->setAddresses(usual());
    return m_scene->requestDhcp(false, SystemSet::DHCP_OK) && m_scene->waitForWishes() &&
           m_scene->kernelAddresses("lan0") == text("192.168.50.77/24");
}

void TestProfiles::foreignProfilesAreLeftAlone()
{
    const Files before = foreignProfiles();
    QCOMPARE(before.size(), 2);
    QVERIFY(takeOver());
    m_scene->gather(1, [](Wish &wish) {
        wish.dns = Dns{ServiceScene::ip("9.9.9.9"), HMI::IP()};
        wish.isDefault = true;
    });
    QVERIFY(m_scene->waitForWishes());
    m_scene->enable(false);
    QVERIFY(m_scene->waitForWishes());
    m_scene->enable(true);
    QVERIFY(m_scene->waitForWishes());
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
    QVERIFY(m_scene->waitForWishes());
    QCOMPARE(foreignProfiles(), before);
    QCOMPARE(m_scene->tell("profiles").size(), 4); // theirs, and one of the panel's a port
}

void TestProfiles::foreignProfileInForceIsShown()
{
    QVERIFY(takeOver());
    const Files before = foreignProfiles();
    QVERIFY(somebody({text("connection"), text("up"), text("lan0")}));
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0 && m_scene->lan0().live.ip != usual().ip, 60000);
    QCOMPARE(m_scene->kernelAddresses("lan0"), dotted(m_scene->lan0().live.ip) + text("/24"));
    // The next change is the operator's, and puts the panel's own in force.
    m_scene->gather(0, [](Wish &wish) { wish.ip = ServiceScene::ip("192.168.50.78"); });
    QVERIFY(m_scene->waitForWishes());
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->kernelAddresses("lan0"), text("192.168.50.78/24"), 60000);
    QCOMPARE(foreignProfiles(), before);
}

void TestProfiles::ownProfileIsPreferredAtEachStart()
{
    QVERIFY(takeOver());
    // The other one was used last, and nothing is left of what was in force when the device was switched off.
    QVERIFY(somebody({text("connection"), text("up"), text("lan0")}));
    m_scene->tell("nm stop");
    QVERIFY(QDir(text("/run/NetworkManager")).removeRecursively());
    QVERIFY(does(text("ip"), {text("address"), text("flush"), text("dev"), text("lan0")}));
    QCOMPARE(m_scene->kernelAddresses("lan0"), QString());
    m_scene->tell("nm start");
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->kernelAddresses("lan0"), text("192.168.50.77/24"), 60000);
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live == usual(), 60000);
}

void TestProfiles::profilesThatCompete()
{
    QVERIFY(somebody({text("connection"), text("add"), text("type"), text("ethernet"), text("con-name"),
                      text("rival"), text("ifname"), text("lan0"), text("ipv4.method"), text("manual"),
                      text("ipv4.addresses"), text("192.168.50.99/24"), text("autoconnect"), text("yes")}));
    QVERIFY(somebody({text("connection"), text("up"), text("rival")}));
    QTRY_COMPARE(dotted(m_scene->lan0().live.ip), text("192.168.50.99"));
    const Files before = foreignProfiles();
    QCOMPARE(before.size(), 3);
    QVERIFY(takeOver());
    m_scene->tell("nm restart");
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live == usual(), 60000);
    QCOMPARE(m_scene->kernelAddresses("lan0"), text("192.168.50.77/24"));
    QCOMPARE(foreignProfiles(), before);
}

void TestProfiles::offStaysOffWhateverFits()
{
    QVERIFY(takeOver());
    m_scene->tell("cable lan0 out");
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->lan0().deviceState, 20U, 30000);
    m_scene->enable(false);
    QVERIFY(m_scene->waitForWishes());
    // The profile that somebody made for the port would be put in force with its cable, as that of the other is.
    m_scene->tell("cable lan0 in");
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->lan0().deviceState, 30U, 30000);
    m_scene->tell("cable lan1 out");
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan1().live == Addresses(), 30000);
    m_scene->tell("cable lan1 in");
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan1().live.ip != 0, 60000);
    QCOMPARE(m_scene->kernelAddresses("lan0"), QString());
    m_scene->enable(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->kernelAddresses("lan0"), text("192.168.50.77/24"), 60000);
}

void TestProfiles::ownProfileIsDeletedBySomebody()
{
    QVERIFY(takeOver());
    QVERIFY(somebody({text("connection"), text("delete"), text("Panel LAN0")}));
    QTRY_VERIFY(m_scene->lan0().profile.isEmpty());
    // The daemon goes back to what else there is, and so does what is shown.
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0 && m_scene->lan0().live.ip != usual().ip, 60000);
    QVERIFY(m_scene->values().dhcp);
    QVERIFY(takeOver());
    QVERIFY(m_scene->lan0().live == usual());
}

void TestProfiles::ownProfileIsChangedBySomebody()
{
    QVERIFY(takeOver());
    QVERIFY(somebody({text("connection"), text("modify"), text("Panel LAN0"), text("ipv4.addresses"),
                      text("192.168.50.88/24"), text("connection.zone"), text("plant")}));
    QTRY_COMPARE(dotted(m_scene->values().stored.ip), text("192.168.50.88"));
    m_scene->gather(0, [](Wish &wish) { wish.dns = Dns{ServiceScene::ip("9.9.9.9"), HMI::IP()}; });
    QVERIFY(m_scene->waitForWishes());
    QTRY_COMPARE_WITH_TIMEOUT(m_scene->kernelAddresses("lan0"), text("192.168.50.88/24"), 60000);
    QFile file(directory().filePath(text("Panel LAN0.nmconnection")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    // What the panel knows nothing of stays as it was set.
    QVERIFY(file.readAll().contains("zone=plant"));
}

PANEL_TEST_MAIN(TestProfiles)
#include "test_profiles.moc"
