#include "cards/network/cardnetwork.h"

#include "cards/network/networkrows.h"
#include "cards/network/statusmonitors.h"
#include "cards/network/statustext.h"
#include "controls/beepbutton.h"
#include "controls/cipinput.h"
#include "panel/panel.h"
#include "shell/approotitem.h"
#include "shell/base/documentalias.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/vkbmanager.h"
#include "shell/rootof.h"

#include <QtCore/QUrl>
#include <QtQuick/private/qquicktext_p.h>

#include <algorithm>

namespace QSP {

CardNetwork::CardNetwork(QQuickItem *parent) : BaseCard(parent), m_sizes(NetworkMetrics::ofScreen())
{
    connect(&m_sizes, &RowSizes::changed, this, &CardNetwork::sizeNicButtons);
    connect(&m_sizes, &RowSizes::rowHeightChanged, this, &CardNetwork::rowHeightChanged);
    connect(&m_sizes, &RowSizes::fontPixelSizeChanged, this, &CardNetwork::fontPixelSizeChanged);
    connect(this, &CardNetwork::currentNICChanged, this, &CardNetwork::changeNIC);
}

CardNetwork::~CardNetwork() = default;

Panel &CardNetwork::panel() const
{
    return panelOf(this);
}

void CardNetwork::componentComplete()
{
    BaseCard::componentComplete();
    m_nicButtonFlow = aliasOf<QQuickItem>(this, "nicButtonFlow");
    m_layout = aliasOf<QQuickItem>(this, "layout");
    setNetworkText(aliasOf<QQuickText>(this, "titleText"), QT_TRANSLATE_NOOP("CardNetwork", "Network"));
    m_monitors = std::make_unique<StatusMonitors>(this, panel());
    const AppRootItem *root = rootOf(this);
    const bool hasWifiPage = !root || !root->isHidden(AppRootItem::MenuIndex::Wifi);
    m_rows = std::make_unique<NetworkRows>(panel(), RowFactory(m_layout, m_sizes), *m_monitors, hasWifiPage);
    addNicButtons();
    followPanel();
    followRoot();
}

void CardNetwork::followPanel()
{
    connect(m_rows.get(), &NetworkRows::wifiPageWanted, this, &CardNetwork::switchToWifiCard);
    connect(&m_monitors->wifi(), &WifiMonitor::statusShown, this, &CardNetwork::wifiStatusChanged);
    connect(&panel(), &Panel::selectionChanged, this, &CardNetwork::currentNICChanged);
    connect(&panel().adapters(), &Adapters::enabledChanged, this, &CardNetwork::netDisabledChanged);
    connect(&panel().adapters(), &Adapters::staticChanged, this, &CardNetwork::useStaticIpChanged);
    const Adapter *wifi = &panel().adapter(HMI::SystemSet::WIFI);
    connect(wifi, &Adapter::enabling, this, &CardNetwork::wifiEnableChanged);
    connect(&panel().wifi(), &WifiLink::wasReset, this, &CardNetwork::wifiReset);
    connect(this, &CardNetwork::wifiReset, wifi, &Adapter::reset);
}

void CardNetwork::followRoot()
{
    const AppRootItem *root = rootOf(this);
    if (!root)
        return;
    connect(root, &QQuickItem::visibleChanged, this, [this, root] {
        if (!root->isVisible())
            m_monitors->setPaused(true);
    });
    connect(&panel(), &Panel::wasRead, this, [this] { m_monitors->setPaused(false); });
}

AdapterRows CardNetwork::rowsOf(NIC nic) const
{
    return m_rows ? m_rows->of(nic) : AdapterRows();
}

// --- The selector ---

void CardNetwork::addNicButtons()
{
    const int present = panel().adapters().present();
    for (const NIC nic : g_adapters) {
        if (present & nic)
            addNicButton(nic);
    }
    sizeNicButtons();
    selectFirstNic();
}

void CardNetwork::addNicButton(NIC nic)
{
    static EmbeddedComponent component;
    const QUrl document(QStringLiteral("qrc:/setting/flatui/NICButton.qml"));
    auto *button = component.create<BeepButton>(document, m_nicButtonFlow);
    if (!button)
        return;
    button->setCheckable(true);
    button->setAutoExclusive(true);
    setNetworkText(aliasOf<QQuickText>(button, "txt"), adapterLabel(nic));
    connect(button, &QQuickAbstractButton::clicked, this, [this, nic] { setCurrentNIC(nic); });
    m_buttons.insert(nic, button);
}

void CardNetwork::sizeNicButtons()
{
    for (BeepButton *button : qAsConst(m_buttons)) {
        button->setHeight(0.5 * rowHeight());
        button->setProperty("fontSize", fontPixelSize());
    }
}

void CardNetwork::selectFirstNic()
{
    panel().selectFirst();
    const NIC first = currentNIC();
    if (first == g_noAdapter)
        return;
    if (BeepButton *button = m_buttons.value(first))
        button->setChecked(true);
    showItems(first, true);
    // Wi-Fi is watched from the showing of the page on.
    if (first != HMI::SystemSet::WIFI)
        m_monitors->start(first);
}

NIC CardNetwork::currentNIC() const
{
    return panel().selected();
}

void CardNetwork::setCurrentNIC(NIC nic)
{
    const NIC old = currentNIC();
    if (nic == old)
        return;
    // An edit under way belongs to the adapter that it was begun on.
    VkbManager::instance().endEdit();
    panel().select(nic);
    // Nobody has told the card yet.
    if (!m_rows)
        emit currentNICChanged(nic, old);
}

void CardNetwork::changeNIC(NIC newNic, NIC oldNic)
{
    if (BeepButton *button = m_buttons.value(newNic))
        button->setChecked(true);
    showItems(oldNic, false);
    showItems(newNic, true);
    if (!m_monitors)
        return;
    m_monitors->stop(oldNic);
    m_monitors->start(newNic);
}

void CardNetwork::showItems(NIC nic, bool visible)
{
    if (nic != g_noAdapter && m_rows)
        m_rows->show(nic, visible);
}

// --- What the switches say, and the address fields show ---

bool CardNetwork::isEnable_FromSwitch(NIC nic) const
{
    return hasAddresses(nic) && rowsOf(nic).enable && panel().adapter(nic).isEnabled();
}

bool CardNetwork::isStatic_FromSwitch(NIC nic) const
{
    return rowsOf(nic).fixed && panel().adapter(nic).isStatic();
}

bool CardNetwork::allow_ModifyIPInfo(NIC nic) const
{
    return isStatic_FromSwitch(nic) && isEnable_FromSwitch(nic);
}

void CardNetwork::updateEnable(Address address, NIC nic)
{
    if (CIpInput *field = rowsOf(nic).field(address))
        field->setEnabled(allow_ModifyIPInfo(nic));
}

void CardNetwork::updateEnable_IP(NIC nic)
{
    updateEnable(Address::Ip, nic);
}

void CardNetwork::updateEnable_SubnetMask(NIC nic)
{
    updateEnable(Address::SubnetMask, nic);
}

void CardNetwork::updateEnable_Gateway(NIC nic)
{
    updateEnable(Address::Gateway, nic);
}

void CardNetwork::updateDisplay(Address address, NIC nic)
{
    if (!rowsOf(nic).field(address))
        return;
    panel().adapter(nic).forget();
    panel().adapter(nic).showInForce(address);
}

void CardNetwork::updateDisplay_IP(NIC nic)
{
    updateDisplay(Address::Ip, nic);
}

void CardNetwork::updateDisplay_SubnetMask(NIC nic)
{
    updateDisplay(Address::SubnetMask, nic);
}

void CardNetwork::updateDisplay_Gateway(NIC nic)
{
    updateDisplay(Address::Gateway, nic);
}

void CardNetwork::updateNetInfoDisplay(NIC nic)
{
    if (!rowsOf(nic).enable)
        return;
    panel().adapter(nic).forget();
    panel().adapter(nic).showInForce();
}

// --- Switches ---

void CardNetwork::updateSwitchDisplay_static(NIC nic)
{
    if (!rowsOf(nic).fixed)
        return;
    panel().adapter(nic).forget();
    panel().adapter(nic).adoptStatic();
}

void CardNetwork::updateSwitchDisplay_EnableDisable(NIC nic)
{
    if (!rowsOf(nic).enable)
        return;
    panel().adapter(nic).forget();
    panel().adapter(nic).adoptEnabled();
}

void CardNetwork::enableNIC(NIC nic, bool on)
{
    if (std::find(g_adapters.begin(), g_adapters.end(), nic) != g_adapters.end())
        panel().adapter(nic).setEnabled(on != hasAddresses(nic));
}

void CardNetwork::enableStatic(NIC nic, bool on)
{
    if (hasAddresses(nic))
        panel().adapter(nic).setStatic(on);
}

void CardNetwork::onEnableDHCP(NIC nic, HMI::SystemSet::DHCP_STATE state)
{
    if (rowsOf(nic).enable)
        panel().adapter(nic).onDhcp(state);
}

// --- Status ---

void CardNetwork::setup4GTimer(bool enable)
{
    panel().modem().forget();
    if (m_monitors)
        m_monitors->mobile().setup(enable);
}

void CardNetwork::clear4GDisplay()
{
    if (m_monitors)
        m_monitors->mobile().clear();
}

void CardNetwork::update4GSignal()
{
    if (m_monitors)
        m_monitors->mobile().refresh();
}

void CardNetwork::updateVPNStatus()
{
    if (m_monitors)
        m_monitors->vpn().refresh();
}

void CardNetwork::updateWifiStatus()
{
    if (m_monitors)
        m_monitors->wifi().refresh();
}

void CardNetwork::updateWifiTimer()
{
    if (m_monitors && currentNIC() == HMI::SystemSet::WIFI)
        m_monitors->wifi().startAgain();
}

void CardNetwork::setWifiConnecting(bool connecting)
{
    if (m_monitors)
        m_monitors->wifi().setConnecting(connecting);
}

} // namespace QSP
