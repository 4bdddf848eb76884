#pragma once

#include "cards/network/addresskind.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

class QTimer;

namespace QSP {

class CardNetwork;

/// What the operator's changes do to the panel. Everything is written at once and stored.
///
/// The order of the calls into the service is fixed: platforms rely on it.
class NetworkActions : public QObject
{
    Q_OBJECT

public:
    explicit NetworkActions(CardNetwork *card);

    /// As CardNetwork::enableNIC().
    void enableNic(NIC nic, bool on);
    /// As CardNetwork::enableStatic().
    void enableStatic(NIC nic, bool on);
    /// A DHCP request was answered; GUI thread.
    void onDhcp(NIC nic, HMI::SystemSet::DHCP_STATE state);
    void writeAddress(const AddressKind &kind, NIC nic, HMI::IP address);
    void chooseVpnServer(HMI::SystemSet::VPNServer server);

private:
    void enableWired(NIC nic, bool disable);
    void enableWifi(bool disable);
    void enableMobile(bool enable);
    void enableVpn(bool enable);
    void setDhcp(NIC nic, bool on);
    void requestLeaseSoon(NIC nic);
    void forgetLeaseRequest(NIC nic);

    CardNetwork *m_card;
    QHash<int, QTimer *> m_leaseTimers;
};

} // namespace QSP
