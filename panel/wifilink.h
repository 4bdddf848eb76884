#pragma once

#include "panel/joinattempt.h"

#include <optional>

namespace QSP {

/// The panel's link to a Wi-Fi network, for every card that shows or changes something of it.
///
/// It is what the service said when it was last read. Whoever has a reason reads it (a page is shown, a tick,
/// a report); everybody else uses what was read and listens. GUI thread only.
class WifiLink : public QObject
{
    Q_OBJECT

public:
    explicit WifiLink(QObject *parent = nullptr);

    /// Asks the service, for each value once.
    void read();
    /// A new moment: what was read counts no more.
    void forget() { m_reading.reset(); }
    /// read(), unless somebody did since forget().
    void refresh();

    // As last read; the first use reads.

    /// Whether the panel has joined a network.
    bool isConnected() const { return reading().isConnected; }
    /// The name of the joined network as bytes; all zero when there is none, or it is not known yet.
    HMI::SSID ssid() const { return reading().ssid; }
    /// The same as it is shown; empty when there is none.
    QString name() const;
    /// Strength of the link in percent; below 1 it is no reading.
    int signalStrength() const { return reading().signalStrength; }

    /// The newest attempt to join a network.
    JoinAttempt &attempt() { return m_attempt; }

    /// The operator asked for a reset of the Wi-Fi settings, which ends the attempt.
    void reset();

signals:
    /// After every reading, also one that found nothing new.
    void wasRead();
    /// A reading found something new.
    void changed();
    void wasReset();

private:
    struct Reading {
        bool isConnected = false;
        HMI::SSID ssid{};
        int signalStrength = 0;
    };
    static Reading ask();
    const Reading &reading() const;

    mutable std::optional<Reading> m_reading;
    JoinAttempt m_attempt{*this};
};

} // namespace QSP
