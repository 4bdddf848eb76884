#include "linux/interfaces.h"

#include "linux/config.h"
#include "linux/root.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <cstring>

namespace HmiLinux {

namespace {

using HMI::SystemSet;

/// Interfaces that are hardware, by what they are; eth2 before eth10.
class Hardware
{
public:
    explicit Hardware(const Root &root)
    {
        const QString directory = root.path(QStringLiteral("/sys/class/net/"));
        QStringList names = QDir(directory).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
            return ::strverscmp(a.toLatin1().constData(), b.toLatin1().constData()) < 0;
        });
        for (const QString &name : qAsConst(names)) {
            const QString interface = QStringLiteral("/sys/class/net/") + name;
            if (!QFileInfo::exists(root.path(interface + QStringLiteral("/device"))))
                continue; // a bridge, a tunnel, the loop
            sortIn(root, interface, name);
        }
    }

    /// Takes the next one of a kind; empty when there is none left.
    QString takeWired() { return take(&m_wired); }
    QString takeWireless() { return take(&m_wireless); }
    QString takeModem() { return take(&m_modems); }
    /// One that the configuration names is not found a second time.
    void leaveOut(const QString &name)
    {
        m_wired.removeAll(name);
        m_wireless.removeAll(name);
        m_modems.removeAll(name);
    }

private:
    void sortIn(const Root &root, const QString &interface, const QString &name)
    {
        const QByteArray kind = root.read(interface + QStringLiteral("/uevent")).value_or(QByteArray());
        const QByteArray type =
            root.read(interface + QStringLiteral("/type")).value_or(QByteArray()).trimmed();
        if (kind.contains("DEVTYPE=wwan"))
            m_modems.append(name);
        else if (kind.contains("DEVTYPE=wlan") ||
                 QFileInfo::exists(root.path(interface + QStringLiteral("/wireless"))))
            m_wireless.append(name);
        else if (type == "1")
            m_wired.append(name);
    }

    static QString take(QStringList *names) { return names->isEmpty() ? QString() : names->takeFirst(); }

    QStringList m_wired;
    QStringList m_wireless;
    QStringList m_modems;
};

QString takeFor(SystemSet::NIC nic, Hardware *hardware)
{
    switch (nic) {
    case SystemSet::LAN0:
    case SystemSet::LAN1:
        return hardware->takeWired();
    case SystemSet::WIFI:
        return hardware->takeWireless();
    case SystemSet::MOBILE_4G:
        return hardware->takeModem();
    case SystemSet::VPN:
        return QStringLiteral("tun0"); // what plug-ins call their first one
    }
    return {};
}

} // namespace

Interfaces chooseInterfaces(const Root &root, const Config &config)
{
    Hardware hardware(root);
    for (const auto &adapter : config.adapters)
        hardware.leaveOut(adapter.second);
    Interfaces interfaces;
    for (std::size_t place = 0; place < Adapters.size(); ++place) {
        const QString wanted = config.adapters.at(Adapters.at(place));
        const bool isTunnel = Adapters.at(place) == SystemSet::VPN;
        if (isTunnel && config.vpnAsia.isEmpty() && config.vpnEurope.isEmpty())
            continue; // nowhere to go
        if (wanted == QLatin1String("auto"))
            interfaces.at(place) = takeFor(Adapters.at(place), &hardware);
        else if (wanted != QLatin1String("none"))
            interfaces.at(place) = wanted;
    }
    return interfaces;
}

int adapterMask(const Interfaces &interfaces)
{
    int mask = 0;
    for (std::size_t place = 0; place < interfaces.size(); ++place) {
        if (!interfaces.at(place).isEmpty())
            mask |= Adapters.at(place);
    }
    return mask;
}

} // namespace HmiLinux
