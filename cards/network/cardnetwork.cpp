#include "cards/network/cardnetwork.h"

#include "cards/network/addressrules.h"
#include "cards/network/cardlinks.h"
#include "cards/network/mobilemonitor.h"
#include "cards/network/networkactions.h"
#include "cards/network/networkmetrics.h"
#include "cards/network/networkrows.h"
#include "cards/network/statustext.h"
#include "cards/network/vpnmonitor.h"
#include "cards/network/wifimonitor.h"
#include "controls/beepbutton.h"
#include "controls/beepswitch.h"
#include "panel/panel.h"
#include "shell/approotitem.h"
#include "shell/base/documentalias.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/vkbmanager.h"
#include "shell/rootof.h"

#include <QtCore/QUrl>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

CardNetwork::CardNetwork(QQuickItem *parent)
    : BaseCard(parent)
    , m_mobile(std::make_unique<MobileMonitor>(this))
    , m_vpn(std::make_unique<VpnMonitor>(this))
    , m_wifi(std::make_unique<WifiMonitor>(this))
    , m_rules(std::make_unique<AddressRules>(this))
    , m_actions(std::make_unique<NetworkActions>(this))
    , m_rows(std::make_unique<NetworkRows>(this))
{
    const NetworkMetrics metrics = NetworkMetrics::ofScreen();
    m_rowHeight = metrics.rowHeight;
    m_fontPixelSize = metrics.fontPixelSize;
    connect(this, &CardNetwork::currentNICChanged, this, &CardNetwork::changeNIC);
}

CardNetwork::~CardNetwork() = default;

void CardNetwork::componentComplete()
{
    BaseCard::componentComplete();
    m_nicButtonFlow = aliasOf<QQuickItem>(this, "nicButtonFlow");
    m_layout = aliasOf<QQuickItem>(this, "layout");
    setNetworkText(aliasOf<QQuickText>(this, "titleText"), "Network");
    addNicButtons();
    followWifiLink();
    AppRootItem *root = rootOf(this);
    if (!root)
        return;
    connect(root, &QQuickItem::visibleChanged, this, [this, root] {
        if (!root->isVisible())
            setMonitorsPaused(true);
    });
    connect(root, &AppRootItem::opened, this, [this] { setMonitorsPaused(false); });
}

void CardNetwork::followWifiLink()
{
    WifiLink &link = panelOf(this).wifi();
    connect(&link, &WifiLink::wasReset, this, &CardNetwork::wifiReset);
    connect(&link.attempt(), &JoinAttempt::underWayChanged, this, [this](bool underWay) {
        if (!underWay)
            m_wifi->show();
    });
    connect(&link.attempt(), &JoinAttempt::joined, this, [this, &link] {
        if (!link.isConnected())
            return;
        updateSwitchDisplay(HMI::SystemSet::WIFI);
        updateNetInfoDisplay(HMI::SystemSet::WIFI);
    });
}

void CardNetwork::setMonitorsPaused(bool paused)
{
    m_mobile->setPaused(paused);
    m_vpn->setPaused(paused);
    m_wifi->setPaused(paused);
}

void CardNetwork::setRowHeight(int height)
{
    if (m_rowHeight == height)
        return;
    m_rowHeight = height;
    sizeNicButtons();
    emit rowHeightChanged();
}

void CardNetwork::setFontPixelSize(int size)
{
    if (m_fontPixelSize == size)
        return;
    m_fontPixelSize = size;
    m_vpn->setFontPixelSize(size);
    sizeNicButtons();
    emit fontPixelSizeChanged();
}

// --- The selector ---

void CardNetwork::addNicButtons()
{
    const int present = systemSet().getAllNIC();
    for (const NIC nic : g_adapters) {
        if (present & nic)
            addNicButton(nic);
    }
    sizeNicButtons();
    selectFirstNic(present);
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
        button->setHeight(0.5 * m_rowHeight);
        button->setProperty("fontSize", m_fontPixelSize);
    }
}

void CardNetwork::selectFirstNic(int present)
{
    for (const NIC nic : g_adapters) {
        if (!(present & nic))
            continue;
        if (BeepButton *button = m_buttons.value(nic))
            button->setChecked(true);
        m_currentNic = nic;
        showItems(nic, true);
        // Wi-Fi is watched from the showing of the page on.
        if (nic != HMI::SystemSet::WIFI)
            startMonitor(nic);
        return;
    }
}

void CardNetwork::setCurrentNIC(NIC nic)
{
    if (nic == m_currentNic)
        return;
    // An edit under way belongs to the adapter that it was begun on.
    VkbManager::instance().endEdit();
    const NIC old = m_currentNic;
    m_currentNic = nic;
    emit currentNICChanged(nic, old);
}

void CardNetwork::changeNIC(NIC newNic, NIC oldNic)
{
    if (BeepButton *button = m_buttons.value(newNic))
        button->setChecked(true);
    showItems(oldNic, false);
    showItems(newNic, true);
    CardLinks::reloadDns(this);
    CardLinks::updateDnsEnabled(this);
    stopMonitor(oldNic);
    startMonitor(newNic);
}

void CardNetwork::showItems(NIC nic, bool visible)
{
    if (nic != g_noAdapter && m_layout)
        m_rows->show(nic, visible);
}

void CardNetwork::stopMonitor(NIC nic)
{
    if (nic == HMI::SystemSet::MOBILE_4G)
        m_mobile->stop();
    else if (nic == HMI::SystemSet::VPN)
        m_vpn->stop();
    else if (nic == HMI::SystemSet::WIFI)
        m_wifi->stop();
}

void CardNetwork::startMonitor(NIC nic)
{
    if (nic == HMI::SystemSet::MOBILE_4G)
        setup4GTimer(systemSet().isNicEnabled(nic));
    else if (nic == HMI::SystemSet::VPN)
        m_vpn->start();
    else if (nic == HMI::SystemSet::WIFI)
        m_wifi->start();
}

// --- Address rules ---

bool CardNetwork::isEnable_FromSwitch(NIC nic) const
{
    return m_rules->isEnabled(nic);
}

bool CardNetwork::isStatic_FromSwitch(NIC nic) const
{
    return m_rules->isStatic(nic);
}

bool CardNetwork::allow_ModifyIPInfo(NIC nic) const
{
    return m_rules->mayEdit(nic);
}

void CardNetwork::updateEnable_IP(NIC nic)
{
    m_rules->updateEnable(g_ip, nic);
}

void CardNetwork::updateEnable_SubnetMask(NIC nic)
{
    m_rules->updateEnable(g_mask, nic);
}

void CardNetwork::updateEnable_Gateway(NIC nic)
{
    m_rules->updateEnable(g_gateway, nic);
}

void CardNetwork::updateDisplay_IP(NIC nic)
{
    m_rules->updateDisplay(g_ip, nic);
}

void CardNetwork::updateDisplay_SubnetMask(NIC nic)
{
    m_rules->updateDisplay(g_mask, nic);
}

void CardNetwork::updateDisplay_Gateway(NIC nic)
{
    m_rules->updateDisplay(g_gateway, nic);
}

void CardNetwork::updateNetInfoDisplay(NIC nic)
{
    m_rules->updateNetInfo(nic);
}

// --- Switches ---

void CardNetwork::updateSwitchDisplay_static(NIC nic)
{
    if (BeepSwitch *fixed = m_rows->of(nic).fixed)
        fixed->setOn(!systemSet().isDhcpOn(nic));
}

void CardNetwork::updateSwitchDisplay_EnableDisable(NIC nic)
{
    if (BeepSwitch *enable = m_rows->of(nic).enable)
        enable->setOn(systemSet().isNicEnabled(nic) != hasAddresses(nic));
}

void CardNetwork::enableNIC(NIC nic, bool on)
{
    m_actions->enableNic(nic, on);
}

void CardNetwork::enableStatic(NIC nic, bool on)
{
    m_actions->enableStatic(nic, on);
}

void CardNetwork::onEnableDHCP(NIC nic, HMI::SystemSet::DHCP_STATE state)
{
    m_actions->onDhcp(nic, state);
}

// --- Status ---

void CardNetwork::setup4GTimer(bool enable)
{
    m_mobile->setup(enable);
}

void CardNetwork::clear4GDisplay()
{
    m_mobile->clear();
}

void CardNetwork::update4GSignal()
{
    m_mobile->update();
}

void CardNetwork::updateVPNStatus()
{
    m_vpn->update();
}

void CardNetwork::updateWifiStatus()
{
    m_wifi->update();
}

void CardNetwork::updateWifiTimer()
{
    if (m_currentNic == HMI::SystemSet::WIFI)
        m_wifi->start();
}

void CardNetwork::setWifiConnecting(bool connecting)
{
    m_wifi->setConnecting(connecting);
}

} // namespace QSP
