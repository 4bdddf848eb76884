#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QMetaEnum>

namespace QSP {

// What an engineer follows an operation by, from the finger or the service's report to the row that shows it.
// All are off below warnings; QT_LOGGING_RULES="panelsettings.*.debug=true" switches them on. None ever says
// a password.

/// The screen as a whole: built, opened, closed, which page, which language.
Q_DECLARE_LOGGING_CATEGORY(logShell)
/// Adapters, their addresses, the default adapter, 4G and VPN.
Q_DECLARE_LOGGING_CATEGORY(logNetwork)
/// Scans, attempts to join, the link.
Q_DECLARE_LOGGING_CATEGORY(logWifi)
/// Brightness, buzzer, clock, identity, power; and what the service reports, whatever it is about.
Q_DECLARE_LOGGING_CATEGORY(logDevice)
/// The service itself, where it does not keep to what its contract says of time.
Q_DECLARE_LOGGING_CATEGORY(logService)
/// The on-screen keyboard.
Q_DECLARE_LOGGING_CATEGORY(logKeyboard)

/// The name of a value, for a line of the log; null when the enumeration has none of it.
template <class Enum> const char *nameOf(Enum value)
{
    return QMetaEnum::fromType<Enum>().valueToKey(static_cast<int>(value));
}

/// Notes that the service reported on @p operation from @p thread, and whether anybody was left to hear it.
void logReport(const char *operation, Qt::HANDLE thread, bool isHeard);

} // namespace QSP
