#pragma once

#include "hmi/systemset.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace QSP {

// Names of networks are up to 32 bytes in whatever encoding the access point uses.

/// The same bytes with a NUL for the last one, whatever came there.
HMI::SSID terminatedSsid(HMI::SSID ssid);
/// Whether there is no name: the first four bytes are all zero.
bool isEmptySsid(const HMI::SSID &ssid);
/// Whether both name the same network: the bytes up to the first NUL are alike.
bool isSameNetwork(const HMI::SSID &one, const HMI::SSID &other);

// A character that is begun at the end of a name is invalid, and shown as U+FFFD. Only where the name fills
// all its 32 bytes it was cut off there, and the characters before it are the name.

/// The name of a network that was found: UTF-8, or GB2312 where the bytes are no UTF-8.
QString getSsidFromScan(const HMI::SSID &ssid);
/// The name of the joined network: always taken as UTF-8.
QString getSsidFromCurWifi(const HMI::SSID &ssid);
/// A name as it can be shown on one line. What draws nothing (control characters, marks of
/// direction, characters without width) becomes visible as U+FFFD.
QString displayName(const QString &name);

} // namespace QSP

Q_DECLARE_METATYPE(HMI::SSID)
