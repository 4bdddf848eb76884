#include "tests/linux/networkmanager/keyfile.h"
#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/privatebus.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>
#include <QtCore/QThread>

#include <csignal>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

// In microseconds: two changes and a bit, and what the daemon takes to store one.
constexpr quint32 g_anyMoment = 650000;
constexpr quint32 g_storing = 1500;
constexpr int g_patience = 30000;

int numberFrom(const char *variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

void waitMicroseconds(quint32 time)
{
    QElapsedTimer timer;
    timer.start();
    if (time > g_storing)
        return QThread::usleep(time);
    while (timer.nsecsElapsed() < qint64(time) * 1000) {
        // Sleep is too rough for so short a time.
    }
}

QDir profileDirectory()
{
    return QDir(QStringLiteral("/run/harness/profiles"));
}

QByteArray contentsOf(const QString &name)
{
    QFile file(profileDirectory().filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All that the panel stores of one of the two networks of WritingPanel.
QMap<QByteArray, QByteArray> settingsOf(const QByteArray &number)
{
    const QByteArray network = "192.168.5" + number + '.';
    const QByteArray ip = network + number;
    const QByteArray gateway = network + "25" + number;
    const QByteArray first = "9.9.9." + number;
    const QByteArray second = "8.8.8." + number;
    return {{"ipv4.method", "manual"},
            {"ipv4.address1", ip + "/24," + gateway},
            {"ipv4.dns", first + ';' + second + ';'},
            {"ipv4.ignore-auto-dns", "true"},
            {"ipv4.may-fail", "false"},
            {"ipv4.dhcp-timeout", "30"},
            {"user.panelsettings.adapter", "LAN0"},
            {"user.panelsettings.address", ip},
            {"user.panelsettings.netmask", "255.255.255.0"},
            {"user.panelsettings.gateway", gateway},
            {"user.panelsettings.dns", first},
            {"user.panelsettings.dns2", second}};
}

/// Those of a stored profile.
QMap<QByteArray, QByteArray> settingsIn(const QMap<QByteArray, QByteArray> &profile)
{
    QMap<QByteArray, QByteArray> settings;
    for (auto entry = profile.begin(); entry != profile.end(); ++entry) {
        if (entry.key().startsWith("ipv4.") || entry.key().startsWith("user."))
            settings.insert(entry.key(), entry.value());
    }
    return settings;
}

} // namespace

/// The power goes while settings are being stored: the daemon and the panel are there no more, from one moment to the
/// next, and start again with the files that they left.
class TestPowerCut : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void settingsAreOldOrNew();

private:
    bool storeFirst();
    void startPanel();
    /// The network that the panel found stored.
    QByteArray found();
    bool waitForStoring() const;
    void cut();
    /// The network that is stored as a whole; empty, and told why, when that is not so.
    static QByteArray stored();
    static QByteArray judge(const QByteArray &contents);

    ServiceScene m_files;
    BoundProcess m_panel;
    int m_watch = -1;
};

void TestPowerCut::initTestCase()
{
    QVERIFY(Sandbox::isAround());
    m_watch = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    QVERIFY(::inotify_add_watch(m_watch, QFile::encodeName(profileDirectory().path()).constData(),
                                IN_CREATE | IN_MODIFY | IN_MOVED_TO) >= 0);
    qputenv("PANELSETTINGS_ROOT", m_files.panel.path().toLocal8Bit());
    m_panel.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

bool TestPowerCut::storeFirst()
{
    SandboxScene scene;
    scene.startService();
    if (!scene.waitForDaemon())
        return false;
    scene.setAddresses({ServiceScene::ip("192.168.51.1"), maskOf(24), ServiceScene::ip("192.168.51.251")});
    scene.gather(0, [](Wish &wish) {
        wish.dns = Dns{ServiceScene::ip("9.9.9.1"), ServiceScene::ip("8.8.8.1")};
    });
    return scene.requestDhcp(false, SystemSet::DHCP_OK) && scene.waitForWishes();
}

void TestPowerCut::startPanel()
{
    m_panel.start(QStringLiteral(PANEL_WRITING), QStringList());
}

QByteArray TestPowerCut::found()
{
    while (!m_panel.canReadLine()) {
        if (!m_panel.waitForReadyRead(g_patience))
            return {};
    }
    return m_panel.readLine().trimmed();
}

bool TestPowerCut::waitForStoring() const
{
    // What was stored before is no sign.
    std::array<char, 4096> events;
    while (::read(m_watch, events.data(), events.size()) > 0) {
    }
    pollfd sign = {m_watch, POLLIN, 0};
    return ::poll(&sign, 1, g_patience) == 1;
}

void TestPowerCut::cut()
{
    const int daemon = SandboxScene::tell("pid nm").value(0).toInt();
    pollfd end = {int(::syscall(SYS_pidfd_open, daemon, 0)), POLLIN, 0};
    QVERIFY(end.fd >= 0);
    ::kill(daemon, SIGKILL);
    m_panel.kill();
    QVERIFY(m_panel.waitForFinished(g_patience));
    QCOMPARE(::poll(&end, 1, g_patience), 1);
    ::close(end.fd);
}

QByteArray TestPowerCut::stored()
{
    // What a write that was cut short leaves has a name that the daemon does not look at.
    const QStringList names = profileDirectory().entryList({QStringLiteral("*.nmconnection")}, QDir::Files);
    QByteArray number;
    int count = 0;
    for (const QString &name : names) {
        const QByteArray contents = contentsOf(name);
        if (!contents.contains("interface-name=lan0") || contents.contains("id=lan0"))
            continue;
        ++count;
        number = judge(contents);
    }
    if (count != 1)
        qWarning("there are %d profiles of the panel for LAN0: %s", count,
                 qPrintable(names.join(QLatin1Char(' '))));
    return count == 1 ? number : QByteArray();
}

QByteArray TestPowerCut::judge(const QByteArray &contents)
{
    const auto profile = readKeyFile(contents);
    for (const QByteArray &number : {QByteArray("1"), QByteArray("2")}) {
        if (profile && settingsIn(*profile) == settingsOf(number))
            return number;
    }
    qWarning("neither the old nor the new settings:\n%s", contents.constData());
    return {};
}

void TestPowerCut::settingsAreOldOrNew()
{
    const int count = numberFrom("PANEL_POWER_CUTS", 50);
    const int seed = numberFrom("PANEL_SEED", int(QRandomGenerator::global()->bounded(1000000)));
    qInfo("PANEL_POWER_CUTS=%d PANEL_SEED=%d", count, seed);
    QRandomGenerator random{quint32(seed)};
    QVERIFY(storeFirst());
    const QByteArray foreign = contentsOf(QStringLiteral("lan1.nmconnection"));
    int changed = 0;
    startPanel();
    QByteArray before = found();
    QVERIFY(!before.isEmpty());
    for (int i = 0; i < count; ++i) {
        // At any moment, and by turns when it hurts most.
        if (i % 2 == 0) {
            waitMicroseconds(random.bounded(g_anyMoment));
        } else {
            QVERIFY(waitForStoring());
            waitMicroseconds(random.bounded(g_storing));
        }
        cut();
        const QByteArray now = stored();
        QVERIFY2(!now.isEmpty(), qPrintable(QStringLiteral("after cut %1").arg(i)));
        changed += now == before ? 0 : 1;
        SandboxScene::tell("nm start");
        startPanel();
        // Both are of one mind about what is stored.
        before = found();
        QCOMPARE(before, now);
        QCOMPARE(contentsOf(QStringLiteral("lan1.nmconnection")), foreign);
    }
    qInfo("the settings were the new ones %d times, the old ones %d times", changed, count - changed);
    m_panel.kill();
    QVERIFY(m_panel.waitForFinished(g_patience));
}

PANEL_TEST_MAIN(TestPowerCut)
#include "test_power_cut.moc"
