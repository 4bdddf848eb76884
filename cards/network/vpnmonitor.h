#pragma once

#include "cards/network/monitortimer.h"
#include "cards/network/statustext.h"

#include <QtCore/QPointer>

namespace QSP {

class ComboBox;
class Panel;

/// Keeps the state of the VPN fresh while it is selected, and offers its servers.
class VpnMonitor : public QObject
{
    Q_OBJECT

public:
    VpnMonitor(QObject *timerOwner, Panel &panel);

    StatusText &stateText() { return m_state; }
    /// Fills the list of servers, selects the one in use and keeps both right. It can be changed only while
    /// the VPN is off.
    void setServerBox(ComboBox *box);

    /// Starts the refreshing, and shows at once what was read.
    void start();
    void stop() { m_timer.stop(); }
    /// Pauses the refreshing, or goes on with it and shows at once what was read.
    void setPaused(bool paused);
    /// Shows what was read.
    void update();
    /// Reads again, and shows it.
    void refresh();

private:
    void translateServers();
    void showServer();
    void chooseServer();

    Panel &m_panel;
    MonitorTimer m_timer;
    StatusText m_state;
    QPointer<ComboBox> m_servers;
    bool m_showing = false;
};

} // namespace QSP
