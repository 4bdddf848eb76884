#pragma once

#include "cards/network/adapterrows.h"
#include "cards/network/rowsizes.h"
#include "controls/basecard.h"

#include <QtCore/QHash>

#include <memory>

class QQuickText;

namespace QSP {

class BeepButton;
class NetworkRows;
class Panel;
class StatusMonitors;

/// The card on which the operator picks an adapter and sees or edits its settings.
///
/// The card itself selects: it has a button an adapter and shows the rows of the chosen one. NetworkRows builds
/// the rows and connects them to the adapters of the panel, which know what is shown and what is written;
/// StatusMonitors keep the status of 4G, VPN and Wi-Fi fresh.
///
/// What an operation is to show is asked of the service anew. An adapter that has no row of a kind makes an
/// operation on that row do nothing. GUI thread only.
class CardNetwork : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(int rowHeight READ rowHeight WRITE setRowHeight NOTIFY rowHeightChanged)
    Q_PROPERTY(int fontPixelSize READ fontPixelSize WRITE setFontPixelSize NOTIFY fontPixelSizeChanged)

public:
    explicit CardNetwork(QQuickItem *parent = nullptr);
    ~CardNetwork() override;

    /// Height unit of all rows, in pixels.
    int rowHeight() const { return m_sizes.rowHeight(); }
    void setRowHeight(int height) { m_sizes.setRowHeight(height); }
    /// Pixel size of every text of the card.
    int fontPixelSize() const { return m_sizes.fontPixelSize(); }
    void setFontPixelSize(int size) { m_sizes.setFontPixelSize(size); }

    /// The selected adapter; g_noAdapter on a panel without any.
    HMI::SystemSet::NIC currentNIC() const;
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

    /// What was built so far.
    AdapterRows rowsOf(HMI::SystemSet::NIC nic) const;

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
    Panel &panel() const;
    void followPanel();
    void followRoot();
    void addNicButtons();
    void addNicButton(HMI::SystemSet::NIC nic);
    void sizeNicButtons();
    void selectFirstNic();
    void updateDisplay(Address address, HMI::SystemSet::NIC nic);
    void updateEnable(Address address, HMI::SystemSet::NIC nic);

    RowSizes m_sizes;
    QHash<int, BeepButton *> m_buttons;
    QQuickItem *m_nicButtonFlow = nullptr;
    QQuickItem *m_layout = nullptr;
    // Null before completion; only then it is known on which screen, and with which panel, the card stands.
    std::unique_ptr<StatusMonitors> m_monitors;
    std::unique_ptr<NetworkRows> m_rows;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardNetwork)
