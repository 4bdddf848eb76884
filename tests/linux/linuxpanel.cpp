#include "tests/linux/fakemodemmanager.h"
#include "tests/linux/fakevpn.h"
#include "tests/linux/fakewifi.h"
#include "tests/linux/paneldirectory.h"
#include "tests/linux/privatebus.h"
#include "tests/linux/text.h"

#include "linux/modemnames.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <cstdio>

/// Runs a program on a panel with the service for real ones: files in a temporary directory, timedated and logind of
/// our own, and NetworkManager with a modem and tunnels too unless the system's bus has a real one.
///
///     linux_panel [--real] PROGRAM ARGUMENTS...

namespace {

void furnish(const PanelDirectory &panel, bool isReal)
{
    const QByteArray ports = "[adapters]\nLAN0 = lan0\nLAN1 = lan1\n";
    panel.put(text("/etc/panelsettings/linux.conf"),
              ports + (isReal ? "WIFI = none\nMOBILE_4G = none\n"
                              : "WIFI = wlan0\nMOBILE_4G = wwan0\n[vpn]\nAsia = asia\nEurope = europe\n"));
    panel.put(text("/sys/class/backlight/lcd/max_brightness"), "255\n");
    panel.put(text("/sys/class/backlight/lcd/brightness"), "200\n");
    panel.put(text("/proc/device-tree/serial-number"), "LINUX-0815\n");
}

void furnish(FakeNetworkManager *daemon)
{
    int number = 0;
    for (const QString &port : {text("lan0"), text("lan1")}) {
        daemon->addPort(port, QStringLiteral("02:00:00:00:00:1%1").arg(number++));
        const QString profile =
            daemon->addProfile(FakeNetworkManager::wiredProfile(port, {{text("method"), text("auto")}}));
        daemon->activate(profile, port);
    }
    daemon->addPort(text("ttyUSB0"), {});
}

void furnish(FakeModemManager *daemon)
{
    daemon->addModem();
    daemon->setState(HmiLinux::Mm::Registered);
    daemon->setSignal(71);
}

void furnish(FakeNetworkManager *daemon, FakeWifi *wifi)
{
    wifi->requireHeard();
    wifi->appear("Hall", 80);
    wifi->appear("Office", 60);
    wifi->appear("Free", 40, FakeWifi::Open);
    daemon->activate(wifi->know("Office", text("its password")), FakeWifi::interface());
}

int run(const QStringList &command)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    QEventLoop loop;
    QObject::connect(&program, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QObject::connect(&program, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    program.start(command.constFirst(), command.mid(1));
    loop.exec();
    if (program.state() == QProcess::NotRunning && program.exitStatus() == QProcess::NormalExit &&
        program.error() == QProcess::UnknownError)
        return program.exitCode();
    std::fprintf(stderr, "linux_panel: %s\n", qPrintable(program.errorString()));
    return 126;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList command = QCoreApplication::arguments().mid(1);
    const bool isReal = command.value(0) == text("--real");
    if (isReal)
        command.removeFirst();
    if (command.isEmpty()) {
        std::fputs("linux_panel: a program is missing\n", stderr);
        return 2;
    }

    const PanelDirectory panel;
    furnish(panel, isReal);
    PrivateBus bus;
    FakeNetworkManager network;
    FakeVpn tunnels(&network);
    FakeModemManager modems;
    FakeObjects others;
    others.onCall(text("SetTime"), [](const QDBusMessage &message) { return message.createReply(); });
    others.onCall(text("Reboot"), [](const QDBusMessage &message) { return message.createReply(); });
    furnish(&network);
    furnish(&modems);
    tunnels.addConnection(text("asia"));
    tunnels.addConnection(text("europe"));
    FakeWifi wifi(&network);
    furnish(&network, &wifi);
    const QString address = isReal ? qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS") : bus.address();
    if ((!isReal && (!bus.start() || !network.publish(address) || !modems.publish(address))) ||
        !others.publish(address, text("org.freedesktop.timedate1"))) {
        std::fputs("linux_panel: there is no bus\n", stderr);
        return 126;
    }
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toLocal8Bit());
    qputenv("PANELSETTINGS_ROOT", panel.path().toLocal8Bit());
    qputenv("LD_LIBRARY_PATH", QFileInfo(text(PANEL_LINUX_LIBRARY)).path().toLocal8Bit());
    return run(command);
}
