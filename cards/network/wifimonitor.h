#pragma once

#include "cards/network/monitortimer.h"
#include "cards/network/statustext.h"

namespace QSP {

class CardNetwork;
class WifiTile;

/// Keeps the Wi-Fi tile fresh while Wi-Fi is selected and enabled.
class WifiMonitor : public QObject
{
    Q_OBJECT

public:
    explicit WifiMonitor(CardNetwork *card);

    void setTile(WifiTile *tile);

    /// Starts the refreshing, if Wi-Fi is selected, and refreshes at once.
    void start();
    void stop() { m_timer.stop(); }
    /// Pauses the refreshing, or goes on with it and refreshes at once.
    void setPaused(bool paused);
    void update();
    void setConnecting(bool connecting);
    /// Shows the link as it was last read.
    void show();

private:
    void watch();

    CardNetwork *m_card;
    MonitorTimer m_timer;
    StatusText m_status;
    bool m_connecting = false;
};

} // namespace QSP
