#pragma once

#include "linux/networkpiece.h"
#include "linux/published.h"
#include "linux/wifijoin.h"
#include "linux/wifiscan.h"

#include <vector>

namespace HmiLinux {

/// What an operator does with the networks of the wireless adapter: looks for them, joins one, forgets them all.
class Wifi : public QObject, public NetworkPiece
{
    Q_OBJECT

public:
    using State = Published<Snapshot>;
    using OnList = HMI::SystemSet::WifiListCallback;
    using OnJoin = std::function<void(HMI::SystemSet::StateWifi)>;

    Wifi(QString interface, const State *state, const ObjectMirror *mirror, const ProfileBook *book,
         QObject *parent = nullptr);

    void attach(const QDBusConnection &bus) override;
    void interrupt() override;

    void scan(const OnList &done);
    void reset(const OnList &done);
    void join(const HMI::SSID &ssid, const SharedSecret &password, const OnJoin &done);

    void mirrorChanged();
    void deviceChanged(const QString &device, uint state, uint reason) override;
    void published() override;

private:
    /// Does @p work as soon as it is known what there is.
    void whenKnown(std::function<void()> work);
    void startScan();
    void deliver(bool heard);
    void deliverNothing();
    void startJoin(const QByteArray &name, const SharedSecret &password);
    WifiTarget targetOf(const QByteArray &name, const SharedSecret &password) const;
    void endJoin(HMI::SystemSet::StateWifi state);
    void lookForJoined();
    void report(HMI::SystemSet::StateWifi state);
    bool isOn() const;
    AdapterState adapter() const;
    WifiReading reading() const { return {*m_mirror, *m_book}; }

    QString m_interface;
    const State *m_state;
    const ObjectMirror *m_mirror;
    const ProfileBook *m_book;
    QDBusConnection m_bus;
    std::vector<std::function<void()>> m_untilKnown;
    WifiScan m_scan;
    QTimer m_ready;                  ///< for a device that was switched on just now
    std::vector<OnList> m_listeners; ///< of the scan
    std::unique_ptr<WifiJoin> m_join;
    QTimer m_grace; ///< for the snapshot to say what was joined
    QByteArray m_joined;
    OnJoin m_onJoin;
};

} // namespace HmiLinux
