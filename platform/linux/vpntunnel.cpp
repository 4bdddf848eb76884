#include "linux/vpntunnel.h"

#include "linux/ask.h"
#include "linux/config.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/objectmirror.h"
#include "linux/profilebook.h"
#include "linux/vpnnames.h"

#include <QtCore/QFile>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

namespace HmiLinux {

using HMI::SystemSet;

namespace {

// As often as a screen looks.
constexpr int g_listenTime = 2000;

const char *nameOf(std::size_t place)
{
    return place == SystemSet::EUROPE ? "Europe" : "Asia";
}

} // namespace

VpnTunnel::VpnTunnel(const Root &root, const Config &config, const Published<Snapshot> *state,
                     const ObjectMirror *mirror, const ProfileBook *book, QObject *parent)
    : QObject(parent)
    , m_root(root)
    , m_state(state)
    , m_mirror(mirror)
    , m_book(book)
    , m_bus(QString())
    , m_requests(std::make_unique<QObject>(this))
    , m_pause(this)
    , m_listen(this)
{
    m_ends.at(SystemSet::ASIA).id = config.vpnAsia;
    m_ends.at(SystemSet::EUROPE).id = config.vpnEurope;
    m_pause.setSingleShot(true);
    m_pause.setInterval(config.vpnRetry * 1000);
    connect(&m_pause, &QTimer::timeout, this, &VpnTunnel::follow);
    m_listen.setSingleShot(true);
    m_listen.setInterval(g_listenTime);
    connect(&m_listen, &QTimer::timeout, this, &VpnTunnel::follow);
}

void VpnTunnel::attach(const QDBusConnection &bus)
{
    m_bus = bus;
    m_bus.connect(Nm::service(), QString(), Nm::vpn(), QStringLiteral("VpnStateChanged"), this,
                  SLOT(stateChanged(QDBusMessage)));
}

void VpnTunnel::interrupt()
{
    m_requests = std::make_unique<QObject>(this);
    m_begun.reset();
    m_pause.stop();
    m_listen.stop();
    m_wasOnline = false;
    for (End &end : m_ends)
        end.failure = VpnLink::NotConnected;
}

void VpnTunnel::choose()
{
    m_pause.stop(); // an operator does not wait for it
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    for (std::size_t place = 0; place < m_ends.size(); ++place) {
        m_ends.at(place).failure = VpnLink::NotConnected;
        if (!snapshot->vpn.wants(place))
            deactivate(place, activeOf(place));
    }
    follow();
    emit changed();
}

void VpnTunnel::drop(SystemSet::VPNServer server)
{
    if (std::size_t(server) >= m_ends.size())
        return;
    m_ends.at(std::size_t(server)).failure = VpnLink::NotConnected;
    deactivate(std::size_t(server), activeOf(std::size_t(server)));
    emit changed();
}

void VpnTunnel::follow()
{
    const bool isNowOnline = isOnline();
    if (isNowOnline && !m_wasOnline)
        m_pause.stop();
    m_wasOnline = isNowOnline;
    listen();
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const auto place = std::size_t(snapshot->vpn.server);
    if (!snapshot->vpn.isOn || !m_mirror->isComplete() || !m_book->isComplete())
        return;
    tellMissing(place);
    const bool isUnderWay = m_begun.has_value() || !activeOf(place).isEmpty();
    if (isUnderWay || m_pause.isActive() || !isNowOnline || profile(place).isEmpty())
        return;
    begin(place);
}

VpnLinks VpnTunnel::links() const
{
    return {link(SystemSet::ASIA), link(SystemSet::EUROPE)};
}

QString VpnTunnel::active() const
{
    return activeOf(std::size_t(m_state->read()->vpn.server));
}

VpnLink VpnTunnel::link(std::size_t place) const
{
    const End &end = m_ends.at(place);
    const QString active = activeOf(place);
    if (active.isEmpty())
        return m_begun == place ? VpnLink::Connecting : end.failure;
    if (!m_mirror->has(active, Nm::vpn())) {
        const uint state = m_mirror->property(active, Nm::active(), QStringLiteral("State")).toUInt();
        if (state == Nm::ActiveActivated && end.hasHeard)
            return VpnLink::Connected;
        return state <= Nm::ActiveActivated ? VpnLink::Connecting : VpnLink::NotConnected;
    }
    const uint state = m_mirror->property(active, Nm::vpn(), QStringLiteral("VpnState")).toUInt();
    if (state == Nm::VpnActivated)
        return VpnLink::Connected;
    return state < Nm::VpnActivated ? VpnLink::Connecting : end.failure;
}

QString VpnTunnel::profile(std::size_t place) const
{
    const QString &id = m_ends.at(place).id;
    const Profile *found =
        id.isEmpty() ? nullptr : m_book->byId(id, {QStringLiteral("vpn"), QStringLiteral("wireguard")});
    return found == nullptr ? QString() : found->path;
}

QString VpnTunnel::activeOf(std::size_t place) const
{
    const QString wanted = profile(place);
    if (wanted.isEmpty())
        return {};
    const QStringList actives = m_mirror->pathsWith(Nm::active());
    for (const QString &active : actives) {
        const QVariant connection = m_mirror->property(active, Nm::active(), QStringLiteral("Connection"));
        if (connection.value<QDBusObjectPath>().path() == wanted)
            return active;
    }
    return {};
}

QString VpnTunnel::interfaceOf(const QString &active) const
{
    const auto devices = qdbus_cast<QList<QDBusObjectPath>>(
        m_mirror->property(active, Nm::active(), QStringLiteral("Devices")));
    if (devices.isEmpty())
        return {};
    return m_mirror->property(devices.constFirst().path(), Nm::device(), QStringLiteral("Interface"))
        .toString();
}

bool VpnTunnel::isOnline() const
{
    const QVariant primary =
        m_mirror->property(Nm::path(), Nm::service(), QStringLiteral("PrimaryConnection"));
    const QString path = primary.value<QDBusObjectPath>().path();
    return !path.isEmpty() && path != QLatin1String("/");
}

void VpnTunnel::begin(std::size_t place)
{
    m_begun = place;
    m_ends.at(place).wasUp = false;
    m_pause.start();
    QDBusMessage question = Nm::call(Nm::path(), Nm::service(), "ActivateConnection");
    const QDBusObjectPath any(QStringLiteral("/"));
    question << QDBusObjectPath(profile(place)) << any << any;
    ask(m_bus, question, m_requests.get(), [this, place](const QDBusMessage &answer) {
        m_begun.reset();
        if (isError(answer)) {
            qCWarning(vpnLog, "the tunnel to %s does not begin: %s", nameOf(place),
                      qPrintable(reasonOf(answer)));
            m_pause.start();
        } else if (!m_state->read()->vpn.wants(place)) {
            // Switched off before the daemon had told under which path.
            deactivate(place, qdbus_cast<QDBusObjectPath>(answer.arguments().value(0)).path());
            follow();
        }
        emit changed();
    });
    emit changed();
}

void VpnTunnel::deactivate(std::size_t place, const QString &active)
{
    if (active.isEmpty())
        return;
    m_ends.at(place).dropped = active;
    QDBusMessage question = Nm::call(Nm::path(), Nm::service(), "DeactivateConnection");
    question << QDBusObjectPath(active);
    ask(m_bus, question, m_requests.get(), [this, active](const QDBusMessage &answer) {
        if (isError(answer) && m_mirror->has(active, Nm::active()))
            qCWarning(vpnLog, "the tunnel stays: %s", qPrintable(reasonOf(answer)));
    });
}

void VpnTunnel::stateChanged(const QDBusMessage &signal)
{
    const QVariantList arguments = signal.arguments();
    const uint state = arguments.value(0).toUInt();
    for (std::size_t place = 0; place < m_ends.size(); ++place) {
        if (activeOf(place) != signal.path())
            continue;
        End &end = m_ends.at(place);
        if (state == Nm::VpnActivated) {
            end.wasUp = true;
            end.failure = VpnLink::NotConnected;
        } else if (end.dropped != signal.path() && (state == Nm::VpnFailed || state == Nm::VpnDisconnected)) {
            ended(place, arguments.value(1).toUInt());
        }
    }
    emit changed();
}

void VpnTunnel::ended(std::size_t place, uint reason)
{
    if (!m_state->read()->vpn.wants(place))
        return;
    qCInfo(vpnLog, "the tunnel to %s has ended, reason %u", nameOf(place), reason);
    if (reason == Nm::VpnNetworkGone)
        return; // goes on as soon as there is one
    End &end = m_ends.at(place);
    const VpnLink failure = failureOf(reason);
    // One that was up has agreed with its server.
    if (!end.wasUp || failure == VpnLink::NotAuthorised)
        end.failure = failure;
    const bool mayLack = failure == VpnLink::TlsError || reason == Nm::VpnServiceNotStarted;
    if (!end.wasUp && mayLack && lacksCertificate(place))
        end.failure = VpnLink::CertificateError;
    m_pause.start();
}

bool VpnTunnel::lacksCertificate(std::size_t place) const
{
    const Profile *stored = m_book->byPath(profile(place));
    if (stored == nullptr)
        return false;
    return std::any_of(
        stored->certificates.cbegin(), stored->certificates.cend(), [this](const QString &file) {
            // One that only the daemon may see is there.
            struct stat found = {};
            return ::stat(QFile::encodeName(m_root.path(file)).constData(), &found) != 0 && errno == ENOENT;
        });
}

void VpnTunnel::tellMissing(std::size_t place)
{
    End &end = m_ends.at(place);
    const bool isMissing = profile(place).isEmpty();
    if (isMissing && !end.isMissing)
        qCWarning(vpnLog, "there is no tunnel to %s: no connection is stored as \"%s\"", nameOf(place),
                  qPrintable(end.id));
    end.isMissing = isMissing;
}

void VpnTunnel::listen()
{
    bool isListening = false;
    for (std::size_t place = 0; place < m_ends.size(); ++place) {
        const QString active = activeOf(place);
        End &end = m_ends.at(place);
        if (active.isEmpty() || m_mirror->has(active, Nm::vpn())) {
            end.hasHeard = false;
            continue;
        }
        if (end.hasHeard)
            continue;
        const QString counter =
            QStringLiteral("/sys/class/net/%1/statistics/rx_bytes").arg(interfaceOf(active));
        end.hasHeard = m_root.read(counter).value_or(QByteArray()).trimmed().toULongLong() > 0;
        if (end.hasHeard)
            emit changed();
        else
            isListening = true;
    }
    if (!isListening)
        m_listen.stop();
    else if (!m_listen.isActive())
        m_listen.start();
}

} // namespace HmiLinux
