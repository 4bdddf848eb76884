#pragma once

#include "cards/wifi/fingerhold.h"
#include "cards/wifi/wifilist.h"
#include "cards/wifi/wifiscan.h"
#include "panel/joinattempt.h"
#include "panel/ssid.h"

#include <QtCore/QPointer>
#include <QtQuickTemplates2/private/qquickcontrol_p.h>

namespace QSP {

class BeepButton;
class WifiControls;
class WifiCurrentRow;
class WifiJoinDialog;
class WifiLink;

/// The Wi-Fi page: the joined network, the networks nearby, scanning, joining and resetting.
///
/// It shows the panel's WifiLink and tells it what the operator did. How an attempt to join goes is the
/// business of JoinAttempt, the password that of WifiJoinDialog. Nothing that comes from the service moves
/// the list while a finger is down. GUI thread only.
class CardWifi : public QQuickControl
{
    Q_OBJECT
    Q_PROPERTY(int titleHeight READ titleHeight NOTIFY titleHeightChanged)
    Q_PROPERTY(int fontSize READ fontSize WRITE setFontSize NOTIFY fontSizeChanged)
    Q_PROPERTY(int rowHeight READ rowHeight CONSTANT)

public:
    /// What the page is at, by what came last; a list ends the state of an attempt that goes on.
    enum CardState {
        Idle = 0,
        Scanning = 1, ///< or resetting
        Connecting = 2,
        Connected = 3, ///< the last attempt succeeded
    };
    Q_ENUM(CardState)
    using WIFI_INFO = WifiInfo;

    explicit CardWifi(QQuickItem *parent = nullptr);
    ~CardWifi() override;

    /// Height of the screen's title bar in pixels.
    int titleHeight() const;
    /// Pixel size of the page's texts.
    int fontSize() const { return m_fontSize; }
    void setFontSize(int size);
    /// Height of one row in pixels.
    int rowHeight() const { return m_rowHeight; }

    CardState state() const { return m_state; }
    void setState(CardState state);
    bool isScanning() const { return m_state == Scanning; }

    // For others than this screen, which knows the WifiLink: they ask the service.

    /// Whether the panel has joined a network.
    static bool isConnected();
    /// The name of the joined network, taken as UTF-8; empty when there is none.
    static QString getSsid();

    /// The arrow in the title bar that leads back to the Network page. Visible while the page is.
    BeepButton *returnButton() const { return m_returnButton; }
    const QVector<WIFI_INFO> &networks() const { return m_list->infos(); }

    /// Reads the link, and shows the joined network on top and not in the list.
    void updateCurrentWifi();
    /// The same as updateCurrentWifi().
    Q_INVOKABLE void updateSignalStrength() { updateCurrentWifi(); }

public slots:
    /// Fits the page to its contents, but makes it no shorter than the screen has room for.
    void onColumnHeightChanged();
    void onClickScanWifi();
    /// Starts an attempt to join, in place of any other.
    void connectWifi(HMI::SSID wifiname, const QString &password);
    /// Joins the network that the dialog is about with what was typed.
    void onClickConFirm();
    void onWifiReset();
    void adjustPwDialog();

signals:
    void titleHeightChanged();
    void fontSizeChanged();
    void cardStateChanged();
    void connectedChanged(bool connected);
    /// The operator asks for a reset of the Wi-Fi settings.
    void wifiReset();
    void isScanningChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    WifiLink &link() const;
    void addTexts();
    void addParts();
    void followScreen();
    void followLink();
    void showState();
    void showEmptiness();
    void showOffline();
    void showJoined();

    void scanWifi();
    void showNetworks(const WifiScan::Records &records);
    void onChosen(int index);
    void openPwDialog(const HMI::SSID &ssid);
    void onAttempt(JoinAttempt::State state);
    void onJoined();

    int m_rowHeight = 48;
    int m_fontSize = 20;
    CardState m_state = Idle;
    FingerHold m_hold;
    WifiScan m_scan;
    WifiControls *m_controls = nullptr;
    WifiList *m_list = nullptr;
    WifiCurrentRow *m_current = nullptr;
    WifiJoinDialog *m_dialog = nullptr;
    BeepButton *m_returnButton = nullptr;
    QPointer<QQuickItem> m_emptyRoom;
    QPointer<QQuickItem> m_offlineText;
    QPointer<QQuickItem> m_column;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardWifi)
