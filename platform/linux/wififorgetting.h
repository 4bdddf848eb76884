#pragma once

#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>

#include <functional>

namespace HmiLinux {

/// Deletes the profiles and takes @p device, where there is one, out of what it has joined; @p done comes whatever
/// the daemon says to it.
void forgetNetworks(const QDBusConnection &bus, const QStringList &profiles, const QString &device,
                    QObject *context, const std::function<void()> &done);

} // namespace HmiLinux
