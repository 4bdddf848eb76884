#pragma once

#include "cards/network/monitortimer.h"
#include "cards/network/statustext.h"

#include <QtCore/QPointer>

namespace QSP {

class ComboBox;

/// Keeps the state of the VPN fresh while it is selected, and offers its servers.
class VpnMonitor : public QObject
{
    Q_OBJECT

public:
    explicit VpnMonitor(QObject *card);

    StatusText &stateText() { return m_state; }
    /// Fills the list of servers, selects the one in use and keeps both right.
    void setServerBox(ComboBox *box);
    void setFontPixelSize(int size);
    /// The server can be changed only while the VPN is off.
    void setServerEnabled(bool enabled);
    /// Selects the server in use; writes nothing.
    void showServer();

    /// Starts the refreshing, and refreshes at once.
    void start();
    void stop() { m_timer.stop(); }
    /// Pauses the refreshing, or goes on with it and refreshes at once.
    void setPaused(bool paused);
    void update();
    /// update(), if the refreshing runs.
    void refreshIfWatched();

signals:
    /// The operator chose another server.
    void serverChosen(int server);

private:
    void translateServers();

    MonitorTimer m_timer;
    StatusText m_state;
    QPointer<ComboBox> m_servers;
    bool m_showing = false;
};

} // namespace QSP
