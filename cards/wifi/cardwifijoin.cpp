// Joining a network, and the password dialog, on the Wi-Fi page.

#include "cards/wifi/cardwifi.h"

#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/wifi/wifipassworddialog.h"
#include "panel/nic.h"
#include "panel/secrets.h"
#include "panel/servicelimits.h"
#include "shell/base/guithread.h"

#include <utility>

namespace QSP {

namespace {

using HMI::SystemSet;

// The network card may not exist yet; nothing has to be told then.
void tellConnecting(const CardWifi *page, bool connecting)
{
    if (CardNetwork *card = CardLinks::network(page))
        card->setWifiConnecting(connecting);
}

} // namespace

WifiPasswordDialog *CardWifi::pwDialog()
{
    if (!m_dialog) {
        m_dialog = new WifiPasswordDialog(this, m_fontSize);
        connect(m_dialog, &WifiPasswordDialog::confirmed, this, &CardWifi::onClickConFirm);
    }
    return m_dialog;
}

void CardWifi::openPwDialog()
{
    WifiPasswordDialog *dialog = pwDialog();
    m_isDialogOfAttempt = m_state == Connecting;
    showState();
    if (m_isDialogOfAttempt) {
        const HMI::SSID joining = systemSet().currentWifiSsid();
        dialog->setBodyVisible(false);
        dialog->open(isEmptySsid(joining) ? getSsidFromScan(m_attemptSsid) : getSsidFromCurWifi(joining));
        return;
    }
    if (!m_list || !m_list->findWifiBySsid(m_selectedSsid))
        return;
    dialog->setBodyVisible(true);
    dialog->setStatus(QT_TRANSLATE_NOOP("CardWifi", "Enter password"));
    dialog->open(getSsidFromScan(m_selectedSsid));
}

void CardWifi::onClickConFirm()
{
    if (!m_dialog)
        return;
    const QString password = m_dialog->password();
    m_dialog->endEditing();
    // A network that the last scan did not find may be there all the same: the service will say.
    if (WifiInfo *info = m_list ? m_list->findWifiBySsid(m_selectedSsid) : nullptr) {
        overwrite(info->password);
        // Not shared with the field, which overwrites its own when it is closed.
        info->password = QString(password.constData(), password.size());
    }
    connectWifi(m_selectedSsid, password);
}

void CardWifi::connectWifi(HMI::SSID wifiname, const QString &password)
{
    const int attempt = ++m_attempt;
    m_attemptEnded = false;
    m_attemptSsid = terminatedSsid(wifiname);
    m_attemptDigest = m_refusals.digestOf(m_attemptSsid, password);
    m_lastReport = -1;
    m_isNameAwaited = false;
    m_isDialogOfAttempt = true;
    m_joinLimit->start();
    setState(Connecting);
    if (m_dialog) {
        // It may have been opened to show the attempt that this one replaces.
        m_dialog->setTitle(getSsidFromScan(m_attemptSsid));
        m_dialog->setBodyVisible(false);
    }
    showState();
    tellConnecting(this, true);
    QByteArray utf8 = password.toUtf8();
    std::string bytes = utf8.toStdString();
    overwrite(utf8);
    systemSet().connectWifi(m_attemptSsid, bytes,
                            onGuiThread(this, [attempt](CardWifi *card, SystemSet::StateWifi result) {
                                if (attempt == card->m_attempt)
                                    card->onConnectResult(result);
                            }));
    overwrite(bytes);
}

void CardWifi::onConnectResult(SystemSet::StateWifi result)
{
    // Told twice, it would ask for a second lease or a second scan.
    if (std::exchange(m_lastReport, result) == result)
        return;
    switch (result) {
    case SystemSet::WIFI_CONNECTING:
        // Out of order: the attempt is over, and nothing would end this state again.
        if (!m_attemptEnded)
            setState(Connecting);
        break;
    case SystemSet::WIFI_CONNECTED:
        m_attemptEnded = true;
        setState(Connected);
        m_refusals.remove(m_attemptDigest);
        finishJoin();
        tellConnecting(this, false);
        break;
    case SystemSet::WIFI_OFFLINE:
        onAttemptFailed(QT_TRANSLATE_NOOP("CardWifi", "Wi-Fi Offline"));
        scanWifi();
        tellConnecting(this, false);
        break;
    case SystemSet::WIFI_TIMEOUT:
        onAttemptFailed(QT_TRANSLATE_NOOP("CardWifi", "Time out"));
        tellConnecting(this, false);
        break;
    case SystemSet::WIFI_WRONG_PASSWORD:
        m_refusals.add(m_attemptDigest);
        if (m_list)
            m_list->dropRefused();
        onAttemptFailed(QT_TRANSLATE_NOOP("CardWifi", "Wrong password"));
        tellConnecting(this, false);
        break;
    }
}

void CardWifi::onAttemptFailed(const char *text)
{
    m_attemptEnded = true;
    m_isNameAwaited = false;
    m_joinLimit->stop();
    setState(Idle);
    // A list that came meanwhile has ended the state before.
    showState();
    // The attempt has cost the network that was joined before.
    refreshCurrentWifi();
    if (!m_dialog || !concernsDialog())
        return;
    // While it was going on another network may have been tapped; the next password is for this one.
    m_selectedSsid = m_attemptSsid;
    m_dialog->setTitle(getSsidFromScan(m_attemptSsid));
    m_dialog->setBodyVisible(true);
    m_dialog->setStatus(text, true);
}

void CardWifi::onJoinOverdue()
{
    // What is still reported of it comes too late.
    ++m_attempt;
    if (m_attemptEnded)
        closeDialog_and_updateCurWifiInfo();
    else
        onConnectResult(SystemSet::WIFI_TIMEOUT);
}

// The service may know that it has joined before it knows the name; each look at the joined network tries again.
void CardWifi::finishJoin()
{
    const HMI::SSID joined = terminatedSsid(systemSet().currentWifiSsid());
    m_isNameAwaited = isEmptySsid(joined);
    if (m_isNameAwaited)
        return;
    m_joinLimit->stop();
    if (m_list && m_list->findWifiBySsid(joined))
        update_afterOnLine();
    else
        closeDialog_and_updateCurWifiInfo();
}

void CardWifi::endAttempt()
{
    ++m_attempt;
    m_isNameAwaited = false;
    m_joinLimit->stop();
    if (m_attemptEnded)
        return;
    m_attemptEnded = true;
    tellConnecting(this, false);
}

// The dialog may have been opened once more for the very network that is being joined.
bool CardWifi::concernsDialog() const
{
    return m_isDialogOfAttempt || m_selectedSsid == m_attemptSsid;
}

void CardWifi::update_afterOnLine()
{
    if (systemSet().getIp(SystemSet::WIFI) == 0)
        setDhcpAndUpdateCurWifi();
    else
        closeDialog_and_updateCurWifiInfo();
}

void CardWifi::setDhcpAndUpdateCurWifi()
{
    const int attempt = m_attempt;
    m_isLeaseAwaited = true;
    systemSet().setDHCP(SystemSet::WIFI, true,
                        onGuiThread(this,
                                    [attempt](CardWifi *card, SystemSet::DHCP_STATE) {
                                        if (attempt == card->m_attempt &&
                                            std::exchange(card->m_isLeaseAwaited, false))
                                            card->closeDialog_and_updateCurWifiInfo();
                                    }),
                        true);
}

void CardWifi::closeDialog_and_updateCurWifiInfo()
{
    m_isNameAwaited = false;
    if (m_dialog && concernsDialog())
        m_dialog->close();
    emit connectedChanged(true);
    refreshCurrentWifi();
    CardNetwork *card = CardLinks::network(this);
    if (!card || !isConnected())
        return;
    card->updateSwitchDisplay(SystemSet::WIFI);
    card->updateNetInfoDisplay(SystemSet::WIFI);
}

void CardWifi::adjustPwDialog()
{
    if (m_dialog)
        m_dialog->adjust();
}

} // namespace QSP
