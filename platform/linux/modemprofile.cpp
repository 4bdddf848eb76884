#include "linux/modemprofile.h"

#include "linux/profile.h"

namespace HmiLinux {

Sections newModemSettings(const QString &adapter, const QString &apn)
{
    const QString type = QStringLiteral("gsm");
    // Of no interface in particular: the one that commands a modem may have another name after each start.
    Sections settings = newSettings(adapter, type);
    settings[QStringLiteral("connection")].insert(QStringLiteral("uuid"), profileUuid(adapter));
    QVariantMap &gsm = settings[type];
    if (apn == QLatin1String("auto"))
        gsm.insert(QStringLiteral("auto-config"), true);
    else
        gsm.insert(QStringLiteral("apn"), apn);
    return settings;
}

} // namespace HmiLinux
