#pragma once

#include "hmi/systemset.h"

#include <QtCore/QObject>

namespace QSP {

/// The panel's link to a Wi-Fi network, for every card that shows or changes something of it.
///
/// GUI thread only.
class WifiLink : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether the panel has joined a network.
    bool isConnected() const;
    /// The name of the joined network as bytes; all zero when there is none, or it is not known yet.
    HMI::SSID ssid() const;
    /// The same as it is shown; empty when there is none.
    QString name() const;
    /// Strength of the link in percent; below 1 it is no reading.
    int signalStrength() const;

    /// Lets those who show the strength read it again.
    void updateSignalStrength() { emit signalStrengthDue(); }

signals:
    void signalStrengthDue();
};

} // namespace QSP
