#pragma once

#include "linux/wifireading.h"

#include <QtDBus/QDBusConnection>

#include <functional>
#include <vector>

namespace HmiLinux {

using WifiRecords = std::vector<HMI::SystemSet::SsidInfo>;

/// Makes the list of a scan of @p networks. The passwords that the daemon keeps for them are fetched for it, and wiped
/// once @p done returns; where the daemon keeps one to itself it is empty, and not needed either.
void makeWifiList(const QDBusConnection &bus, const QVector<WifiNetwork> &networks, QObject *context,
                  const std::function<void(const WifiRecords &)> &done);

/// Asks for the secrets of a network's profile. Nobody but the answer has them: it is taken apart by passwordIn().
QDBusMessage secretsQuestion(const QString &profile);

} // namespace HmiLinux
