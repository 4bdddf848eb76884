#include "linux/power.h"

#include "linux/ask.h"
#include "linux/bus.h"
#include "linux/log.h"

namespace HmiLinux {

Power::Power(const Bus *bus, QObject *parent) : QObject(parent), m_bus(bus) {}

void Power::reboot()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Reboot"));
    question << false;
    askStarting(m_bus->connection(), question, this, [](const QDBusMessage &answer) {
        if (isError(answer))
            qCWarning(powerLog, "the device does not restart: %s", qPrintable(reasonOf(answer)));
    });
}

} // namespace HmiLinux
