#include "cards/network/networkrows.h"

#include "cards/network/statusmonitors.h"
#include "cards/network/wifitile.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "controls/cmacinput.h"
#include "controls/combobox.h"
#include "panel/panel.h"

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

// What the first switch of an adapter means: "disabled" where there are addresses, "enabled" elsewhere.
bool isEnabledBy(bool on, NIC nic)
{
    return on != hasAddresses(nic);
}

const char *labelOf(Address address)
{
    switch (address) {
    case Address::Ip:
        return QT_TRANSLATE_NOOP("CardNetwork", "IP Address");
    case Address::SubnetMask:
        return QT_TRANSLATE_NOOP("CardNetwork", "Subnet Mask");
    case Address::Gateway:
        return QT_TRANSLATE_NOOP("CardNetwork", "Default Gateway");
    }
    return "";
}

void showAddress(CIpInput *field, std::optional<HMI::IP> address)
{
    if (address)
        field->refreshIp(dotted(*address));
    else
        field->clear();
}

} // namespace

NetworkRows::NetworkRows(Panel &panel, const RowFactory &make, StatusMonitors &monitors, bool hasWifiPage)
    : m_panel(panel), m_make(make), m_monitors(monitors), m_hasWifiPage(hasWifiPage)
{}

void NetworkRows::show(NIC nic, bool visible)
{
    const NIC key = rowsKey(nic);
    const auto rows = m_rows.constFind(key);
    if (rows == m_rows.constEnd())
        return build(key);
    for (QQuickItem *row : rows->items)
        row->setVisible(visible);
    if (visible)
        m_panel.adapter(key).showAgain();
}

void NetworkRows::build(NIC nic)
{
    m_rows.insert(nic, {});
    Adapter &adapter = m_panel.adapter(nic);
    adapter.begin();
    if (nic == HMI::SystemSet::VPN)
        buildVpn(adapter);
    else if (nic == HMI::SystemSet::MOBILE_4G)
        buildMobile(adapter);
    else
        buildAddressed(adapter);
}

QQuickItem *NetworkRows::append(NIC nic, QQuickItem *row)
{
    m_rows[nic].items.append(row);
    return row;
}

void NetworkRows::buildAddressed(Adapter &adapter)
{
    addEnableSwitch(adapter, QT_TRANSLATE_NOOP("CardNetwork", "Disable Network"));
    if (adapter.nic() == HMI::SystemSet::WIFI)
        addWifiTile(adapter);
    addStaticSwitch(adapter);
    for (const Address address : g_addresses)
        addAddress(address, adapter);
    addMac(adapter);
}

void NetworkRows::addEnableSwitch(Adapter &adapter, const char *label)
{
    const NIC nic = adapter.nic();
    BeepSwitch *enable = m_make.toggle(append(nic, m_make.labelledRow(label)));
    m_rows[nic].enable = enable;
    const auto show = [enable, nic](bool enabled) { enable->setOn(isEnabledBy(enabled, nic)); };
    show(adapter.isEnabled());
    connect(&adapter, &Adapter::enabling, enable, show);
    connect(enable, &BeepSwitch::onChanged, &adapter, [&adapter, nic](bool on) {
        if (isEnabledBy(on, nic) != adapter.isEnabled())
            adapter.setEnabled(!adapter.isEnabled());
    });
}

void NetworkRows::addStaticSwitch(Adapter &adapter)
{
    BeepSwitch *fixed = m_make.toggle(
        append(adapter.nic(), m_make.labelledRow(QT_TRANSLATE_NOOP("CardNetwork", "Static IP"))));
    m_rows[adapter.nic()].fixed = fixed;
    fixed->setOn(adapter.isStatic());
    fixed->onChangeEnabled(adapter.isEnabled());
    connect(&adapter, &Adapter::staticChanged, fixed, &BeepSwitch::setOn);
    connect(&adapter, &Adapter::enabledChanged, fixed, &BeepSwitch::onChangeEnabled);
    connect(fixed, &BeepSwitch::onChanged, &adapter, [&adapter](bool on) {
        if (on != adapter.isStatic())
            adapter.setStatic(on);
    });
}

void NetworkRows::addAddress(Address address, Adapter &adapter)
{
    const NIC nic = adapter.nic();
    CIpInput *field =
        m_make.address(append(nic, m_make.labelledRow(labelOf(address), RowFactory::addressRow)));
    if (!field)
        return;
    m_rows[nic].field(address) = field;
    showAddress(field, adapter.shown(address));
    connect(&adapter, &Adapter::shownChanged, field, [field, address, &adapter](Address changed) {
        if (changed == address)
            showAddress(field, adapter.shown(address));
    });
    const auto updateEnabled = [field, &adapter] { field->setEnabled(adapter.mayEdit()); };
    updateEnabled();
    connect(&adapter, &Adapter::enabledChanged, field, updateEnabled);
    connect(&adapter, &Adapter::staticChanged, field, updateEnabled);
    connect(field, &CIpInput::ipChangedByEdit, &adapter,
            [&adapter, address](unsigned int value) { adapter.setAddress(address, value); });
}

void NetworkRows::addMac(const Adapter &adapter)
{
    CMacInput *field = m_make.mac(append(
        adapter.nic(), m_make.labelledRow(QT_TRANSLATE_NOOP("CardNetwork", "MAC"), RowFactory::addressRow)));
    if (!field)
        return;
    field->setMac(adapter.mac());
    field->setEnabled(false);
}

void NetworkRows::addWifiTile(const Adapter &adapter)
{
    WifiTile *tile = m_make.wifiTile();
    append(adapter.nic(), tile);
    if (!m_hasWifiPage)
        tile->endHere();
    tile->setWifiEnabled(adapter.isEnabled());
    connect(&adapter, &Adapter::enabling, tile, &WifiTile::setWifiEnabled);
    connect(tile, &QQuickAbstractButton::clicked, this, &NetworkRows::wifiPageWanted);
    m_monitors.wifi().setTile(tile);
}

void NetworkRows::buildMobile(Adapter &adapter)
{
    const NIC nic = adapter.nic();
    addEnableSwitch(adapter, QT_TRANSLATE_NOOP("CardNetwork", "4G"));
    MobileMonitor &mobile = m_monitors.mobile();
    mobile.setSignalImage(m_make.image(
        append(nic, m_make.labelledRow(QT_TRANSLATE_NOOP("CardNetwork", "Signal"), RowFactory::statusRow))));
    mobile.update();
    StatusText &state = mobile.stateText();
    state.setItem(
        m_make.text(append(nic, m_make.labelledRow(QT_TRANSLATE_NOOP("CardNetwork", "Connection Status"),
                                                   RowFactory::statusRow))));
    state.show(m_panel.modem().state() == mobileConnected ? QT_TRANSLATE_NOOP("CardNetwork", "Connected")
                                                          : QT_TRANSLATE_NOOP("CardNetwork", "Disconnected"));
}

void NetworkRows::buildVpn(Adapter &adapter)
{
    const NIC nic = adapter.nic();
    addEnableSwitch(adapter, QT_TRANSLATE_NOOP("CardNetwork", "VPN"));
    VpnMonitor &vpn = m_monitors.vpn();
    vpn.setServerBox(m_make.comboBox(
        append(nic, m_make.labelledRow(QT_TRANSLATE_NOOP("CardNetwork", "Server"), RowFactory::statusRow))));
    StatusText &state = vpn.stateText();
    state.setItem(
        m_make.text(append(nic, m_make.labelledRow(QT_TRANSLATE_NOOP("CardNetwork", "Connection Status"),
                                                   RowFactory::statusRow))));
    state.show(m_panel.tunnel().state() == 0 ? QT_TRANSLATE_NOOP("CardNetwork", "Disconnected")
                                             : QT_TRANSLATE_NOOP("CardNetwork", "Connected"));
}

} // namespace QSP
