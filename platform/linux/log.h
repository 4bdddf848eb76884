#pragma once

#include <QtCore/QLoggingCategory>

namespace HmiLinux {

// Told apart so that one piece can be listened to alone: QT_LOGGING_RULES="panelsettings.linux.profiles.debug=true".
// No message carries a password or a map of settings.
Q_DECLARE_LOGGING_CATEGORY(busLog)
Q_DECLARE_LOGGING_CATEGORY(clockLog)
Q_DECLARE_LOGGING_CATEGORY(configLog)
Q_DECLARE_LOGGING_CATEGORY(deviceLog)
Q_DECLARE_LOGGING_CATEGORY(modemLog)
Q_DECLARE_LOGGING_CATEGORY(networkLog)
Q_DECLARE_LOGGING_CATEGORY(pingLog)
Q_DECLARE_LOGGING_CATEGORY(powerLog)
Q_DECLARE_LOGGING_CATEGORY(profileLog)
Q_DECLARE_LOGGING_CATEGORY(wifiLog)
Q_DECLARE_LOGGING_CATEGORY(readOnlyLog)
Q_DECLARE_LOGGING_CATEGORY(vpnLog)

} // namespace HmiLinux
