#include "cards/wifi/cardwifi.h"

#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/wifi/fingerwatch.h"
#include "cards/wifi/wifibuttons.h"
#include "cards/wifi/wificurrentrow.h"
#include "cards/wifi/wifipassworddialog.h"
#include "controls/basecard.h"
#include "controls/beepbutton.h"
#include "panel/nic.h"
#include "panel/panel.h"
#include "panel/servicelimits.h"
#include "shell/approotitem.h"
#include "shell/base/documenttext.h"
#include "shell/base/globalinfo.h"
#include "shell/base/guithread.h"
#include "shell/base/vkbmanager.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>

#include <utility>

namespace QSP {

namespace {

using HMI::SystemSet;

constexpr qreal rowHeightOfScreenWidth = 0.046875;
constexpr int belowColumn = 7;
constexpr int belowPage = 20;

void showButton(BeepButton *button, QQuickItem *image)
{
    if (!button)
        return;
    const qreal opacity = !button->isEnabled() ? 0.4 : button->isPressed() ? 0.6 : 1.0;
    button->setOpacity(opacity);
    if (image)
        image->setOpacity(opacity);
}

} // namespace

CardWifi::CardWifi(QQuickItem *parent)
    : QQuickControl(parent)
    , m_finger(new FingerWatch(this))
    , m_scanLimit(new AnswerLimit(ServiceLimits::scan, "scanLimit", this))
    , m_joinLimit(new AnswerLimit(ServiceLimits::join, "joinLimit", this))
{
    qRegisterMetaType<HMI::SSID>("HMI::SSID");
    const GlobalInfo &info = GlobalInfo::instance();
    if (!info.isScreenPortrait())
        m_rowHeight = qMax(1, static_cast<int>(info.screenSize().width() * rowHeightOfScreenWidth));
    setFontSize(m_rowHeight * 5 / 12);

    auto *background = new BaseCard(this);
    // Else it would keep the height that cards begin with.
    background->resetHeight();
    setBackground(background);

    connect(this, &CardWifi::cardStateChanged, this, &CardWifi::showState);
    connect(this, &CardWifi::wifiReset, this, &CardWifi::onWifiReset);
    connect(m_finger, &FingerWatch::lifted, this, &CardWifi::onLifted);
    connect(m_scanLimit, &QTimer::timeout, this, [this] { onListReport(nullptr); });
    connect(m_joinLimit, &QTimer::timeout, this, &CardWifi::onJoinOverdue);
    connect(&VkbManager::instance(), &VkbManager::visibleChanged, this, &CardWifi::adjustPwDialog);
}

CardWifi::~CardWifi() = default;

void CardWifi::componentComplete()
{
    QQuickControl::componentComplete();
    const auto item = [this](const char *alias) {
        return qobject_cast<QQuickItem *>(property(alias).value<QObject *>());
    };
    m_column = item("layout");
    m_currentContainer = item("current");
    m_scanButton = qobject_cast<BeepButton *>(item("scanButton"));
    m_scanImage = item("scanButtonImage");
    m_bigScanButton = qobject_cast<BeepButton *>(item("bigScanButton"));
    m_bigScanImage = item("bigScanButtonImage");
    m_emptyRoom = item("emptyRoom");
    m_offlineText = item("offlineText");
    m_busy = item("scaning");
    m_busyHome = m_busy ? m_busy->parentItem() : nullptr;
    if (QQuickItem *container = item("list")) {
        m_list = new WifiList(container, m_rowHeight, m_refusals, this);
        connect(m_list, &WifiList::chosen, this, &CardWifi::onChosen);
        connect(m_list, &WifiList::shownChanged, this, &CardWifi::showEmptiness);
    }
    if (m_column)
        connect(m_column, &QQuickItem::heightChanged, this, &CardWifi::onColumnHeightChanged);

    addTexts();
    addButtons();
    if (AppRootItem *root = rootOf(this)) {
        connect(root, &AppRootItem::opened, this, &CardWifi::updateCurrentWifi);
        if (QQuickItem *titleBar = root->titleBar()) {
            connect(titleBar, &QQuickItem::heightChanged, this, &CardWifi::titleHeightChanged);
            connect(titleBar, &QQuickItem::heightChanged, this, &CardWifi::onColumnHeightChanged);
        }
    }
    connect(&panelOf(this).wifi(), &WifiLink::wasRead, this, &CardWifi::updateSignalStrength);
    watchNetworkCard();
    onColumnHeightChanged();
    updateCurrentWifi();
}

void CardWifi::addTexts()
{
    const auto show = [this](const char *alias, const char *text) {
        setDocumentText(this, alias, [text] { return QCoreApplication::translate("CardWifi", text); });
    };
    show("connectedWlanText", QT_TRANSLATE_NOOP("CardWifi", "Connected Wi-Fi"));
    show("nearWlanTxt", QT_TRANSLATE_NOOP("CardWifi", "Nearby Wi-Fi"));
    show("offlineText", QT_TRANSLATE_NOOP("CardWifi", "Wi-Fi Offline"));
}

void CardWifi::addButtons()
{
    for (BeepButton *button : {m_scanButton.data(), m_bigScanButton.data()}) {
        if (!button)
            continue;
        connect(button, &QQuickAbstractButton::clicked, this, &CardWifi::onClickScanWifi);
        connect(button, &QQuickAbstractButton::pressedChanged, this, &CardWifi::showState);
    }
    if (auto *row = qobject_cast<QQuickItem *>(property("resetRow").value<QObject *>())) {
        m_resetButton = addWifiResetButton(row, m_rowHeight, m_fontSize);
        connect(m_resetButton, &QQuickAbstractButton::clicked, this, &CardWifi::wifiReset);
        connect(m_resetButton, &QQuickAbstractButton::pressedChanged, this, &CardWifi::showState);
    }
    m_returnButton = addWifiReturnButton(this);
    if (m_returnButton)
        m_returnButton->setVisible(isVisible());
}

void CardWifi::watchNetworkCard()
{
    if (CardNetwork *card = CardLinks::network(this))
        connect(card, &CardNetwork::wifiStatusChanged, this, &CardWifi::refreshCurrentWifi,
                Qt::UniqueConnection);
}

void CardWifi::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickControl::itemChange(change, data);
    if (change == ItemSceneChange)
        m_finger->setWindow(data.window);
    if (change != ItemVisibleHasChanged)
        return;
    if (m_returnButton)
        m_returnButton->setVisible(data.boolValue);
    if (!isComponentComplete())
        return;
    if (data.boolValue) {
        watchNetworkCard();
        updateCurrentWifi();
        return;
    }
    m_finger->forget();
    if (m_dialog)
        m_dialog->close();
}

int CardWifi::titleHeight() const
{
    const AppRootItem *root = rootOf(this);
    return root ? root->titleHeight() : 0;
}

void CardWifi::setFontSize(int size)
{
    if (size == m_fontSize)
        return;
    m_fontSize = size;
    emit fontSizeChanged();
}

void CardWifi::onColumnHeightChanged()
{
    const int least = GlobalInfo::instance().screenSize().height() - belowPage - titleHeight();
    const qreal column = m_column ? m_column->height() : 0.0;
    setHeight(qMax(static_cast<int>(column + topInset() + belowColumn), least));
}

void CardWifi::setState(CardState state)
{
    if (state == m_state)
        return;
    const bool wasScanning = isScanning();
    m_state = state;
    emit cardStateChanged();
    if (wasScanning != isScanning())
        emit isScanningChanged();
}

void CardWifi::showState()
{
    for (BeepButton *button : {m_scanButton.data(), m_bigScanButton.data(), m_resetButton}) {
        if (button)
            button->setEnabled(!isScanning());
    }
    showButton(m_scanButton, m_scanImage);
    showButton(m_bigScanButton, m_bigScanImage);
    showButton(m_resetButton, nullptr);

    // By the attempt and not by the state alone: a list that comes meanwhile ends the state.
    const bool inDialog = m_dialog && m_isDialogOfAttempt && !m_attemptEnded && !isScanning();
    if (inDialog)
        m_dialog->setStatus(QT_TRANSLATE_NOOP("CardWifi", "Connecting"));
    if (!m_busy)
        return;
    QQuickItem *place = inDialog ? m_dialog->busyPlace() : m_busyHome.data();
    m_busy->setParentItem(place);
    m_busy->setX(place == m_busyHome ? 0.0 : -m_busy->width() / 2.0);
    m_busy->setVisible(isScanning() || place != m_busyHome);
}

// The dialog is modal, so that nobody can ask for anything else then but by a finger that was down before.
bool CardWifi::isBusyShownInDialog() const
{
    return m_busy && m_busy->isVisible() && m_busy->parentItem() != m_busyHome;
}

// --- The list ---

void CardWifi::onClickScanWifi()
{
    if (!isScanning())
        scanWifi();
}

void CardWifi::scanWifi()
{
    // By the state, not by the indicator, which is invisible while another page is shown.
    if (isScanning() || isBusyShownInDialog())
        return;
    setState(Scanning);
    systemSet().scanWifi(listReceiver());
}

SystemSet::WifiListCallback CardWifi::listReceiver()
{
    const int scan = ++m_scan;
    // What is held for the finger is of an older scan.
    m_heldRecords.reset();
    m_isListHeld = false;
    m_scanLimit->start();
    return onGuiThread(this, [scan](CardWifi *card, std::unique_ptr<WifiList::Records> records) {
        if (scan == card->m_scan)
            card->onListReport(std::move(records));
    });
}

void CardWifi::onListReport(std::unique_ptr<WifiList::Records> records)
{
    // A further report of the same scan would take the list from under the operator's finger.
    ++m_scan;
    m_scanLimit->stop();
    if (!m_finger->isDown()) {
        onScanResult(std::move(records));
        return;
    }
    m_heldRecords = std::move(records);
    m_isListHeld = true;
}

void CardWifi::refreshCurrentWifi()
{
    if (m_finger->isDown())
        m_isStatusHeld = true;
    else
        updateCurrentWifi();
}

void CardWifi::onLifted()
{
    // Put down again before this was delivered; another lifting follows.
    if (m_finger->isDown())
        return;
    if (std::exchange(m_isListHeld, false))
        onScanResult(std::move(m_heldRecords));
    if (std::exchange(m_isStatusHeld, false))
        updateCurrentWifi();
}

void CardWifi::onScanResult(std::unique_ptr<WifiList::Records> records)
{
    if (m_list && records)
        m_list->rebuild(*records, m_fontSize);
    else if (m_list)
        m_list->clear();
    setState(Idle);
    updateCurrentWifi();
}

void CardWifi::showEmptiness()
{
    if (m_emptyRoom)
        m_emptyRoom->setVisible(m_list->isBlank());
}

void CardWifi::onWifiReset()
{
    endAttempt();
    if (m_dialog)
        m_dialog->close();
    if (m_current)
        m_current->hide();
    showOffline(isConnected());
    m_refusals.clear();
    if (m_list)
        m_list->clear();
    if (isScanning())
        return;
    setState(Scanning);
    systemSet().resetWifi(listReceiver());
}

void CardWifi::onChosen(int index)
{
    // A copy: what is called below may rebuild the list.
    const WifiInfo info = m_list->infos().value(index);
    m_selectedSsid = info.ssid;
    m_selectedSignal = info.signal;
    openPwDialog();
    if (info.needsPassword == 0 || !info.password.isEmpty())
        connectWifi(info.ssid, info.password);
}

// --- The joined network ---

bool CardWifi::isConnected()
{
    return systemSet().isWifiConnected();
}

QString CardWifi::getSsid()
{
    return getSsidFromCurWifi(systemSet().currentWifiSsid());
}

void CardWifi::updateCurrentWifi()
{
    if (!m_currentContainer)
        return;
    if (!m_current)
        m_current = new WifiCurrentRow(m_currentContainer, m_rowHeight, this);
    if (m_isNameAwaited)
        finishJoin();
    const bool connected = isConnected();
    showOffline(connected);
    const HMI::SSID ssid = terminatedSsid(systemSet().currentWifiSsid());
    if (connected && !isEmptySsid(ssid)) {
        if (m_list)
            m_list->setJoined(ssid);
        m_current->show(getSsidFromCurWifi(ssid), m_fontSize);
        return;
    }
    if (connected && isScanning())
        return;
    m_current->hide();
    // What was hidden as joined is a network like any other again.
    if (m_list)
        m_list->showAll();
}

// In the room of the row, which is empty then. A network whose name is not known yet is no reason to say so.
void CardWifi::showOffline(bool connected)
{
    if (m_offlineText)
        m_offlineText->setVisible(!connected);
}

void CardWifi::updateSignalStrength()
{
    if (m_current)
        m_current->updateSignalStrength();
}

} // namespace QSP
