#pragma once

#include "linux/ask.h"
#include "linux/dbustypes.h"
#include "linux/nmnames.h"

namespace HmiLinux {

/// Stores what @p changed makes of the settings that the profile at @p path has now; its secrets stay, as they are not
/// told. @p stored is handed the answer, or the error of whichever question was refused, as long as @p context lives.
void changeProfile(const QDBusConnection &bus, const QString &path, Nm::StoreFlag flag, QObject *context,
                   const std::function<Sections(const Sections &)> &changed, const OnAnswer &stored);

} // namespace HmiLinux
