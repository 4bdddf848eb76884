#pragma once

#include "tests/linux/fakenetworkmanager.h"

/// A wireless device of a FakeNetworkManager and the networks that it hears.
class FakeWifi
{
public:
    enum class Scans { Answered, Refused, Silent };
    enum Security : uint { Open = 0, Psk = 0x188, Sae = 0x488, Both = 0x588, Business = 0x288, Wep = 1 };

    explicit FakeWifi(FakeNetworkManager *daemon);

    static QString interface() { return QStringLiteral("wlan0"); }
    static QString device() { return FakeNetworkManager::devicePath(interface()); }

    /// An access point that is heard from now on; its path.
    QString appear(const QByteArray &name, int strength, Security how = Psk);
    void vanish(const QString &point);
    /// A profile of a network that somebody stored; its path.
    QString know(const QByteArray &name, const QString &password);
    /// Takes the device away.
    void pullOut();
    void setScans(Scans scans) { m_scans = scans; }
    /// Ends a scan, whoever asked for it.
    void endScan();

    /// The password that is kept with a profile.
    QString password(const QString &profile) const { return m_passwords.value(profile); }
    /// Whether a profile outlives the attempt that it was made for.
    bool isStored(const QString &profile) const;
    QStringList asked() const { return m_asked; } ///< the profiles whose secrets were asked for
    /// What asking for the next profile comes to.
    void refuseNew(const QString &name, const QString &text) { m_refusal = {name, text}; }
    /// Lets a network that is not heard be absent, whatever an activation comes to by the steps that were set.
    void requireHeard() { m_requiresHeard = true; }
    /// Keeps the secrets to itself, as without the right to them.
    void keepSecrets() { m_tellsSecrets = false; }

private:
    QDBusMessage addAndActivate(const QDBusMessage &message);
    QDBusMessage secrets(const QDBusMessage &message);
    QDBusMessage scan(const QDBusMessage &message);
    QString heard(const QVariant &name) const;
    void list();
    void inForce(const QString &profile);

    FakeNetworkManager *m_daemon;
    QStringList m_points;
    QMap<QString, QString> m_passwords;
    QStringList m_asked;
    QPair<QString, QString> m_refusal;
    Scans m_scans = Scans::Answered;
    qlonglong m_scanned = 1000;
    int m_count = 0;
    bool m_requiresHeard = false;
    bool m_tellsSecrets = true;
};
