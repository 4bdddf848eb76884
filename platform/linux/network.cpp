#include "linux/network.h"

#include "linux/config.h"
#include "linux/mobileradio.h"
#include "linux/modemprofile.h"
#include "linux/networkreading.h"
#include "linux/nmnames.h"
#include "linux/vpntunnel.h"
#include "linux/wifi.h"

#include <algorithm>

namespace HmiLinux {

namespace {

// One change of an adapter comes as a dozen signals.
constexpr int g_quietTime = 20;
// Signals that never end must not keep the screen from what they say.
constexpr int g_longestSilence = 200;

/// What a new profile of an adapter begins with; empty for one that has no profile of the panel's making here.
Sections blankProfile(HMI::SystemSet::NIC nic, const Config &config, const QString &interface)
{
    switch (nic) {
    case HMI::SystemSet::LAN0:
    case HMI::SystemSet::LAN1:
        return newWiredSettings(nameOf(nic), interface);
    case HMI::SystemSet::MOBILE_4G:
        return newModemSettings(nameOf(nic), config.apn);
    case HMI::SystemSet::WIFI: // a network's is made by joining it
    case HMI::SystemSet::VPN:
        break;
    }
    return {};
}

} // namespace

Network::Network(const Root &root, const Config &config, const Interfaces &interfaces,
                 Published<Snapshot> *state, QObject *parent)
    : QObject(parent)
    , m_interfaces(interfaces)
    , m_state(state)
    , m_mirror(Nm::service(), Nm::objects(), this)
    , m_book(&m_mirror, this)
    , m_quiet(this)
    , m_isReadOnly(root.isReadOnly())
{
    registerBusTypes();
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(g_quietTime);
    connect(&m_quiet, &QTimer::timeout, this, &Network::publish);
    connect(&m_mirror, &ObjectMirror::changed, this, &Network::mirrorChanged);
    connect(&m_book, &ProfileBook::changed, this, &Network::note);
    const QString &modem = interfaces.at(*placeOf(HMI::SystemSet::MOBILE_4G));
    if (!modem.isEmpty()) {
        m_modem = std::make_unique<Modem>(modem, this);
        connect(m_modem.get(), &Modem::changed, this, &Network::noteBesides);
    }
    for (std::size_t place = 0; place < Adapters.size(); ++place) {
        const HMI::SystemSet::NIC nic = Adapters.at(place);
        if (interfaces.at(place).isEmpty() || nic == HMI::SystemSet::VPN)
            continue;
        auto *writer =
            new AdapterWriter(place, blankProfile(nic, config, interfaces.at(place)), m_state, &m_book, this);
        if (nic == HMI::SystemSet::MOBILE_4G) {
            auto *radio = new MobileRadio(m_state, &m_mirror, this);
            // Before the wish is forgotten.
            connect(writer, &AdapterWriter::settled, radio, &MobileRadio::wishStored);
            m_pieces.push_back(radio);
        }
        connect(writer, &AdapterWriter::settled, this, [this, place](quint64 number) {
            m_settled.at(place) = number;
            publish();
        });
        m_writers.at(place) = writer;
        m_pieces.push_back(writer);
    }
    const QString &wireless = interfaces.at(*placeOf(HMI::SystemSet::WIFI));
    if (!wireless.isEmpty()) {
        m_wifi = new Wifi(wireless, m_state, &m_mirror, &m_book, this);
        m_pieces.push_back(m_wifi);
    }
    if (!interfaces.at(*placeOf(HMI::SystemSet::VPN)).isEmpty()) {
        m_vpn = new VpnTunnel(root, config, m_state, &m_mirror, &m_book, this);
        connect(m_vpn, &VpnTunnel::changed, this, &Network::noteBesides);
        m_pieces.push_back(m_vpn);
    }
}

void Network::attach(const QDBusConnection &bus)
{
    QDBusConnection connection = bus;
    connection.connect(Nm::service(), QString(), Nm::device(), QStringLiteral("StateChanged"), this,
                       SLOT(deviceStateChanged(QDBusMessage)));
    m_book.attach(bus);
    for (NetworkPiece *piece : m_pieces)
        piece->attach(bus);
    m_mirror.attach(bus);
    if (m_modem)
        m_modem->attach(bus);
}

void Network::detach()
{
    m_mirror.detach();
    m_book.detach();
    if (m_modem)
        m_modem->detach();
    for (NetworkPiece *piece : m_pieces)
        piece->attach(QDBusConnection(QString()));
    note();
}

void Network::finish()
{
    for (AdapterWriter *writer : m_writers) {
        if (writer != nullptr)
            writer->finish();
    }
}

bool Network::isWriting() const
{
    return std::any_of(m_writers.begin(), m_writers.end(),
                       [](const AdapterWriter *writer) { return writer != nullptr && writer->isWriting(); });
}

void Network::deviceStateChanged(const QDBusMessage &signal)
{
    const QVariantList arguments = signal.arguments();
    for (NetworkPiece *piece : m_pieces)
        piece->deviceChanged(signal.path(), arguments.value(0).toUInt(), arguments.value(2).toUInt());
}

void Network::mirrorChanged()
{
    m_book.follow();
    if (m_wasComplete && !m_mirror.isComplete()) {
        // What it said does not hold any more: not even for the quiet time.
        publish();
        for (NetworkPiece *piece : m_pieces)
            piece->interrupt();
    }
    m_wasComplete = m_mirror.isComplete();
    if (m_wifi != nullptr)
        m_wifi->mirrorChanged();
    note();
}

void Network::note()
{
    if (!m_unpublished.isValid())
        m_unpublished.start();
    if (!m_quiet.isActive() || m_unpublished.elapsed() < g_longestSilence - g_quietTime)
        m_quiet.start();
}

void Network::noteBesides()
{
    // Before the daemon's first answer nothing is known of the adapters: not that they are not there.
    if (m_state->read()->round > 0)
        note();
}

void Network::publish()
{
    if (!m_book.isComplete())
        return; // its last answer comes here again
    m_quiet.stop();
    m_unpublished.invalidate();
    const NetworkReading reading(m_mirror, m_book);
    std::array<AdapterState, Adapters.size()> adapters;
    for (std::size_t place = 0; place < adapters.size(); ++place)
        adapters.at(place) = reading.adapter(Adapters.at(place), daemonName(place));
    VpnLinks links = {};
    if (m_vpn != nullptr) {
        m_vpn->follow();
        adapters.at(*placeOf(HMI::SystemSet::VPN)) = reading.tunnel(m_vpn->active());
        links = m_vpn->links();
    }
    const ModemState modem = m_modem ? m_modem->state() : ModemState();
    m_state->change([this, &adapters, modem, links](Snapshot &snapshot) {
        snapshot.adapters = adapters;
        snapshot.modem = modem;
        snapshot.vpnLinks = links;
        ++snapshot.round;
        for (std::size_t place = 0; place < adapters.size(); ++place) {
            // A wish that came after is still to be done.
            if (snapshot.wishes.at(place).number <= m_settled.at(place))
                snapshot.wishes.at(place) = {};
        }
    });
    for (NetworkPiece *piece : m_pieces)
        piece->published();
    if (!m_isReadOnly)
        holdOff();
    emit published();
}

void Network::holdOff()
{
    for (AdapterWriter *writer : m_writers) {
        if (writer != nullptr)
            writer->holdOff();
    }
}

QString Network::daemonName(std::size_t place) const
{
    // A modem is called by the port over which it is commanded, not by the one of its network.
    const bool isModem = m_modem && Adapters.at(place) == HMI::SystemSet::MOBILE_4G;
    const QString port = isModem ? m_modem->port() : QString();
    return port.isEmpty() ? m_interfaces.at(place) : port;
}

} // namespace HmiLinux
