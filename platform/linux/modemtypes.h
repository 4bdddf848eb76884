#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtDBus/QDBusArgument>

namespace HmiLinux {

/// One port of a modem, "(su)" on the bus.
struct ModemPort {
    QString name;
    uint kind = 0;
};
using ModemPorts = QList<ModemPort>;

/// "(ub)" on the bus.
struct SignalQuality {
    uint percent = 0;
    bool isRecent = false;
};

QDBusArgument &operator<<(QDBusArgument &argument, const ModemPort &port);
const QDBusArgument &operator>>(const QDBusArgument &argument, ModemPort &port);
QDBusArgument &operator<<(QDBusArgument &argument, const SignalQuality &quality);
const QDBusArgument &operator>>(const QDBusArgument &argument, SignalQuality &quality);

/// Once a process, before a modem is asked for.
void registerModemTypes();

} // namespace HmiLinux

Q_DECLARE_METATYPE(HmiLinux::ModemPort)
Q_DECLARE_METATYPE(HmiLinux::ModemPorts)
Q_DECLARE_METATYPE(HmiLinux::SignalQuality)
