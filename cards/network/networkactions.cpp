#include "cards/network/networkactions.h"

#include "cards/network/addressrules.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/vpnmonitor.h"
#include "cards/network/wifimonitor.h"
#include "panel/panel.h"
#include "shell/base/guithread.h"
#include "shell/rootof.h"

#include <QtCore/QTimer>

namespace QSP {

namespace {

// An adapter that was just switched on needs this long before it can ask for a lease.
constexpr int leaseDelay = 1000;

} // namespace

NetworkActions::NetworkActions(CardNetwork *card) : m_card(card) {}

void NetworkActions::enableNic(NIC nic, bool on)
{
    switch (nic) {
    case HMI::SystemSet::LAN0:
    case HMI::SystemSet::LAN1:
        return enableWired(nic, on);
    case HMI::SystemSet::WIFI:
        return enableWifi(on);
    case HMI::SystemSet::MOBILE_4G:
        return enableMobile(on);
    case HMI::SystemSet::VPN:
        return enableVpn(on);
    }
}

void NetworkActions::enableWired(NIC nic, bool disable)
{
    systemSet().enableNIC(nic, !disable, true);
    if (!disable && !m_card->isStatic_FromSwitch(nic))
        requestLeaseSoon(nic);
    else
        forgetLeaseRequest(nic);
}

void NetworkActions::enableWifi(bool disable)
{
    emit m_card->wifiEnableChanged(!disable);
    if (!disable)
        m_card->wifi().start();
    enableWired(HMI::SystemSet::WIFI, disable);
    // Before the call above the service still told the old state.
    m_card->updateWifiStatus();
}

void NetworkActions::enableMobile(bool enable)
{
    // Only the selected adapter is watched; selecting it later starts the refreshing.
    if (!enable || m_card->currentNIC() == HMI::SystemSet::MOBILE_4G)
        m_card->setup4GTimer(enable);
    systemSet().enableNIC(HMI::SystemSet::MOBILE_4G, enable, true);
    // Before the call above the service still told the old state.
    if (enable)
        m_card->update4GSignal();
}

void NetworkActions::enableVpn(bool enable)
{
    m_card->vpn().setServerEnabled(!enable);
    if (!enable)
        systemSet().resetVPNIp(systemSet().getVPNServer());
    m_card->updateVPNStatus();
    systemSet().enableNIC(HMI::SystemSet::VPN, enable, true);
    // Before the call above the service still told the old state.
    m_card->updateVPNStatus();
}

void NetworkActions::enableStatic(NIC nic, bool on)
{
    if (!hasAddresses(nic))
        return;
    if (on)
        forgetLeaseRequest(nic);
    setDhcp(nic, !on);
}

void NetworkActions::setDhcp(NIC nic, bool on)
{
    const auto done = onGuiThread(m_card, [nic](CardNetwork *card, HMI::SystemSet::DHCP_STATE state) {
        card->onEnableDHCP(nic, state);
    });
    systemSet().setDHCP(nic, on, done, true);
}

void NetworkActions::requestLeaseSoon(NIC nic)
{
    QTimer *&timer = m_leaseTimers[nic];
    if (!timer) {
        timer = new QTimer(this);
        timer->setSingleShot(true);
        // A coarse timer may come a twentieth too early.
        timer->setTimerType(Qt::PreciseTimer);
        connect(timer, &QTimer::timeout, this, [this, nic] { setDhcp(nic, true); });
    }
    timer->start(leaseDelay);
}

void NetworkActions::forgetLeaseRequest(NIC nic)
{
    // A request that comes after the operator's later choice would undo it.
    if (QTimer *timer = m_leaseTimers.value(nic))
        timer->stop();
}

void NetworkActions::onDhcp(NIC nic, HMI::SystemSet::DHCP_STATE state)
{
    // An adapter that has a lease but no network yet shows nothing worth reading.
    if (state == HMI::SystemSet::DHCP_OK && nic == HMI::SystemSet::WIFI &&
        !panelOf(m_card).wifi().isConnected())
        return;
    m_card->updateNetInfoDisplay(nic);
}

void NetworkActions::writeAddress(const AddressKind &kind, NIC nic, HMI::IP address)
{
    (systemSet().*kind.write)(nic, address, true);
}

void NetworkActions::chooseVpnServer(HMI::SystemSet::VPNServer server)
{
    systemSet().setVPNServer(server);
    systemSet().resetVPNIp(server);
    m_card->vpn().refreshIfWatched();
}

} // namespace QSP
