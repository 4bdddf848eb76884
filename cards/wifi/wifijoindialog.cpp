#include "cards/wifi/wifijoindialog.h"

#include "panel/ssid.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/QQuickItem>

namespace QSP {

WifiJoinDialog::WifiJoinDialog(QQuickItem *card, const JoinAttempt &attempt, int fontPixelSize)
    : QObject(card), m_attempt(attempt), m_dialog(new WifiPasswordDialog(card, fontPixelSize))
{
    connect(m_dialog, &WifiPasswordDialog::confirmed, this, &WifiJoinDialog::confirmed);
}

void WifiJoinDialog::askFor(const HMI::SSID &ssid)
{
    m_ssid = ssid;
    m_dialog->setBodyVisible(true);
    m_dialog->setStatus(QT_TRANSLATE_NOOP("CardWifi", "Enter password"));
    m_dialog->open(getSsidFromScan(ssid));
}

void WifiJoinDialog::showAttempt(const QString &title)
{
    begin();
    m_dialog->open(title);
}

void WifiJoinDialog::begin()
{
    m_ssid = m_attempt.ssid();
    m_dialog->setBodyVisible(false);
    m_dialog->setStatus(QT_TRANSLATE_NOOP("CardWifi", "Connecting"));
}

void WifiJoinDialog::follow(JoinAttempt::State state)
{
    switch (state) {
    case JoinAttempt::State::Asked:
        begin();
        // It may have been opened to show the attempt that this one replaces.
        m_dialog->setTitle(getSsidFromScan(m_ssid));
        break;
    case JoinAttempt::State::Offline:
        fail(QT_TRANSLATE_NOOP("CardWifi", "Wi-Fi Offline"));
        break;
    case JoinAttempt::State::TimedOut:
    case JoinAttempt::State::Overdue:
        fail(QT_TRANSLATE_NOOP("CardWifi", "Time out"));
        break;
    case JoinAttempt::State::WrongPassword:
        fail(QT_TRANSLATE_NOOP("CardWifi", "Wrong password"));
        break;
    case JoinAttempt::State::Idle:
    case JoinAttempt::State::Connecting:
    case JoinAttempt::State::AwaitingName:
    case JoinAttempt::State::AwaitingLease:
    case JoinAttempt::State::Joined:
        break;
    }
}

void WifiJoinDialog::fail(const char *text)
{
    if (!isAboutAttempt())
        return;
    m_dialog->setTitle(getSsidFromScan(m_ssid));
    m_dialog->setBodyVisible(true);
    m_dialog->setStatus(text, true);
}

void WifiJoinDialog::closeAfterJoining()
{
    if (isAboutAttempt())
        close();
}

QQuickItem *WifiJoinDialog::busyPlace() const
{
    const bool isShown = isAboutAttempt() && m_attempt.isUnderWay() && !m_dialog->isBodyVisible();
    return isShown ? m_dialog->busyPlace() : nullptr;
}

} // namespace QSP
