#include "linux/vpntunnel.h"

#include "linux/ask.h"
#include "linux/config.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/profile.h"
#include "linux/vpnnames.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>

#include <utility>

namespace HmiLinux {

using HMI::SystemSet;

namespace {

const char *nameOf(std::size_t place)
{
    return place == SystemSet::EUROPE ? "Europe" : "Asia";
}

} // namespace

VpnTunnel::VpnTunnel(Root root, const Config &config, const Published<Snapshot> *state,
                     const ObjectMirror *mirror, const ProfileBook *book, QObject *parent)
    : QObject(parent)
    , m_root(std::move(root))
    , m_state(state)
    , m_reading(mirror, book)
    , m_bus(QString())
    , m_requests(std::make_unique<QObject>(this))
    , m_pause(this)
{
    m_ends.at(SystemSet::ASIA).id = config.vpnAsia;
    m_ends.at(SystemSet::EUROPE).id = config.vpnEurope;
    m_pause.setSingleShot(true);
    m_pause.setInterval(config.vpnRetry * 1000);
    connect(&m_pause, &QTimer::timeout, this, &VpnTunnel::follow);
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
    m_wasOnline = false;
    for (End &end : m_ends) {
        end.failure = VpnLink::NotConnected;
        end.told.clear();
        end.dropped.clear(); // the next daemon gives the same paths again
    }
}

void VpnTunnel::choose()
{
    m_pause.stop(); // an operator does not wait for it
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    for (std::size_t place = 0; place < m_ends.size(); ++place) {
        m_ends.at(place).failure = VpnLink::NotConnected;
        m_ends.at(place).told.clear();
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
    const bool isNowOnline = m_reading.isOnline();
    if (isNowOnline && !m_wasOnline)
        m_pause.stop();
    m_wasOnline = isNowOnline;
    look();
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const auto place = std::size_t(snapshot->vpn.server);
    if (!snapshot->vpn.isOn || !m_reading.isComplete())
        return;
    tellMissing(place);
    const bool isUnderWay = m_begun.has_value() || !activeOf(place).isEmpty();
    if (!isUnderWay && !m_pause.isActive() && isNowOnline)
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
    return m_reading.link(active, end.hasHeard, end.failure);
}

void VpnTunnel::begin(std::size_t place)
{
    const Profile *connection = m_reading.connection(m_ends.at(place).id);
    if (connection == nullptr || m_root.isReadOnly())
        return;
    m_begun = place;
    m_ends.at(place).wasUp = false;
    m_ends.at(place).dropped.clear(); // it is gone, whatever path the new one gets
    m_pause.start();
    QDBusMessage question = Nm::call(Nm::path(), Nm::service(), "ActivateConnection");
    const QDBusObjectPath any(QStringLiteral("/"));
    question << QDBusObjectPath(connection->path) << any << any;
    ask(m_bus, question, m_requests.get(), [this, place](const QDBusMessage &answer) {
        m_begun.reset();
        if (isError(answer)) {
            if (isNews(place, answer.errorName()))
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
        if (isError(answer) && m_reading.isThere(active))
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
            end.told.clear();
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
    if (isNews(place, QString::number(reason)))
        qCInfo(vpnLog, "the tunnel to %s has ended, reason %u", nameOf(place), reason);
    if (reason == Nm::VpnNetworkGone)
        return; // goes on as soon as there is one
    End &end = m_ends.at(place);
    const VpnLink failure = failureOf(reason);
    // One that was up has agreed with its server.
    if (!end.wasUp || failure == VpnLink::NotAuthorised)
        end.failure = failure;
    const bool mayLack = failure == VpnLink::TlsError || reason == Nm::VpnServiceNotStarted;
    if (!end.wasUp && mayLack && m_reading.lacksCertificate(end.id, m_root))
        end.failure = VpnLink::CertificateError;
    m_pause.start();
}

void VpnTunnel::tellMissing(std::size_t place)
{
    End &end = m_ends.at(place);
    const bool isMissing = m_reading.connection(end.id) == nullptr;
    if (isMissing && !end.isMissing)
        qCWarning(vpnLog, "there is no tunnel to %s: no connection is stored as \"%s\"", nameOf(place),
                  qPrintable(end.id));
    end.isMissing = isMissing;
}

bool VpnTunnel::isNews(std::size_t place, const QString &what)
{
    // It is tried again all the time.
    return std::exchange(m_ends.at(place).told, what) != what;
}

void VpnTunnel::look()
{
    for (std::size_t place = 0; place < m_ends.size(); ++place) {
        const QString active = activeOf(place);
        End &end = m_ends.at(place);
        if (!m_reading.isWireGuard(active)) {
            end.hasHeard = false;
            continue;
        }
        if (end.hasHeard)
            continue;
        end.hasHeard = m_reading.hasReceived(active, m_root);
        if (end.hasHeard)
            emit changed();
    }
}

} // namespace HmiLinux
