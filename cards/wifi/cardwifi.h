#pragma once

#include "cards/wifi/wifilist.h"
#include "panel/ssid.h"
#include "panel/wifirefusals.h"

#include <QtCore/QPointer>
#include <QtQuickTemplates2/private/qquickcontrol_p.h>

#include <memory>

namespace QSP {

class AnswerLimit;
class BeepButton;
class FingerWatch;
class WifiCurrentRow;
class WifiPasswordDialog;

/// The Wi-Fi page: the joined network, the networks nearby, scanning, joining and resetting.
///
/// Reports of the service count only for the newest scan and the newest
/// attempt to join, and only for so long; a reset ends the attempt under way. Nothing that comes from
/// the service moves the list while a finger is down. GUI thread only.
class CardWifi : public QQuickControl
{
    Q_OBJECT
    Q_PROPERTY(int titleHeight READ titleHeight NOTIFY titleHeightChanged)
    Q_PROPERTY(int fontSize READ fontSize WRITE setFontSize NOTIFY fontSizeChanged)
    Q_PROPERTY(int rowHeight READ rowHeight CONSTANT)

public:
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

    /// Whether the panel has joined a network, as the service says.
    static bool isConnected();
    /// The name of the joined network, taken as UTF-8; empty when there is none.
    static QString getSsid();

    /// The arrow in the title bar that leads back to the Network page. Visible while the page is.
    BeepButton *returnButton() const { return m_returnButton; }
    const QVector<WIFI_INFO> &networks() const { return m_list->infos(); }

    /// Shows the joined network on top, and hides its row in the list.
    void updateCurrentWifi();
    /// Reads the strength of the joined network again.
    Q_INVOKABLE void updateSignalStrength();

public slots:
    /// Fits the page to its contents, but makes it no shorter than the screen has room for.
    void onColumnHeightChanged();
    void onClickScanWifi();
    /// Starts an attempt to join, in place of any other.
    void connectWifi(HMI::SSID wifiname, const QString &password);
    /// Joins the selected network with what was typed.
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
    void addTexts();
    void addButtons();
    void showEmptiness();
    void showOffline(bool connected);
    void watchNetworkCard();

    void scanWifi();
    HMI::SystemSet::WifiListCallback listReceiver();
    void refreshCurrentWifi();
    void onLifted();
    void onListReport(std::unique_ptr<WifiList::Records> records);
    void onScanResult(std::unique_ptr<WifiList::Records> records);
    void onChosen(int index);
    void openPwDialog();
    void onConnectResult(HMI::SystemSet::StateWifi result);
    void onAttemptFailed(const char *text);
    void onJoinOverdue();
    void finishJoin();
    void update_afterOnLine();
    void setDhcpAndUpdateCurWifi();
    void closeDialog_and_updateCurWifiInfo();
    void endAttempt();
    bool concernsDialog() const;
    bool isBusyShownInDialog() const;
    WifiPasswordDialog *pwDialog();
    void showState();

    int m_rowHeight = 48;
    int m_fontSize = 20;
    CardState m_state = Idle;
    FingerWatch *m_finger;
    AnswerLimit *m_scanLimit;
    AnswerLimit *m_joinLimit;
    WifiRefusals m_refusals;
    WifiList *m_list = nullptr;
    WifiCurrentRow *m_current = nullptr;
    WifiPasswordDialog *m_dialog = nullptr;
    BeepButton *m_returnButton = nullptr;
    BeepButton *m_resetButton = nullptr;
    QPointer<BeepButton> m_scanButton;
    QPointer<QQuickItem> m_scanImage;
    QPointer<BeepButton> m_bigScanButton;
    QPointer<QQuickItem> m_bigScanImage;
    QPointer<QQuickItem> m_emptyRoom;
    QPointer<QQuickItem> m_offlineText;
    QPointer<QQuickItem> m_busy;
    QPointer<QQuickItem> m_busyHome;
    QPointer<QQuickItem> m_column;
    QPointer<QQuickItem> m_currentContainer;

    HMI::SSID m_selectedSsid{};
    int m_selectedSignal = 0;
    HMI::SSID m_attemptSsid{};
    WifiRefusals::Digest m_attemptDigest;
    // Grow with each request; a report that carries an older number comes too late to count.
    int m_scan = 0;
    int m_attempt = 0;
    bool m_attemptEnded = true;
    int m_lastReport = -1;
    bool m_isNameAwaited = false;
    bool m_isLeaseAwaited = false;
    // Else the dialog is open for a password of some network, and reports of the attempt leave it alone.
    bool m_isDialogOfAttempt = false;
    // What came while a finger was down.
    std::unique_ptr<WifiList::Records> m_heldRecords;
    bool m_isListHeld = false;
    bool m_isStatusHeld = false;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardWifi)
