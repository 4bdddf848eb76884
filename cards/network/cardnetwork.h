#pragma once

#include "controls/basecard.h"
#include "panel/nic.h"

#include <QtCore/QHash>

#include <memory>

class QQuickText;

namespace QSP {

class AddressRules;
class BeepButton;
class MobileMonitor;
class NetworkActions;
class NetworkRows;
class VpnMonitor;
class WifiMonitor;

/// The card on which the operator picks an adapter and sees or edits its settings.
///
/// The card itself selects: it has a button an adapter and shows the rows of
/// the chosen one. The rest is done by pieces that it owns: NetworkRows builds
/// rows, AddressRules says what an address field shows and whether it may be
/// edited, NetworkActions writes to the service, and three monitors keep the
/// status of 4G, VPN and Wi-Fi fresh.
///
/// An adapter that has no row of a kind makes an operation on that row do
/// nothing. GUI thread only.
class CardNetwork : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(int rowHeight READ rowHeight WRITE setRowHeight NOTIFY rowHeightChanged)
    Q_PROPERTY(int fontPixelSize READ fontPixelSize WRITE setFontPixelSize NOTIFY fontPixelSizeChanged)

public:
    explicit CardNetwork(QQuickItem *parent = nullptr);
    ~CardNetwork() override;

    /// Height unit of all rows, in pixels.
    int rowHeight() const { return m_rowHeight; }
    void setRowHeight(int height);
    /// Pixel size of every text of the card.
    int fontPixelSize() const { return m_fontPixelSize; }
    void setFontPixelSize(int size);

    /// The selected adapter; g_noAdapter on a panel without any.
    HMI::SystemSet::NIC currentNIC() const { return m_currentNic; }
    /// Selects another adapter; the selected one does nothing.
    void setCurrentNIC(HMI::SystemSet::NIC nic);
    /// Shows or hides the rows of an adapter. Its rows are built, and visible, the first time.
    void showItems(HMI::SystemSet::NIC nic, bool visible);
    /// The column that receives the rows.
    QQuickItem *layout() const { return m_layout; }

    // What the switches on this card say, which runs ahead of the service. False without such a switch.
    bool isEnable_FromSwitch(HMI::SystemSet::NIC nic) const;
    bool isStatic_FromSwitch(HMI::SystemSet::NIC nic) const;
    /// Whether the addresses of the adapter may be edited: enabled and static.
    bool allow_ModifyIPInfo(HMI::SystemSet::NIC nic) const;

    void updateEnable_IP(HMI::SystemSet::NIC nic);
    void updateEnable_SubnetMask(HMI::SystemSet::NIC nic);
    void updateEnable_Gateway(HMI::SystemSet::NIC nic);
    // Show the address that the adapter has now, unless it is disabled or the field is being edited.
    void updateDisplay_IP(HMI::SystemSet::NIC nic);
    void updateDisplay_SubnetMask(HMI::SystemSet::NIC nic);
    void updateDisplay_Gateway(HMI::SystemSet::NIC nic);
    /// Shows the addresses that an enabled adapter has now, here and on the DNS card.
    Q_INVOKABLE void updateNetInfoDisplay(HMI::SystemSet::NIC nic);

    /// Sets "Static IP" from the service; a change runs the switch's action.
    void updateSwitchDisplay_static(HMI::SystemSet::NIC nic);
    /// The same as updateSwitchDisplay_static().
    Q_INVOKABLE void updateSwitchDisplay(HMI::SystemSet::NIC nic) { updateSwitchDisplay_static(nic); }
    /// Sets the adapter's first switch from the service; a change runs the switch's action.
    void updateSwitchDisplay_EnableDisable(HMI::SystemSet::NIC nic);

    /// What the first switch of an adapter does; @p on is the state of the switch, which
    /// means "disabled" for LAN0, LAN1 and Wi-Fi and "enabled" for 4G and VPN.
    template <HMI::SystemSet::NIC nic> void enableNIC(bool on) { enableNIC(nic, on); }
    void enableNIC(HMI::SystemSet::NIC nic, bool on);
    /// What "Static IP" does; @p on asks for the stored addresses, off for DHCP.
    template <HMI::SystemSet::NIC nic> void enableStatic(bool on) { enableStatic(nic, on); }
    void enableStatic(HMI::SystemSet::NIC nic, bool on);
    /// A DHCP request was answered.
    void onEnableDHCP(HMI::SystemSet::NIC nic, HMI::SystemSet::DHCP_STATE state);

    /// Starts or stops the refreshing of the 4G rows.
    void setup4GTimer(bool enable);
    void clear4GDisplay();
    void updateWifiStatus();
    /// Refreshes the Wi-Fi tile and sees that it goes on being refreshed, if Wi-Fi is selected.
    void updateWifiTimer();

    // The pieces, for each other.
    NetworkRows &rows() { return *m_rows; }
    AddressRules &rules() { return *m_rules; }
    NetworkActions &actions() { return *m_actions; }
    MobileMonitor &mobile() { return *m_mobile; }
    VpnMonitor &vpn() { return *m_vpn; }
    WifiMonitor &wifi() { return *m_wifi; }

public slots:
    /// Tells that an attempt to join a network began or ended; the tile keeps its text meanwhile.
    void setWifiConnecting(bool connecting);
    void changeNIC(HMI::SystemSet::NIC newNic, HMI::SystemSet::NIC oldNic);
    void update4GSignal();
    void updateVPNStatus();

signals:
    void rowHeightChanged();
    void fontPixelSizeChanged();
    void currentNICChanged(HMI::SystemSet::NIC newNic, HMI::SystemSet::NIC oldNic);
    /// For documents; the buttons of this card select by themselves.
    void nicButtonClicked(HMI::SystemSet::NIC index);
    /// The first switch of any adapter changed; the service knows already.
    void netDisabledChanged();
    void useStaticIpChanged(HMI::SystemSet::NIC nic);
    /// The operator asks for the Wi-Fi page.
    void switchToWifiCard();
    void wifiEnableChanged(bool enable);
    /// The Wi-Fi configuration was reset: "Static IP" goes off and the address fields are cleared.
    void wifiReset();
    void wifiStatusChanged(bool connected, const QString &ssid);

protected:
    void componentComplete() override;

private:
    void addNicButtons();
    void addNicButton(HMI::SystemSet::NIC nic);
    void sizeNicButtons();
    void selectFirstNic(int present);
    void startMonitor(HMI::SystemSet::NIC nic);
    void stopMonitor(HMI::SystemSet::NIC nic);
    void setMonitorsPaused(bool paused);
    void followWifiLink();

    int m_rowHeight = 62;
    int m_fontPixelSize = 20;
    NIC m_currentNic = g_noAdapter;
    QHash<int, BeepButton *> m_buttons;
    QQuickItem *m_nicButtonFlow = nullptr;
    QQuickItem *m_layout = nullptr;
    // In the order of need: each may use those before it until it is gone.
    std::unique_ptr<MobileMonitor> m_mobile;
    std::unique_ptr<VpnMonitor> m_vpn;
    std::unique_ptr<WifiMonitor> m_wifi;
    std::unique_ptr<AddressRules> m_rules;
    std::unique_ptr<NetworkActions> m_actions;
    std::unique_ptr<NetworkRows> m_rows;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardNetwork)
