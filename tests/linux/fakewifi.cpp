#include "tests/linux/fakewifi.h"

#include "tests/linux/text.h"

#include "linux/nmnames.h"

#include <QtCore/QTimer>
#include <QtDBus/QDBusArgument>

using namespace HmiLinux;

namespace {

QVariant objectPath(const QString &path)
{
    return QVariant::fromValue(QDBusObjectPath(path));
}

QString wireless()
{
    return text("802-11-wireless");
}

QString security()
{
    return text("802-11-wireless-security");
}

} // namespace

FakeWifi::FakeWifi(FakeNetworkManager *daemon) : m_daemon(daemon)
{
    m_daemon->add(Nm::path(), {{Nm::service(), {{text("WirelessEnabled"), true}}}});
    m_daemon->add(device(), {{Nm::device(),
                              {{text("Interface"), interface()},
                               {text("State"), uint(Nm::Disconnected)},
                               {text("Autoconnect"), true},
                               {text("HwAddress"), text("02:00:00:00:00:30")},
                               {text("ActiveConnection"), objectPath(text("/"))}}},
                             {Nm::wireless(),
                              {{text("AccessPoints"), QVariant::fromValue(QList<QDBusObjectPath>())},
                               {text("ActiveAccessPoint"), objectPath(text("/"))},
                               {text("LastScan"), m_scanned}}}});
    m_daemon->onCall(text("AddAndActivateConnection2"),
                     [this](const QDBusMessage &message) { return addAndActivate(message); });
    m_daemon->onCall(text("GetSecrets"), [this](const QDBusMessage &message) { return secrets(message); });
    m_daemon->onCall(text("RequestScan"), [this](const QDBusMessage &message) { return scan(message); });
    m_daemon->onCall(text("Delete"), [this](const QDBusMessage &message) {
        m_daemon->removeProfile(message.path());
        return message.createReply();
    });
    m_daemon->onInForce([this](const QString &where, const QString &profile) {
        if (where == interface())
            inForce(profile);
    });
}

QString FakeWifi::appear(const QByteArray &name, int strength, Security how)
{
    const bool isRsn = how > Wep;
    QString point = Nm::path() + text("/AccessPoint/%1").arg(++m_count);
    m_daemon->add(point, {{Nm::accessPoint(),
                           {{text("Ssid"), name},
                            {text("Strength"), QVariant::fromValue(uchar(strength))},
                            {text("Flags"), uint(how == Open ? 0 : 1)},
                            {text("WpaFlags"), 0U},
                            {text("RsnFlags"), isRsn ? uint(how) : 0U}}}});
    m_points.append(point);
    list();
    return point;
}

void FakeWifi::vanish(const QString &point)
{
    m_points.removeAll(point);
    list();
    m_daemon->remove(point);
}

QString FakeWifi::know(const QByteArray &name, const QString &password)
{
    const QString id = QString::fromUtf8(name);
    Sections settings = {
        {text("connection"), {{text("id"), id}, {text("uuid"), id}, {text("type"), wireless()}}},
        {wireless(), {{text("ssid"), name}}},
        {text("ipv4"), {{text("method"), text("auto")}}}};
    QString path = m_daemon->addProfile(settings);
    m_passwords[path] = password;
    return path;
}

void FakeWifi::pullOut()
{
    m_daemon->setState(interface(), Nm::Unmanaged, 3);
    m_daemon->remove(device());
}

void FakeWifi::endScan()
{
    m_daemon->set(device(), Nm::wireless(), {{text("LastScan"), ++m_scanned}});
}

bool FakeWifi::isStored(const QString &profile) const
{
    return m_daemon->profiles().contains(profile) &&
           m_daemon->get(profile, Nm::profile(), text("Flags")).toUInt() == 0;
}

QDBusMessage FakeWifi::addAndActivate(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (!m_refusal.first.isEmpty())
        return message.createErrorReply(m_refusal.first, m_refusal.second);
    auto settings = qdbus_cast<Sections>(arguments.value(0));
    QString password;
    for (const QString &key : {text("psk"), text("wep-key0")}) {
        if (settings.value(security()).contains(key))
            password = settings[security()].take(key).toString();
    }
    const QString path = m_daemon->addProfile(settings);
    m_passwords[path] = password;
    if (qdbus_cast<QVariantMap>(arguments.value(3)).value(text("persist")) == text("volatile"))
        m_daemon->set(path, Nm::profile(), {{text("Flags"), FakeNetworkManager::Volatile}});
    const FakeNetworkManager::Steps steps = m_daemon->steps();
    if (m_requiresHeard && heard(settings.value(wireless()).value(text("ssid"))).isEmpty())
        m_daemon->setSteps({{Nm::Preparing, 0}, {50, 0}, {Nm::Failed, 53}, {Nm::Disconnected, 0}});
    const QVariant active = m_daemon->begin(message, path, interface()).arguments().value(0);
    m_daemon->setSteps(steps);
    QDBusMessage reply = message.createReply();
    reply << objectPath(path) << active << QVariantMap();
    return reply;
}

QDBusMessage FakeWifi::secrets(const QDBusMessage &message)
{
    m_asked.append(message.path());
    const QString password = m_passwords.value(message.path());
    if (password.isEmpty() || !m_tellsSecrets)
        return message.createErrorReply(text("org.freedesktop.NetworkManager.AgentManager.NoSecrets"),
                                        text("none"));
    return message.createReply(QVariant::fromValue(Sections{{security(), {{text("psk"), password}}}}));
}

QDBusMessage FakeWifi::scan(const QDBusMessage &message)
{
    if (m_scans == Scans::Refused)
        return message.createErrorReply(text("org.freedesktop.NetworkManager.Device.NotAllowed"),
                                        text("Scanning not allowed immediately following previous scan"));
    if (m_scans == Scans::Answered)
        QTimer::singleShot(0, m_daemon, [this] { endScan(); });
    return message.createReply();
}

QString FakeWifi::heard(const QVariant &name) const
{
    for (const QString &point : m_points) {
        if (m_daemon->get(point, Nm::accessPoint(), text("Ssid")) == name)
            return point;
    }
    return {};
}

void FakeWifi::list()
{
    QList<QDBusObjectPath> paths;
    for (const QString &point : qAsConst(m_points))
        paths.append(QDBusObjectPath(point));
    m_daemon->set(device(), Nm::wireless(), {{text("AccessPoints"), QVariant::fromValue(paths)}});
}

void FakeWifi::inForce(const QString &profile)
{
    const QVariant name = m_daemon->profile(profile).value(wireless()).value(text("ssid"));
    const QString point = profile.isEmpty() ? QString() : heard(name);
    const QVariant active = objectPath(point.isEmpty() ? text("/") : point);
    m_daemon->set(device(), Nm::wireless(), {{text("ActiveAccessPoint"), active}});
}
