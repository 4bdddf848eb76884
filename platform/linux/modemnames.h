#pragma once

#include <QtCore/QString>

/// ModemManager's names on the bus, and its numbers.
namespace HmiLinux::Mm {

inline QString service()
{
    return QStringLiteral("org.freedesktop.ModemManager1");
}

inline QString objects()
{
    return QStringLiteral("/org/freedesktop/ModemManager1");
}

inline QString modem()
{
    return QStringLiteral("org.freedesktop.ModemManager1.Modem");
}

/// States of a modem.
enum State : int {
    Failed = -1,
    Unknown = 0,
    Locked = 2, ///< its SIM card wants a code
    Disabled = 3,
    Enabling = 5,
    Enabled = 6,
    Searching = 7,
    Registered = 8,
    Connecting = 10,
    Connected = 11,
};

/// Why a modem is in the state Failed.
enum FailedReason : uint {
    CardMissing = 2,
    CardBroken = 3,
};

} // namespace HmiLinux::Mm
