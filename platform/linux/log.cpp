#include "linux/log.h"

namespace HmiLinux {

Q_LOGGING_CATEGORY(busLog, "panelsettings.linux.bus", QtInfoMsg)
Q_LOGGING_CATEGORY(clockLog, "panelsettings.linux.clock", QtInfoMsg)
Q_LOGGING_CATEGORY(configLog, "panelsettings.linux.config", QtInfoMsg)
Q_LOGGING_CATEGORY(deviceLog, "panelsettings.linux.device", QtInfoMsg)
Q_LOGGING_CATEGORY(modemLog, "panelsettings.linux.modem", QtInfoMsg)
Q_LOGGING_CATEGORY(networkLog, "panelsettings.linux.network", QtInfoMsg)
Q_LOGGING_CATEGORY(pingLog, "panelsettings.linux.ping", QtInfoMsg)
Q_LOGGING_CATEGORY(powerLog, "panelsettings.linux.power", QtInfoMsg)
Q_LOGGING_CATEGORY(profileLog, "panelsettings.linux.profiles", QtInfoMsg)
Q_LOGGING_CATEGORY(wifiLog, "panelsettings.linux.wifi", QtInfoMsg)
Q_LOGGING_CATEGORY(readOnlyLog, "panelsettings.linux.readonly", QtInfoMsg)
Q_LOGGING_CATEGORY(vpnLog, "panelsettings.linux.vpn", QtInfoMsg)

} // namespace HmiLinux
