#pragma once

#include "cards/wifi/wifipassworddialog.h"
#include "panel/joinattempt.h"

namespace QSP {

/// The dialog of the Wi-Fi page as it is used: it asks for the password of a network, or shows how the
/// attempt to join one goes.
///
/// It is always about one network. What becomes of an attempt to join another leaves it alone, so that a
/// password can be typed meanwhile.
class WifiJoinDialog : public QObject
{
    Q_OBJECT

public:
    /// @p card owns the dialog; it appears on the screen of the card.
    WifiJoinDialog(QQuickItem *card, const JoinAttempt &attempt, int fontPixelSize);

    /// The network that it is, or was last, about.
    const HMI::SSID &ssid() const { return m_ssid; }
    QString password() const { return m_dialog->password(); }

    /// Opens it for the password of a network.
    void askFor(const HMI::SSID &ssid);
    /// Opens it to show the attempt under way, under that title.
    void showAttempt(const QString &title);
    /// Shows what has become of the attempt.
    void follow(JoinAttempt::State state);
    void close() { m_dialog->close(); }
    /// Closes it if it is about the network of the attempt.
    void closeAfterJoining();
    void endEditing() { m_dialog->endEditing(); }
    /// Keeps it clear of the on-screen keyboard.
    void adjust() { m_dialog->adjust(); }

    /// The place for the busy indicator while the attempt under way is shown; else null.
    QQuickItem *busyPlace() const;

signals:
    /// "Connect" was tapped.
    void confirmed();

private:
    bool isAboutAttempt() const { return m_ssid == m_attempt.ssid(); }
    void begin();
    void fail(const char *text);

    const JoinAttempt &m_attempt;
    WifiPasswordDialog *m_dialog;
    HMI::SSID m_ssid{};
};

} // namespace QSP
