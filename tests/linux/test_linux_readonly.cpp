#include "tests/linux/fakenetworkmanager.h"
#include "tests/linux/paneldirectory.h"
#include "tests/linux/privatebus.h"
#include "tests/linux/text.h"
#include "tests/support/paneltest.h"

#include <QtCore/QDirIterator>

namespace {

QMap<QString, QByteArray> filesOf(const PanelDirectory &panel)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(panel.path(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        files.insert(file.fileName(), file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
    return files;
}

} // namespace

/// The service on a device that is only to be looked at.
class TestLinuxReadOnly : public PanelTest
{
    Q_OBJECT

private slots:
    void init() { beginWatch(); }
    void cleanup() { endWatch(); }
    void tellsAndChangesNothing();
};

void TestLinuxReadOnly::tellsAndChangesNothing()
{
    PanelDirectory panel;
    panel.put(text("/etc/panelsettings/linux.conf"),
              "[adapters]\nLAN0 = lan0\nLAN1 = lan1\n[buzzer]\ndevice = /sys/class/leds/buzzer/brightness\n");
    panel.put(text("/sys/class/leds/buzzer/brightness"), "0\n");
    panel.put(text("/sys/class/backlight/lcd/max_brightness"), "255\n");
    panel.put(text("/sys/class/backlight/lcd/brightness"), "200\n");
    // Saved on another day: put in force at the start otherwise.
    panel.put(text("/var/lib/panelsettings/brightness"), "3\n");
    PrivateBus bus;
    FakeNetworkManager daemon;
    FakeObjects others;
    for (const QString &port : {text("lan0"), text("lan1")}) {
        daemon.addPort(port, text("02:00:00:00:00:1") + port.right(1));
        daemon.activate(
            daemon.addProfile(FakeNetworkManager::wiredProfile(port, {{text("method"), text("auto")}})),
            port);
    }
    QVERIFY(bus.start());
    QVERIFY(daemon.publish(bus.address()));
    QVERIFY(others.publish(bus.address(), text("org.freedesktop.timedate1")));
    const QMap<QString, QByteArray> before = filesOf(panel);

    BoundProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("DBUS_SYSTEM_BUS_ADDRESS"), bus.address());
    environment.insert(text("PANELSETTINGS_ROOT"), panel.path());
    environment.insert(text("PANELSETTINGS_READ_ONLY"), text("1"));
    process.setProcessEnvironment(environment);
    process.start(text(PANEL_LOOKING), QStringList());
    // What would be gathered for a moment is asked of the daemon at the end at the latest.
    QTRY_COMPARE_WITH_TIMEOUT(process.state(), QProcess::NotRunning, 30000);

    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QList<QByteArray> readings = process.readAllStandardOutput().split('\n');
    QCOMPARE(readings.size(), 3); // the last is empty
    QCOMPARE(readings[1], readings[0]);
    QVERIFY2(readings[0].contains("brightness 25 "), readings[0].constData());
    QCOMPARE(daemon.calls(), QStringList());
    QCOMPARE(others.calls(), QStringList());
    QCOMPARE(filesOf(panel), before);

    QStringList told;
    const QStringList lines =
        QString::fromUtf8(process.readAllStandardError()).trimmed().split(QLatin1Char('\n'));
    for (QString line : lines)
        told << line.remove(text("panelsettings.linux.readonly: would "));
    QCOMPARE(told,
             (QStringList{"give LAN0 the address 10.0.0.2", "give LAN0 the mask 255.255.255.0",
                          "give LAN0 the gateway 10.0.0.1", "give LAN0 the name servers 9.9.9.9 and 8.8.8.8",
                          "put LAN0 on its static address", "join the network Plant", "forget all networks",
                          "switch LAN1 off", "make LAN1 the default adapter", "set the brightness to 1",
                          "let keys be silent", "make the language Chinese",
                          "set the clock to 1000000000 s since 1970", "restart the device"}));
}

PANEL_TEST_MAIN(TestLinuxReadOnly)

#include "test_linux_readonly.moc"
