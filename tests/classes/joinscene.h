#pragma once

#include "panel/wifilink.h"
#include "shell/base/logging.h"
#include "tests/classes/wifireports.h"
#include "tests/support/journal.h"
#include "tests/support/paneltest.h"

#include <QtCore/QMetaEnum>

inline HMI::SSID ssidOf(const QByteArray &name)
{
    HMI::SSID ssid{};
    std::copy(name.begin(), name.end(), ssid.begin());
    return ssid;
}

/// A link with an attempt, on a panel that has joined nothing and reports by hand. No window.
class JoinScene : public WifiReports
{
public:
    using State = QSP::JoinAttempt::State;
    using Report = QSP::JoinAttempt::Report;

    JoinScene()
    {
        link.attempt().setNearby([](const HMI::SSID &) { return true; });
    }

    QSP::JoinAttempt &attempt() { return link.attempt(); }
    State state() { return attempt().state(); }
    void begin(const QByteArray &name = "Plant", const QString &password = {})
    {
        attempt().begin(ssidOf(name), password);
    }
    void deliver(Report report)
    {
        if (report == Report::NewAttempt)
            begin("another");
        else if (report == Report::Reset)
            attempt().reset();
        else
            attempt().take(report);
    }
    /// The shortest way there, while the panel knows no name.
    void reach(State state)
    {
        static const QMap<State, QVector<Report>> ways{
            {State::Asked, {}},
            {State::Connecting, {Report::Connecting}},
            {State::AwaitingName, {Report::Connected}},
            {State::AwaitingLease, {Report::Connected, Report::NameKnown}},
            {State::Joined, {Report::Connected, Report::AddressKnown}},
            {State::Offline, {Report::Offline}},
            {State::TimedOut, {Report::TimedOut}},
            {State::WrongPassword, {Report::WrongPassword}},
            {State::Overdue, {Report::LimitReached}},
        };
        if (state == State::Idle)
            return;
        begin();
        for (const Report report : ways[state])
            deliver(report);
    }

    /// Prepares the panel.
    static void init()
    {
        HmiSimulator::reset();
        HmiSimulator::setManual(true);
        HmiSimulator::leaveNetwork();
        setAddress(0);
        HmiSimulator::clearJournal();
    }
    static void setAddress(HMI::IP address)
    {
        HmiSimulator::setLiveAddress(HMI::SystemSet::WIFI, address, 0xFFFFFF00, 0);
    }

    QTimer *limit() { return attempt().findChild<QTimer *>(QStringLiteral("joinLimit")); }

    QSP::WifiLink link;
};
