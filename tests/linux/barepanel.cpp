#include "tests/linux/barepanel.h"

#include "tests/linux/text.h"

BarePanel::BarePanel()
{
    m_files.put(text("/etc/panelsettings/linux.conf"),
                "[adapters]\nLAN0 = none\nLAN1 = none\nWIFI = none\nMOBILE_4G = none\n");
    m_files.put(text("/var/lib/panelsettings/buzzer"), "on\n");
    m_files.put(text("/var/lib/panelsettings/vpn"), "on europe\n");
    m_clock.onCall(text("SetTime"), [](const QDBusMessage &message) { return message.createReply(); });
}

bool BarePanel::start()
{
    if (!m_bus.start())
        return false;
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_bus.address().toLocal8Bit());
    qputenv("PANELSETTINGS_ROOT", m_files.path().toLocal8Bit());
    return m_clock.publish(m_bus.address(), text("org.freedesktop.timedate1"));
}
