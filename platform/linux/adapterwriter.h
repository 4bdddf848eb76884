#pragma once

#include "linux/activation.h"
#include "linux/addressdraft.h"
#include "linux/networkpiece.h"
#include "linux/published.h"

#include <QtDBus/QDBusMessage>

#include <functional>
#include <vector>

namespace HmiLinux {

class ProfileBook;

/// Hands the operator's wishes for one adapter to the daemon: one update of the panel's own profile, and one act that
/// puts it in force. Profiles that others made stay as they are.
///
/// The wireless adapter is switched by its radio, and never joins a network that it has not joined: its profile is the
/// one of the network, which is made by joining it.
class AdapterWriter : public QObject, public NetworkPiece
{
    Q_OBJECT

public:
    using OnDhcp = std::function<void(HMI::SystemSet::DHCP_STATE)>;
    using State = Published<Snapshot>;

    /// @p blank is what a profile of the panel's own for it begins with.
    AdapterWriter(std::size_t place, Sections blank, const State *state, ProfileBook *book,
                  QObject *parent = nullptr);

    void attach(const QDBusConnection &bus) override;
    void interrupt() override;

    /// Addresses and servers come one by one; they are written together.
    void gather();
    void write();
    /// Writes, puts the profile in force anew and reports. Reports of earlier requests come with this one's.
    void writeDhcp(const OnDhcp &done);
    /// Writes and puts the profile in force, or the adapter off.
    void writeEnabled();

    /// Writes at once what is gathered.
    void finish();
    /// An adapter that was switched off stays off, whatever the daemon finds that fits it: its own memory of that ends
    /// with it, and with the device. Once a device; what somebody does later is somebody's choice.
    void holdOff();
    /// Whether anything that was asked for is not stored yet.
    bool isWriting() const { return m_gather.isActive() || m_writing || m_again; }

    void deviceChanged(const QString &device, uint state, uint reason) override;
    void published() override;

signals:
    /// The wishes up to @p number are done or refused: the next snapshot is without them.
    void settled(quint64 number);

private:
    void writeGathered();
    void switchRadio();
    void proceed();
    ProfileValues wanted(const AdapterState &now, const Wish &wish);
    void store();
    void update();
    void add();
    /// Lets the networks that are not joined take the default route over, or hand it back, with the one that is.
    void spreadDefault();
    void stored(const QString &path);
    void apply(const QString &path);
    void putInForce(const QString &path);
    void reapply(const QString &path);
    bool isInForce() const;
    void activate(const QString &path, const QString &why);
    void switchOff(const AdapterState &now);
    void setAutoconnect(const QString &device, bool on);
    void settle();
    void fail(const QString &why);
    /// Ends the write, unless the daemon may yet do as asked: then it is written again.
    void refused(const QDBusMessage &error);
    void activated(const QString &why);
    void takeAsked();
    void answer(bool succeeded);
    bool isWireless() const { return Adapters.at(m_place) == HMI::SystemSet::WIFI; }
    QString name() const { return nameOf(Adapters.at(m_place)); }

    std::size_t m_place;
    Sections m_blank;
    const State *m_state;
    ProfileBook *m_book;
    QDBusConnection m_bus;
    QTimer m_gather;
    QTimer m_grace; ///< for the addresses to be told of an adapter that is up
    QTimer m_check; ///< for what was reapplied to be in force
    AddressDraft m_draft;
    Activation m_activation;
    std::unique_ptr<QObject> m_requests; ///< answers die with it
    std::vector<OnDhcp> m_done;          ///< told when the activation ends
    int m_endRound = 0;                  ///< of the snapshot when it did
    QString m_heldDevice;                ///< the one that holdOff() has looked at
    // For the next write.
    quint64 m_gathered = 0; ///< the newest wish when gather() was last called
    std::vector<OnDhcp> m_asked;
    bool m_activateAsked = false;
    bool m_again = false;
    // Of the write under way.
    bool m_writing = false;
    bool m_settling = false; ///< it is done, and the next snapshot will tell
    bool m_activate = false;
    bool m_persist = true;
    bool m_isLate = false; ///< the last request was not answered, and may be granted yet
    quint64 m_number = 0;
    AdapterState m_now;
    ProfileValues m_wanted;
};

} // namespace HmiLinux
