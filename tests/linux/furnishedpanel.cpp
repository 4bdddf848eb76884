#include "tests/linux/furnishedpanel.h"

#include "tests/linux/text.h"

#include "linux/modemnames.h"

FurnishedPanel::FurnishedPanel(Daemons daemons) : m_isReal(daemons == Daemons::Real)
{
    furnishFiles();
    furnishNetwork();
    furnishWifi();
    m_modems.addModem();
    m_modems.setState(HmiLinux::Mm::Registered);
    m_modems.setSignal(71);
    m_others.onCall(text("SetTime"), [](const QDBusMessage &message) { return message.createReply(); });
    m_others.onCall(text("Reboot"), [](const QDBusMessage &message) { return message.createReply(); });
}

bool FurnishedPanel::start()
{
    const QString address = m_isReal ? qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS") : m_bus.address();
    if (!m_isReal && (!m_bus.start() || !m_network.publish(address) || !m_modems.publish(address)))
        return false;
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toLocal8Bit());
    qputenv("PANELSETTINGS_ROOT", m_files.path().toLocal8Bit());
    return m_others.publish(address, text("org.freedesktop.timedate1"));
}

void FurnishedPanel::furnishFiles() const
{
    const QByteArray ports = "[buzzer]\ndevice = /sys/class/leds/buzzer/brightness\n"
                             "[adapters]\nLAN0 = lan0\nLAN1 = lan1\n";
    m_files.put(text("/etc/panelsettings/linux.conf"),
                ports + (m_isReal
                             ? "WIFI = none\nMOBILE_4G = none\n"
                             : "WIFI = wlan0\nMOBILE_4G = wwan0\n[vpn]\nAsia = asia\nEurope = europe\n"));
    m_files.put(text("/sys/class/backlight/lcd/max_brightness"), "255\n");
    m_files.put(text("/sys/class/backlight/lcd/brightness"), "200\n");
    m_files.put(text("/sys/class/leds/buzzer/brightness"), "0\n");
    m_files.put(text("/proc/device-tree/serial-number"), "LINUX-0815\n");
}

void FurnishedPanel::furnishNetwork()
{
    int number = 0;
    for (const QString &port : {text("lan0"), text("lan1")}) {
        m_network.addPort(port, QStringLiteral("02:00:00:00:00:1%1").arg(number++));
        const QString profile =
            m_network.addProfile(FakeNetworkManager::wiredProfile(port, {{text("method"), text("auto")}}));
        m_network.activate(profile, port);
    }
    m_network.addPort(text("ttyUSB0"), {});
    m_tunnels.addConnection(text("asia"));
    m_tunnels.addConnection(text("europe"));
}

void FurnishedPanel::furnishWifi()
{
    m_wifi.requireHeard();
    m_wifi.appear("Hall", 80);
    m_wifi.appear("Office", 60);
    m_wifi.appear("Free", 40, FakeWifi::Open);
    m_network.activate(m_wifi.know("Office", text("its password")), FakeWifi::interface());
}
