#pragma once

#include "panel/servicelimits.h"
#include "panel/wifirefusals.h"

#include <functional>
#include <memory>

namespace QSP {

class WifiLink;

/// An attempt to join a network, from the asking until the panel has joined with an address, or has not.
///
/// What the service reports may come late, twice, in another order or not at all. What each report does in
/// each state is told by one table, see after(). Only the newest attempt counts; nobody hears the reports of
/// one that was replaced. GUI thread only.
class JoinAttempt : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Idle,          ///< none was made, or a reset ended it
        Asked,         ///< the service has not said anything yet
        Connecting,    ///< the service is at it
        AwaitingName,  ///< joined, but the service does not know yet to what
        AwaitingLease, ///< joined, and an address was asked for
        Joined,        ///< with an address, or given up waiting for one
        Offline,       ///< failed: the network, or the link, is gone
        TimedOut,      ///< failed: the network did not answer
        WrongPassword, ///< failed: the network refused the password
        Overdue,       ///< failed: the service did not answer; it would be too late now
    };
    Q_ENUM(State)

    enum class Report {
        // What the service says of the attempt.
        Offline,
        Connecting,
        Connected,
        TimedOut,
        WrongPassword,
        Unknown, ///< a value of which the screen knows nothing
        // The link was read, and has a name.
        NameKnown,    ///< and an address has to be asked for
        AddressKnown, ///< and has an address, or needs none
        // The rest.
        Lease,        ///< the request for an address was answered, be it by a failure
        LimitReached, ///< an answer has been waited for long enough
        Reset,        ///< the Wi-Fi settings are reset
        NewAttempt,
    };
    Q_ENUM(Report)

    /// Tells of a network whether it is listed as one nearby.
    using IsNearby = std::function<bool(const HMI::SSID &)>;
    /// Tells whether the adapter has an address on the network that was joined.
    using HasAddress = std::function<bool()>;

    /// @p link owns the attempt and is read when the service has reported something of it.
    explicit JoinAttempt(WifiLink &link);
    ~JoinAttempt() override;

    /// The table: the state that follows; the same one where the report changes nothing.
    static State after(State state, Report report);

    State state() const { return m_state; }
    /// Whether the service is asked to join and has not said yet how it went: what the panel tells of its
    /// link meanwhile flips to and fro.
    bool isUnderWay() const { return m_state == State::Asked || m_state == State::Connecting; }
    /// The network of the newest attempt.
    const HMI::SSID &ssid() const { return m_ssid; }
    /// Which passwords were refused since the last reset.
    const WifiRefusals &refusals() const { return m_refusals; }

    /// An address is asked for only on networks of which @p isNearby is true; on none without it.
    void setNearby(IsNearby isNearby) { m_isNearby = std::move(isNearby); }
    /// Whoever knows the adapter tells whether it has an address; else the service is asked.
    void setHasAddress(HasAddress hasAddress) { m_hasAddress = std::move(hasAddress); }

    /// Starts an attempt in place of any other.
    void begin(const HMI::SSID &ssid, const QString &password);
    /// Ends it, and forgets what was refused.
    void reset();
    /// News of the attempt.
    void take(Report report);

signals:
    /// Also when a new attempt replaces one in the same state.
    void stateChanged(QSP::JoinAttempt::State state);
    /// After false the link shows how it went: it was read right before, and need not be read again for this.
    void underWayChanged(bool underWay);
    /// The panel has joined, with an address or without need of one. The link was read before, and unless a
    /// lease was awaited the address, too.
    void joined(bool wasLeaseAwaited);

private:
    void start(const QString &password);
    void enter(State state);
    void onLinkRead();
    bool needsLease() const;
    void askForLease();

    WifiLink &m_link;
    AnswerLimit m_limit;
    WifiRefusals m_refusals;
    IsNearby m_isNearby;
    HasAddress m_hasAddress;
    State m_state = State::Idle;
    HMI::SSID m_ssid{};
    WifiRefusals::Digest m_digest;
    /// The newest attempt's; what is reported to an older one, which is gone, reaches nobody.
    std::unique_ptr<QObject> m_receiver;
};

} // namespace QSP
