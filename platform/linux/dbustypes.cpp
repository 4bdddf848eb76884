#include "linux/dbustypes.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMetaType>

namespace HmiLinux {

void registerBusTypes()
{
    qDBusRegisterMetaType<Sections>();
    qDBusRegisterMetaType<ManagedObjects>();
    qDBusRegisterMetaType<Records>();
    qDBusRegisterMetaType<QList<uint>>();
    qDBusRegisterMetaType<QMap<QString, QString>>();
}

Records recordsOf(const QVariant &value)
{
    return qdbus_cast<Records>(value);
}

} // namespace HmiLinux
