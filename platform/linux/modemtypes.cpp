#include "linux/modemtypes.h"

#include <QtDBus/QDBusMetaType>

namespace HmiLinux {

QDBusArgument &operator<<(QDBusArgument &argument, const ModemPort &port)
{
    argument.beginStructure();
    argument << port.name << port.kind;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ModemPort &port)
{
    argument.beginStructure();
    argument >> port.name >> port.kind;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const SignalQuality &quality)
{
    argument.beginStructure();
    argument << quality.percent << quality.isRecent;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SignalQuality &quality)
{
    argument.beginStructure();
    argument >> quality.percent >> quality.isRecent;
    argument.endStructure();
    return argument;
}

void registerModemTypes()
{
    qDBusRegisterMetaType<ModemPort>();
    qDBusRegisterMetaType<ModemPorts>();
    qDBusRegisterMetaType<SignalQuality>();
}

} // namespace HmiLinux
