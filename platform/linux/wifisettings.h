#pragma once

#include "linux/dbustypes.h"
#include "linux/secret.h"

namespace HmiLinux {

/// How a network lets in.
enum class WifiSecurity {
    Open,
    Owe, ///< enciphered, without a password
    Wep,
    Psk,      ///< WPA and WPA2
    Sae,      ///< WPA3
    Business, ///< each user has a name and a password of their own: more than an operator can be asked for here
};

/// From the flags of an access point.
WifiSecurity securityOf(uint flags, uint wpaFlags, uint rsnFlags);
bool needsPassword(WifiSecurity security);

/// The settings of a new profile for a network, without its password.
Sections newWifiSettings(const QByteArray &name, const QString &interface, WifiSecurity security);
/// Settings with a password in them, which is @p text: wiping it wipes it there.
Sections withPassword(Sections settings, WifiSecurity security, const QString &text);

/// The section that secrets are asked for in.
QString wifiSecuritySection();
/// The password among @p secrets; null when there is none.
SharedSecret passwordIn(const Sections &secrets);

} // namespace HmiLinux
