#include "linux/wifisettings.h"

#include "linux/profile.h"

namespace HmiLinux {

namespace {

constexpr uint g_privacy = 0x1;
constexpr uint g_psk = 0x100;
constexpr uint g_business = 0x200;
constexpr uint g_sae = 0x400;
constexpr uint g_owe = 0x800;

QString passwordKey(WifiSecurity security)
{
    return security == WifiSecurity::Wep ? QStringLiteral("wep-key0") : QStringLiteral("psk");
}

QString keyManagement(WifiSecurity security)
{
    switch (security) {
    case WifiSecurity::Psk:
        return QStringLiteral("wpa-psk");
    case WifiSecurity::Sae:
        return QStringLiteral("sae");
    case WifiSecurity::Owe:
        return QStringLiteral("owe");
    case WifiSecurity::Wep:
        return QStringLiteral("none");
    case WifiSecurity::Open:
    case WifiSecurity::Business:
        break;
    }
    return {};
}

} // namespace

WifiSecurity securityOf(uint flags, uint wpaFlags, uint rsnFlags)
{
    const uint both = wpaFlags | rsnFlags;
    // One that offers both is joined in the way that every device knows.
    if ((both & g_psk) != 0)
        return WifiSecurity::Psk;
    if ((both & g_sae) != 0)
        return WifiSecurity::Sae;
    if ((both & g_business) != 0)
        return WifiSecurity::Business;
    if ((both & g_owe) != 0)
        return WifiSecurity::Owe;
    return (flags & g_privacy) != 0 ? WifiSecurity::Wep : WifiSecurity::Open;
}

bool needsPassword(WifiSecurity security)
{
    return security != WifiSecurity::Open && security != WifiSecurity::Owe;
}

Sections newWifiSettings(const QByteArray &name, const QString &interface, WifiSecurity security)
{
    Sections settings = newSettings(QStringLiteral("WIFI"), wifiType(), interface);
    QVariantMap &connection = settings[QStringLiteral("connection")];
    connection.insert(QStringLiteral("id"), QStringLiteral("Panel WIFI ") + QString::fromUtf8(name));
    // A second try with the same password would keep the operator waiting.
    connection.insert(QStringLiteral("auth-retries"), 1);
    QVariantMap &wireless = settings[wifiType()];
    wireless.insert(QStringLiteral("ssid"), name);
    wireless.insert(QStringLiteral("mode"), QStringLiteral("infrastructure"));
    const QString management = keyManagement(security);
    if (!management.isEmpty())
        settings[wifiSecuritySection()].insert(QStringLiteral("key-mgmt"), management);
    return settings;
}

Sections withPassword(Sections settings, WifiSecurity security, const QString &text)
{
    settings[wifiSecuritySection()].insert(passwordKey(security), text);
    return settings;
}

QString wifiSecuritySection()
{
    return QStringLiteral("802-11-wireless-security");
}

SharedSecret passwordIn(const Sections &secrets)
{
    const QVariantMap section = secrets.value(wifiSecuritySection());
    for (const WifiSecurity security : {WifiSecurity::Psk, WifiSecurity::Wep}) {
        QString text = section.value(passwordKey(security)).toString();
        if (text.isEmpty())
            continue;
        QByteArray utf8 = text.toUtf8();
        auto secret =
            std::make_shared<const Secret>(std::string_view(utf8.constData(), std::size_t(utf8.size())));
        wipe(&text);
        utf8.fill('\0');
        return secret;
    }
    return nullptr;
}

} // namespace HmiLinux
