#include "panel/joinattempt.h"

#include "panel/nic.h"
#include "panel/secrets.h"
#include "panel/ssid.h"
#include "panel/wifilink.h"
#include "shell/base/guithread.h"
#include "shell/base/logging.h"

#include <array>

namespace QSP {

namespace {

using HMI::SystemSet;
using State = JoinAttempt::State;
using Report = JoinAttempt::Report;

constexpr int stateCount = static_cast<int>(State::Overdue) + 1;
constexpr int reportCount = static_cast<int>(Report::NewAttempt) + 1;

constexpr State idle = State::Idle;
constexpr State askd = State::Asked;
constexpr State conn = State::Connecting;
constexpr State name = State::AwaitingName;
constexpr State leas = State::AwaitingLease;
constexpr State join = State::Joined;
constexpr State offl = State::Offline;
constexpr State tout = State::TimedOut;
constexpr State wrng = State::WrongPassword;
constexpr State over = State::Overdue;
// Where a report repeats itself, comes too late or is not for the state.
constexpr State stay = static_cast<State>(-1);

// Of two final reports the later one holds, so that the operator does not wait in front of the wrong one.
// clang-format off
constexpr std::array<std::array<State, reportCount>, stateCount> table = {{
    //          the service says                     the link says
    //          offline     connected   refused      name         lease       reset
    //                connecting  timed out   unknown      address      limit       new attempt
    /* idle */ {stay, stay, stay, stay, stay, stay,  stay, stay,  stay, stay, stay, askd},
    /* askd */ {offl, conn, name, tout, wrng, stay,  stay, stay,  stay, over, idle, askd},
    /* conn */ {offl, stay, name, tout, wrng, stay,  stay, stay,  stay, over, idle, askd},
    /* name */ {offl, stay, stay, tout, wrng, stay,  leas, join,  stay, join, idle, askd},
    /* leas */ {offl, stay, stay, tout, wrng, stay,  stay, stay,  join, join, idle, askd},
    /* join */ {offl, stay, stay, tout, wrng, stay,  stay, stay,  stay, stay, idle, askd},
    /* offl */ {stay, stay, name, tout, wrng, stay,  stay, stay,  stay, stay, idle, askd},
    /* tout */ {offl, stay, name, stay, wrng, stay,  stay, stay,  stay, stay, idle, askd},
    /* wrng */ {offl, stay, name, tout, stay, stay,  stay, stay,  stay, stay, idle, askd},
    /* over */ {stay, stay, stay, stay, stay, stay,  stay, stay,  stay, stay, idle, askd},
}};
// clang-format on

Report reportOf(SystemSet::StateWifi value)
{
    switch (value) {
    case SystemSet::WIFI_OFFLINE:
        return Report::Offline;
    case SystemSet::WIFI_CONNECTING:
        return Report::Connecting;
    case SystemSet::WIFI_CONNECTED:
        return Report::Connected;
    case SystemSet::WIFI_TIMEOUT:
        return Report::TimedOut;
    case SystemSet::WIFI_WRONG_PASSWORD:
        return Report::WrongPassword;
    }
    return Report::Unknown;
}

bool isAwaiting(State state)
{
    return state == askd || state == conn || state == name || state == leas;
}

// Whether the report says that something has become of the link; one that comes from reading it does not.
bool tellsOfLink(Report report)
{
    return report != Report::Connecting && report != Report::NameKnown && report != Report::AddressKnown;
}

} // namespace

JoinAttempt::JoinAttempt(WifiLink &link)
    : QObject(&link)
    , m_link(link)
    , m_limit(ServiceLimits::join, "joinLimit", this)
    , m_hasAddress([] { return callService<&SystemSet::getIp>(SystemSet::WIFI) != 0; })
{
    connect(&m_limit, &QTimer::timeout, this, [this] { take(Report::LimitReached); });
    connect(&m_link, &WifiLink::wasRead, this, &JoinAttempt::onLinkRead);
}

JoinAttempt::~JoinAttempt() = default;

State JoinAttempt::after(State state, Report report)
{
    const State next = table[static_cast<size_t>(state)][static_cast<size_t>(report)];
    return next == stay ? state : next;
}

void JoinAttempt::begin(const HMI::SSID &ssid, const QString &password)
{
    m_ssid = terminatedSsid(ssid);
    m_digest = m_refusals.digestOf(m_ssid, password);
    qCDebug(logWifi, "joining \"%s\"", qUtf8Printable(displayName(getSsidFromScan(m_ssid))));
    m_receiver = std::make_unique<QObject>();
    m_limit.start();
    const bool wasUnderWay = isUnderWay();
    enter(after(m_state, Report::NewAttempt));
    if (!wasUnderWay)
        emit underWayChanged(true);
    start(password);
}

void JoinAttempt::start(const QString &password)
{
    QByteArray utf8 = password.toUtf8();
    std::string bytes = utf8.toStdString();
    overwrite(utf8);
    callService<&SystemSet::connectWifi>(
        m_ssid, bytes,
        onGuiThread("connectWifi", m_receiver.get(),
                    [this](QObject *, SystemSet::StateWifi value) { take(reportOf(value)); }));
    overwrite(bytes);
}

void JoinAttempt::reset()
{
    m_refusals.clear();
    take(Report::Reset);
}

void JoinAttempt::take(Report report)
{
    const State next = after(m_state, report);
    qCDebug(logWifi, "attempt: %s in %s leads to %s", nameOf(report), nameOf(m_state), nameOf(next));
    if (next == m_state)
        return;
    const bool wasUnderWay = isUnderWay();
    const bool wasLeaseAwaited = m_state == State::AwaitingLease;
    enter(next);
    if (tellsOfLink(report))
        m_link.read();
    // Unless another was begun meanwhile.
    if (next == State::Joined && m_state == next)
        emit joined(wasLeaseAwaited);
    if (wasUnderWay && !isUnderWay())
        emit underWayChanged(false);
}

void JoinAttempt::enter(State state)
{
    m_state = state;
    if (!isAwaiting(state))
        m_limit.stop();
    else if (!m_limit.isActive())
        m_limit.start();
    switch (state) {
    case State::WrongPassword:
        m_refusals.add(m_digest);
        break;
    case State::AwaitingName:
        m_refusals.remove(m_digest);
        break;
    case State::AwaitingLease:
        askForLease();
        break;
    default:
        break;
    }
    emit stateChanged(state);
}

// The service may know that it has joined before it knows the name; each reading tries again.
void JoinAttempt::onLinkRead()
{
    if (m_state == State::AwaitingName && !isEmptySsid(m_link.ssid()))
        take(needsLease() ? Report::NameKnown : Report::AddressKnown);
}

bool JoinAttempt::needsLease() const
{
    return m_isNearby && m_isNearby(m_link.ssid()) && !m_hasAddress();
}

void JoinAttempt::askForLease()
{
    callService<&SystemSet::setDHCP>(
        SystemSet::WIFI, true,
        onGuiThread("setDHCP", m_receiver.get(),
                    [this](QObject *, SystemSet::DHCP_STATE) { take(Report::Lease); }),
        true);
}

} // namespace QSP
