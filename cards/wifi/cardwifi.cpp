#include "cards/wifi/cardwifi.h"

#include "cards/wifi/wifibuttons.h"
#include "cards/wifi/wificontrols.h"
#include "cards/wifi/wificurrentrow.h"
#include "cards/wifi/wifijoindialog.h"
#include "controls/basecard.h"
#include "controls/beepbutton.h"
#include "panel/nic.h"
#include "panel/panel.h"
#include "panel/secrets.h"
#include "shell/approotitem.h"
#include "shell/base/documentalias.h"
#include "shell/base/documenttext.h"
#include "shell/base/globalinfo.h"
#include "shell/base/vkbmanager.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>

namespace QSP {

namespace {

constexpr qreal rowHeightOfScreenWidth = 0.046875;
constexpr int belowColumn = 7;
constexpr int belowPage = 20;

} // namespace

CardWifi::CardWifi(QQuickItem *parent) : QQuickControl(parent), m_hold(this), m_scan(this)
{
    qRegisterMetaType<HMI::SSID>("HMI::SSID");
    const GlobalInfo &info = GlobalInfo::instance();
    if (!info.hasFixedSizes())
        m_rowHeight = qMax(1, static_cast<int>(info.screenSize().width() * rowHeightOfScreenWidth));
    setFontSize(m_rowHeight * 5 / 12);

    auto *background = new BaseCard(this);
    // Else it would keep the height that cards begin with.
    background->resetHeight();
    setBackground(background);

    connect(this, &CardWifi::cardStateChanged, this, &CardWifi::showState);
    connect(this, &CardWifi::wifiReset, this, &CardWifi::onWifiReset);
    connect(&m_scan, &WifiScan::answered, this, [this](const WifiScan::Records &records) {
        m_hold.run(FingerHold::What::List, [this, records] { showNetworks(records); });
    });
    connect(&VkbManager::instance(), &VkbManager::visibleChanged, this, &CardWifi::adjustPwDialog);
}

CardWifi::~CardWifi() = default;

WifiLink &CardWifi::link() const
{
    return panelOf(this).wifi();
}

// --- The page ---

void CardWifi::componentComplete()
{
    QQuickControl::componentComplete();
    addTexts();
    addParts();
    followScreen();
    followLink();
    onColumnHeightChanged();
    if (isVisible())
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

void CardWifi::addParts()
{
    m_column = aliasOf<QQuickItem>(this, "layout");
    m_emptyRoom = aliasOf<QQuickItem>(this, "emptyRoom");
    m_offlineText = aliasOf<QQuickItem>(this, "offlineText");
    if (m_column)
        connect(m_column, &QQuickItem::heightChanged, this, &CardWifi::onColumnHeightChanged);
    if (auto *container = aliasOf<QQuickItem>(this, "list")) {
        m_list = new WifiList(container, m_rowHeight, link().attempt().refusals(), this);
        connect(m_list, &WifiList::chosen, this, &CardWifi::onChosen);
        connect(m_list, &WifiList::shownChanged, this, &CardWifi::showEmptiness);
    }
    if (auto *container = aliasOf<QQuickItem>(this, "current"))
        m_current = new WifiCurrentRow(container, m_rowHeight, this);
    m_controls = new WifiControls(this, m_rowHeight, m_fontSize);
    connect(m_controls, &WifiControls::scanClicked, this, &CardWifi::onClickScanWifi);
    connect(m_controls, &WifiControls::resetClicked, this, &CardWifi::wifiReset);
    m_returnButton = addWifiReturnButton(this);
    if (m_returnButton)
        m_returnButton->setVisible(isVisible());
}

void CardWifi::followScreen()
{
    AppRootItem *root = rootOf(this);
    QQuickItem *titleBar = root ? root->titleBar() : nullptr;
    if (!titleBar)
        return;
    connect(titleBar, &QQuickItem::heightChanged, this, &CardWifi::titleHeightChanged);
    connect(titleBar, &QQuickItem::heightChanged, this, &CardWifi::onColumnHeightChanged);
}

void CardWifi::followLink()
{
    connect(&link(), &WifiLink::wasRead, this,
            [this] { m_hold.run(FingerHold::What::Link, [this] { showJoined(); }); });
    connect(&panelOf(this), &Panel::wasRead, this, [this] {
        if (isVisible())
            link().refresh();
    });
    JoinAttempt &attempt = link().attempt();
    connect(&attempt, &JoinAttempt::stateChanged, this, &CardWifi::onAttempt);
    connect(&attempt, &JoinAttempt::joined, this, &CardWifi::onJoined);
    attempt.setNearby(
        [list = QPointer<WifiList>(m_list)](const HMI::SSID &ssid) { return list && list->isNearby(ssid); });
}

void CardWifi::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickControl::itemChange(change, data);
    if (change == ItemSceneChange)
        m_hold.setWindow(data.window);
    if (change != ItemVisibleHasChanged)
        return;
    if (m_returnButton)
        m_returnButton->setVisible(data.boolValue);
    if (!isComponentComplete())
        return;
    if (data.boolValue) {
        // With the whole screen it is seen before the screen has begun a new moment; while a screen dies, for
        // no moment at all.
        const AppRootItem *root = rootOf(this);
        if (window() && (!root || root->isOpen()))
            updateCurrentWifi();
        return;
    }
    m_hold.forget();
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
    if (m_controls)
        m_controls->show(isScanning(), m_dialog && !isScanning() ? m_dialog->busyPlace() : nullptr);
}

// --- The list ---

void CardWifi::onClickScanWifi()
{
    if (!isScanning())
        scanWifi();
}

void CardWifi::scanWifi()
{
    // By the state, not by the indicator, which is invisible while another page is shown. The dialog is modal:
    // while it turns there, only a finger that was down before can ask for anything else.
    if (isScanning() || m_controls->isBusyInPlace())
        return;
    setState(Scanning);
    m_hold.drop(FingerHold::What::List);
    m_scan.scan();
}

void CardWifi::showNetworks(const WifiScan::Records &records)
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
    link().reset();
    if (m_dialog)
        m_dialog->close();
    if (m_current)
        m_current->hide();
    showOffline();
    if (m_list)
        m_list->clear();
    if (isScanning())
        return;
    setState(Scanning);
    m_hold.drop(FingerHold::What::List);
    m_scan.reset();
}

// --- The joined network ---

bool CardWifi::isConnected()
{
    return callService<&HMI::SystemSet::isWifiConnected>();
}

QString CardWifi::getSsid()
{
    return getSsidFromCurWifi(callService<&HMI::SystemSet::currentWifiSsid>());
}

void CardWifi::updateCurrentWifi()
{
    link().read();
}

void CardWifi::showJoined()
{
    showOffline();
    const WifiLink &link = this->link();
    if (!m_list || !m_current)
        return;
    if (link.isConnected() && !isEmptySsid(link.ssid())) {
        m_list->setJoined(link.ssid());
        m_current->show(link.name(), link.signalStrength(), m_fontSize);
        return;
    }
    if (link.isConnected() && isScanning())
        return;
    m_current->hide();
    // What was hidden as joined is a network like any other again.
    m_list->showAll();
}

// In the room of the row, which is empty then. A network whose name is not known yet is no reason to say so.
void CardWifi::showOffline()
{
    if (m_offlineText)
        m_offlineText->setVisible(!link().isConnected());
}

// --- Joining ---

void CardWifi::onChosen(int index)
{
    // A copy: what is called below may rebuild the list.
    const WifiInfo info = m_list->infos().value(index);
    openPwDialog(info.ssid);
    if (info.needsPassword == 0 || !info.password.isEmpty())
        connectWifi(info.ssid, info.password);
}

void CardWifi::openPwDialog(const HMI::SSID &ssid)
{
    if (!m_dialog) {
        m_dialog = new WifiJoinDialog(this, link().attempt(), m_fontSize);
        connect(m_dialog, &WifiJoinDialog::confirmed, this, &CardWifi::onClickConFirm);
    }
    if (m_state == Connecting) {
        link().read();
        m_dialog->showAttempt(isEmptySsid(link().ssid()) ? getSsidFromScan(link().attempt().ssid())
                                                         : link().name());
    } else {
        m_dialog->askFor(ssid);
    }
    showState();
}

void CardWifi::onClickConFirm()
{
    if (!m_dialog)
        return;
    const HMI::SSID ssid = m_dialog->ssid();
    const QString password = m_dialog->password();
    m_dialog->endEditing();
    // A network that the last scan did not find may be there all the same: the service will say.
    if (WifiInfo *info = m_list ? m_list->findWifiBySsid(ssid) : nullptr) {
        overwrite(info->password);
        // Not shared with the field, which overwrites its own when it is closed.
        info->password = QString(password.constData(), password.size());
    }
    connectWifi(ssid, password);
}

void CardWifi::connectWifi(HMI::SSID wifiname, const QString &password)
{
    link().attempt().begin(wifiname, password);
}

void CardWifi::onAttempt(JoinAttempt::State state)
{
    if (m_dialog)
        m_dialog->follow(state);
    switch (state) {
    case JoinAttempt::State::Asked:
    case JoinAttempt::State::Connecting:
        setState(Connecting);
        break;
    case JoinAttempt::State::AwaitingName:
        setState(Connected);
        break;
    case JoinAttempt::State::Offline:
    case JoinAttempt::State::TimedOut:
    case JoinAttempt::State::WrongPassword:
    case JoinAttempt::State::Overdue:
        setState(Idle);
        break;
    case JoinAttempt::State::Idle:
    case JoinAttempt::State::AwaitingLease:
    case JoinAttempt::State::Joined:
        break;
    }
    // The dialog may show something else in the same state.
    showState();
    if (state == JoinAttempt::State::WrongPassword && m_list)
        m_list->dropRefused();
    if (state == JoinAttempt::State::Offline)
        scanWifi();
}

void CardWifi::onJoined()
{
    if (m_dialog)
        m_dialog->closeAfterJoining();
    emit connectedChanged(true);
}

void CardWifi::adjustPwDialog()
{
    if (m_dialog)
        m_dialog->adjust();
}

} // namespace QSP
