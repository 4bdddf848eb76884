#include "cards/network/networkrows.h"

#include "cards/network/addressrules.h"
#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/mobilemonitor.h"
#include "cards/network/networkactions.h"
#include "cards/network/vpnmonitor.h"
#include "cards/network/wifimonitor.h"
#include "cards/network/wifitile.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "controls/cmacinput.h"
#include "controls/combobox.h"
#include "shell/approotitem.h"
#include "shell/rootof.h"

namespace QSP {

namespace {

constexpr int mobileConnected = 2;

// Which adapter's rows are shown for a value: an unknown small one is taken for a modem, a large one for a tunnel.
NIC rowsKey(NIC nic)
{
    if (hasAddresses(nic))
        return nic;
    return nic > HMI::SystemSet::MOBILE_4G ? HMI::SystemSet::VPN : HMI::SystemSet::MOBILE_4G;
}

} // namespace

NetworkRows::NetworkRows(CardNetwork *card) : m_card(card) {}

void NetworkRows::show(NIC nic, bool visible)
{
    const NIC key = rowsKey(nic);
    const auto rows = m_rows.constFind(key);
    if (rows == m_rows.constEnd())
        return build(key);
    for (QQuickItem *row : rows->items)
        row->setVisible(visible);
    if (visible)
        m_card->rules().reread(key);
}

void NetworkRows::build(NIC nic)
{
    m_rows.insert(nic, {});
    if (nic == HMI::SystemSet::VPN)
        buildVpn();
    else if (nic == HMI::SystemSet::MOBILE_4G)
        buildMobile();
    else
        buildAddressed(nic);
    if (const AppRootItem *root = rootOf(m_card))
        connect(root, &AppRootItem::opened, this, [this, nic] { reread(nic); });
}

QQuickItem *NetworkRows::append(NIC nic, QQuickItem *row)
{
    m_rows[nic].items.append(row);
    return row;
}

void NetworkRows::buildAddressed(NIC nic)
{
    addEnableSwitch(nic, "Disable Network");
    if (nic == HMI::SystemSet::WIFI)
        addWifiTile();
    addStaticSwitch(nic);
    for (const AddressKind *kind : g_addressKinds)
        addAddress(*kind, nic);
    m_card->rules().reread(nic);
    addMac(nic);

    connect(m_card, &CardNetwork::netDisabledChanged, this, [this, nic] {
        m_rows.value(nic).fixed->onChangeEnabled(m_card->isEnable_FromSwitch(nic));
        m_card->rules().updateEnable(nic);
    });
    connect(m_card, &CardNetwork::useStaticIpChanged, this,
            [this, nic] { m_card->rules().updateEnable(nic); });
    if (nic != HMI::SystemSet::WIFI)
        return;
    connect(m_card, &CardNetwork::wifiReset, this, [this, nic] {
        const AdapterRows rows = m_rows.value(nic);
        rows.fixed->setOn(false);
        for (const AddressKind *kind : g_addressKinds) {
            if (CIpInput *field = rows.*kind->field)
                field->clear();
        }
    });
}

BeepSwitch *NetworkRows::addEnableSwitch(NIC nic, const char *label)
{
    BeepSwitch *enable = make().toggle(append(nic, make().labelledRow(label)));
    m_rows[nic].enable = enable;
    const bool enabled = systemSet().isNicEnabled(nic);
    enable->setOn(enabled != hasAddresses(nic));
    connect(enable, &BeepSwitch::onChanged, this, [this, nic, enabled](bool on) {
        m_card->enableNIC(nic, on);
        emit m_card->netDisabledChanged();
        // Its lease ends with it.
        if (!m_card->isEnable_FromSwitch(nic))
            m_card->rules().reread(nic);
        if (enabled)
            CardLinks::reloadDns(m_card);
    });
    return enable;
}

void NetworkRows::addStaticSwitch(NIC nic)
{
    BeepSwitch *fixed = make().toggle(append(nic, make().labelledRow("Static IP")));
    m_rows[nic].fixed = fixed;
    const bool dhcp = systemSet().isDhcpOn(nic);
    fixed->setOn(!dhcp);
    fixed->onChangeEnabled(m_card->isEnable_FromSwitch(nic));
    connect(fixed, &BeepSwitch::onChanged, this, [this, nic](bool on) {
        m_card->enableStatic(nic, on);
        // The fields can be edited from now on, whenever the service reports.
        if (on)
            m_card->rules().offerStored(nic);
        emit m_card->useStaticIpChanged(nic);
    });
    if (dhcp)
        m_card->enableStatic(nic, false);
}

void NetworkRows::addAddress(const AddressKind &kind, NIC nic)
{
    CIpInput *field = make().address(append(nic, make().labelledRow(kind.label, RowFactory::addressRow)));
    if (!field)
        return;
    m_rows[nic].*kind.field = field;
    field->setIp(dotted((systemSet().*kind.stored)(nic)));
    m_card->rules().updateEnable(kind, nic);
    connect(field, &CIpInput::ipChangedByEdit, this,
            [this, &kind, nic](unsigned int address) { m_card->actions().writeAddress(kind, nic, address); });
}

void NetworkRows::addMac(NIC nic)
{
    CMacInput *field = make().mac(append(nic, make().labelledRow("MAC", RowFactory::addressRow)));
    if (!field)
        return;
    field->setMac(systemSet().getMac(nic));
    field->setEnabled(false);
}

void NetworkRows::addWifiTile()
{
    WifiTile *tile = make().wifiTile();
    append(HMI::SystemSet::WIFI, tile);
    tile->setWifiEnabled(systemSet().isNicEnabled(HMI::SystemSet::WIFI));
    connect(m_card, &CardNetwork::wifiEnableChanged, tile, &WifiTile::setWifiEnabled);
    connect(tile, &QQuickAbstractButton::clicked, m_card, &CardNetwork::switchToWifiCard);
    m_card->wifi().setTile(tile);
}

void NetworkRows::buildMobile()
{
    constexpr NIC nic = HMI::SystemSet::MOBILE_4G;
    addEnableSwitch(nic, "4G");
    m_card->mobile().setSignalImage(
        make().image(append(nic, make().labelledRow("Signal", RowFactory::statusRow))));
    m_card->update4GSignal();
    StatusText &state = m_card->mobile().stateText();
    state.setItem(make().text(append(nic, make().labelledRow("Connection Status", RowFactory::statusRow))));
    state.show(systemSet().get4GState(nic) == mobileConnected ? "Connected" : "Disconnected");
}

void NetworkRows::buildVpn()
{
    constexpr NIC nic = HMI::SystemSet::VPN;
    addEnableSwitch(nic, "VPN");
    VpnMonitor &vpn = m_card->vpn();
    vpn.setServerBox(make().comboBox(append(nic, make().labelledRow("Server", RowFactory::statusRow))));
    vpn.setServerEnabled(!systemSet().isNicEnabled(nic));
    connect(&vpn, &VpnMonitor::serverChosen, this, [this](int server) {
        m_card->actions().chooseVpnServer(static_cast<HMI::SystemSet::VPNServer>(server));
    });
    StatusText &state = vpn.stateText();
    state.setItem(make().text(append(nic, make().labelledRow("Connection Status", RowFactory::statusRow))));
    const bool idle = systemSet().getVPNServerState(systemSet().getVPNServer()) == 0;
    state.show(idle ? "Disconnected" : "Connected");
}

void NetworkRows::reread(NIC nic)
{
    m_card->updateSwitchDisplay_EnableDisable(nic);
    if (nic == HMI::SystemSet::VPN)
        m_card->vpn().showServer();
    if (!hasAddresses(nic))
        return;
    rereadStatic(nic);
    m_card->rules().reread(nic);
}

void NetworkRows::rereadStatic(NIC nic)
{
    m_card->updateSwitchDisplay_static(nic);
    if (systemSet().isDhcpOn(nic))
        m_card->enableStatic(nic, false);
}

} // namespace QSP
