#pragma once

#include "hmi/systemset.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <map>

namespace HmiLinux {

/// What the maker of a device can choose. The values here are those of a device without a configuration file;
/// linux.conf.sample tells each key.
struct Config {
    /// Interface names, or "auto", or "none".
    std::map<HMI::SystemSet::NIC, QString> adapters = {
        {HMI::SystemSet::LAN0, QStringLiteral("auto")}, {HMI::SystemSet::LAN1, QStringLiteral("auto")},
        {HMI::SystemSet::WIFI, QStringLiteral("auto")}, {HMI::SystemSet::MOBILE_4G, QStringLiteral("auto")},
        {HMI::SystemSet::VPN, QStringLiteral("auto")},
    };
    QString pingTarget = QStringLiteral("gateway"); ///< or an IPv4 address
    int pingTimeout = 3000;                         ///< milliseconds
    QString apn = QStringLiteral("auto");           ///< of 4G; or a name
    QString vpnAsia;                                ///< id of a stored connection
    QString vpnEurope;
    int vpnRetry = 30;                          ///< seconds
    QString backlight = QStringLiteral("auto"); ///< a name in /sys/class/backlight
    int backlightMinimum = 1;                   ///< the raw value of the darkest level
    QString buzzer = QStringLiteral("auto");    ///< "none", an input device, or the value file of a GPIO
    int buzzerFrequency = 2000;                 ///< hertz, where the device has a tone
    int buzzerDuration = 40;                    ///< milliseconds
    QString serialNumber = QStringLiteral("auto");
    QString languageFile = QStringLiteral("/var/lib/panelsettings/language");
    QString stateDirectory = QStringLiteral("/var/lib/panelsettings");
};

/// Reads the configuration file at @p path. What is wrong in it is added to @p problems, each with file, line and
/// reason, and the default stands. A file that is missing is all defaults and no problem.
Config readConfig(const QString &path, QStringList *problems);

} // namespace HmiLinux
