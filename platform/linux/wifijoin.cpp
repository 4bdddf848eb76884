#include "linux/wifijoin.h"

#include "linux/ask.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/wifilist.h"

#include <QtDBus/QDBusArgument>

namespace HmiLinux {

using HMI::SystemSet;

namespace {

// The daemon's own limits end before; the screen gives up after sixty seconds.
constexpr int g_limit = 40000;

QDBusObjectPath orNothing(const QString &path)
{
    return QDBusObjectPath(path.isEmpty() ? QStringLiteral("/") : path);
}

} // namespace

WifiJoin::WifiJoin(QDBusConnection bus, WifiTarget target, IsHeard isHeard, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_target(std::move(target))
    , m_isHeard(std::move(isHeard))
    , m_limit(this)
{
    m_limit.setObjectName(QStringLiteral("joinLimit"));
    m_limit.setSingleShot(true);
    m_limit.setInterval(g_limit);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        end(m_wasRefused ? SystemSet::WIFI_WRONG_PASSWORD : SystemSet::WIFI_TIMEOUT,
            QStringLiteral("it takes too long"));
    });
}

void WifiJoin::start()
{
    m_limit.start();
    m_profile = m_target.network.profile;
    const bool isTyped = needsPassword(m_target.network.security) && !m_target.password->isEmpty();
    if (!m_profile.isEmpty() && isTyped)
        return whenAnswered(secretsQuestion(m_profile), &WifiJoin::compare);
    if (!m_profile.isEmpty())
        return activate();
    if (m_target.network.security == WifiSecurity::Business)
        return end(SystemSet::WIFI_OFFLINE, QStringLiteral("it asks for more than a password"));
    add();
}

void WifiJoin::abandon()
{
    end(SystemSet::WIFI_OFFLINE, QStringLiteral("something else is wanted"));
}

void WifiJoin::retire()
{
    if (!m_isAdding)
        deleteLater();
}

void WifiJoin::compare(const QDBusMessage &secrets)
{
    const SharedSecret kept =
        isError(secrets) ? nullptr : passwordIn(qdbus_cast<Sections>(secrets.arguments().value(0)));
    if (kept && kept->utf8() == m_target.password->utf8())
        activate();
    else
        add();
}

void WifiJoin::activate()
{
    m_prepared = false;
    QDBusMessage question = Nm::call(Nm::path(), Nm::service(), "ActivateConnection");
    question << QDBusObjectPath(m_profile) << QDBusObjectPath(m_target.device)
             << orNothing(m_target.network.point);
    ask(m_bus, question, this, [this](const QDBusMessage &answer) {
        if (isError(answer))
            return end(SystemSet::WIFI_OFFLINE, reasonOf(answer));
        m_isAnswered = true;
    });
}

void WifiJoin::add()
{
    m_isNew = true;
    m_prepared = false;
    m_profile.clear();
    const WifiNetwork &network = m_target.network;
    ProfileValues values = m_target.values;
    values.enabled = true;
    Sections settings =
        withValues(newWifiSettings(network.name, m_target.interface, network.security), values);
    const std::string &utf8 = m_target.password->utf8();
    QString password = QString::fromUtf8(utf8.data(), int(utf8.size()));
    if (needsPassword(network.security))
        settings = withPassword(settings, network.security, password);
    QDBusMessage question = Nm::call(Nm::path(), Nm::service(), "AddAndActivateConnection2");
    question << QVariant::fromValue(settings) << QDBusObjectPath(m_target.device) << orNothing(network.point)
             << QVariantMap{{QStringLiteral("persist"), QStringLiteral("volatile")}};
    m_isAdding = true;
    ask(m_bus, question, this, [this](const QDBusMessage &answer) { added(answer); });
    wipe(&password);
}

void WifiJoin::added(const QDBusMessage &answer)
{
    m_isAdding = false;
    if (m_hasEnded) {
        // Nobody wants it any more.
        m_profile = qdbus_cast<QDBusObjectPath>(answer.arguments().value(0)).path();
        if (!isError(answer))
            drop(m_profile);
        return retire();
    }
    if (isError(answer)) {
        // A password that no network can have is refused as a setting.
        const bool isPassword = answer.errorName().endsWith(QLatin1String("InvalidProperty")) &&
                                answer.errorMessage().contains(wifiSecuritySection());
        return end(isPassword ? SystemSet::WIFI_WRONG_PASSWORD : SystemSet::WIFI_OFFLINE, answer.errorName());
    }
    m_profile = qdbus_cast<QDBusObjectPath>(answer.arguments().value(0)).path();
    m_isAnswered = true;
}

void WifiJoin::deviceChanged(const QString &device, uint state, uint reason)
{
    if (m_hasEnded || m_isUp || device != m_target.device)
        return;
    if (state == Nm::Preparing) {
        m_prepared = true;
        return;
    }
    // A device that is taken away, or off, does not prepare any more.
    if (state <= Nm::Unavailable)
        return end(SystemSet::WIFI_OFFLINE, QStringLiteral("the device is off, reason %1").arg(reason));
    if (!m_prepared || reason == Nm::ProfileRemoved)
        return;
    if (reason == Nm::NewActivation) {
        m_prepared = false;
        return;
    }
    if (!m_isAnswered)
        return; // another attempt, which the daemon is still at
    if (state == Nm::NeedsSecrets && reason == Nm::RefusedByNetwork)
        m_wasRefused = true;
    else if (state == Nm::Activated)
        succeeded();
    else if (state == Nm::Failed)
        failed(reason);
    else if (state <= Nm::Disconnected || state == Nm::Deactivating)
        end(SystemSet::WIFI_OFFLINE, QStringLiteral("it was ended, reason %1").arg(reason));
}

void WifiJoin::failed(uint reason)
{
    const QString why = QStringLiteral("reason %1").arg(reason);
    if (reason == Nm::NoSecrets)
        return end(SystemSet::WIFI_WRONG_PASSWORD, why);
    if (reason != Nm::NoSuchNetwork)
        return end(m_wasRefused ? SystemSet::WIFI_WRONG_PASSWORD : SystemSet::WIFI_OFFLINE, why);
    // A network of WPA3 answers a wrong password with silence: it looks as if it were not there. The kept one has
    // been right, so that its silence is the network's.
    const bool isSilent = m_isNew && m_target.network.offersSae && m_isHeard(name());
    end(isSilent || m_wasRefused ? SystemSet::WIFI_WRONG_PASSWORD : SystemSet::WIFI_TIMEOUT, why);
}

void WifiJoin::succeeded()
{
    m_isUp = true;
    if (m_isNew)
        whenAnswered(Nm::call(m_profile, Nm::profile(), "GetSettings"), &WifiJoin::store);
    else
        end(SystemSet::WIFI_CONNECTED);
}

void WifiJoin::store(const QDBusMessage &answer)
{
    if (isError(answer))
        return end(SystemSet::WIFI_OFFLINE, reasonOf(answer));
    auto settings = qdbus_cast<Sections>(answer.arguments().value(0));
    // Later on nobody waits, and a network that stumbles must not count as one with another password.
    settings[QStringLiteral("connection")].remove(QStringLiteral("auth-retries"));
    QDBusMessage question = Nm::call(m_profile, Nm::profile(), "Update2");
    // Secrets that are not told stay.
    question << QVariant::fromValue(settings) << uint(Nm::ToDisk) << QVariantMap();
    ask(m_bus, question, this, [this](const QDBusMessage &stored) {
        if (isError(stored))
            qCWarning(wifiLog, "the network is joined and not kept: %s", qPrintable(reasonOf(stored)));
        else if (m_target.isOwn && !m_target.network.profile.isEmpty())
            drop(m_target.network.profile);
        end(SystemSet::WIFI_CONNECTED);
    });
}

void WifiJoin::drop(const QString &profile)
{
    // The daemon may have dropped it already.
    if (!profile.isEmpty())
        ask(m_bus, Nm::call(profile, Nm::profile(), "Delete"), this, [](const QDBusMessage &) {});
}

void WifiJoin::end(SystemSet::StateWifi state, const QString &why)
{
    m_limit.stop();
    if (std::exchange(m_hasEnded, true))
        return;
    if (state != SystemSet::WIFI_CONNECTED) {
        qCInfo(wifiLog, "a network was not joined: %s", qPrintable(why));
        // Deleting a profile ends what it is in force for. One that stays is left to the daemon: what is ended by
        // request is not joined by itself any more.
        if (m_isNew || (m_target.isOwn && state == SystemSet::WIFI_WRONG_PASSWORD))
            drop(m_profile);
    }
    m_target.password.reset();
    emit ended(state);
}

void WifiJoin::whenAnswered(const QDBusMessage &question, void (WifiJoin::*take)(const QDBusMessage &))
{
    ask(m_bus, question, this, [this, take](const QDBusMessage &answer) {
        if (!m_hasEnded)
            (this->*take)(answer);
    });
}

} // namespace HmiLinux
