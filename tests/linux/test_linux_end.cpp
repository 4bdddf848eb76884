#include "tests/linux/fakenetworkmanager.h"
#include "tests/linux/paneldirectory.h"
#include "tests/linux/privatebus.h"
#include "tests/support/paneltest.h"

#include "linux/addressrules.h"
#include "linux/nmnames.h"
#include "linux/profile.h"

using namespace HmiLinux;

/// The service of a process that ends while the daemons of the panel go on talking.
class TestLinuxEnd : public PanelTest
{
    Q_OBJECT

private slots:
    void init() { beginWatch(); }
    void cleanup() { endWatch(); }
    void endsWhileDaemonsTalk();
};

void TestLinuxEnd::endsWhileDaemonsTalk()
{
    const QString port = QStringLiteral("lan0");
    const PanelDirectory panel;
    panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
              "[adapters]\nLAN0 = lan0\nLAN1 = none\n[buzzer]\ndevice = /sys/class/leds/buzzer/brightness\n");
    panel.put(QStringLiteral("/sys/class/leds/buzzer/brightness"), "0\n");
    panel.put(QStringLiteral("/sys/class/backlight/lcd/max_brightness"), "255\n");
    panel.put(QStringLiteral("/sys/class/backlight/lcd/brightness"), "200\n");
    PrivateBus bus;
    FakeNetworkManager daemon;
    daemon.addPort(port, QStringLiteral("02:00:00:00:00:10"));
    daemon.activate(daemon.addProfile(FakeNetworkManager::wiredProfile(
                        port, {{QStringLiteral("method"), QStringLiteral("auto")}})),
                    port);
    const QStringList foreign = daemon.profiles();

    BoundProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), bus.address());
    environment.insert(QStringLiteral("PANELSETTINGS_ROOT"), panel.path());
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(PANEL_ENDING), QStringList());
    // It hears its first message only after all that is to end before the service is made.
    QTRY_VERIFY_WITH_TIMEOUT(process.canReadLine(), 30000);
    QCOMPARE(process.readLine(), QByteArray("ready\n"));
    QVERIFY(bus.start());
    QVERIFY(daemon.publish(bus.address()));

    QTimer talk;
    int told = 0;
    connect(&talk, &QTimer::timeout, &daemon, [&daemon, &told, port] {
        for (int i = 0; i < 10; ++i, ++told)
            daemon.set(FakeNetworkManager::devicePath(port), Nm::device(),
                       {{QStringLiteral("Mtu"), 1500U + uint(i)}});
    });
    talk.start(1);
    QByteArray output;
    QTRY_VERIFY_WITH_TIMEOUT((output += process.readAllStandardOutput()).endsWith("ending\n"), 30000);
    told = 0;
    QTRY_VERIFY_WITH_TIMEOUT(told >= 300, 30000);
    process.write("\n");
    QTRY_COMPARE_WITH_TIMEOUT(process.state(), QProcess::NotRunning, 30000);
    talk.stop();

    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    // Nothing of the service runs any more when the statics of the process go.
    QCOMPARE(output + process.readAllStandardOutput(), QByteArray("reported\nending\nended\n"));
    // What was asked for just before counts.
    QStringList own = daemon.profiles();
    for (const QString &profile : foreign)
        own.removeAll(profile);
    QCOMPARE(own.size(), 1);
    const Profile stored = readProfile(own.constFirst(), daemon.profile(own.constFirst()));
    QCOMPARE(dotted(stored.values.stored.ip), QStringLiteral("10.0.0.2"));
    QCOMPARE(dotted(stored.values.stored.gateway), QStringLiteral("10.0.0.1"));
    // What is kept in files may even come later.
    QCOMPARE(panel.contents(QStringLiteral("/var/lib/panelsettings/buzzer")), QByteArray("off\n"));
    QCOMPARE(panel.contents(QStringLiteral("/var/lib/panelsettings/brightness")), QByteArray("1\n"));
}

PANEL_TEST_MAIN(TestLinuxEnd)

#include "test_linux_end.moc"
