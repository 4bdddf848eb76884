#pragma once

#include "cards/network/monitortimer.h"
#include "cards/network/statustext.h"

namespace QSP {

class Panel;
class WifiTile;

/// Keeps the Wi-Fi tile fresh while Wi-Fi is selected and enabled.
class WifiMonitor : public QObject
{
    Q_OBJECT

public:
    WifiMonitor(QObject *timerOwner, Panel &panel);

    void setTile(WifiTile *tile);

    /// Starts the refreshing, if Wi-Fi is selected, and shows at once what was read.
    void start();
    /// The page is shown: as start(), but what was shown before is read again.
    void startAgain();
    void stop() { m_timer.stop(); }
    /// Pauses the refreshing, or goes on with it and shows at once what was read.
    void setPaused(bool paused);
    /// Shows what was read.
    void update();
    /// Reads again, and shows it.
    void refresh();
    /// Keeps the tile's text, as an attempt to join a network does while it is under way.
    void setConnecting(bool connecting);

signals:
    /// The link was looked at; @p ssid is empty when there is none.
    void statusShown(bool connected, const QString &ssid);

private:
    void watch();
    void forget();

    Panel &m_panel;
    MonitorTimer m_timer;
    StatusText m_status;
    bool m_connecting = false;
};

} // namespace QSP
