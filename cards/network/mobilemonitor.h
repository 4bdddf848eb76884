#pragma once

#include "cards/network/monitortimer.h"
#include "cards/network/statustext.h"

class QQuickImage;

namespace QSP {

class Panel;

/// Keeps the signal and the state of the 4G modem fresh while 4G is selected and enabled.
class MobileMonitor : public QObject
{
    Q_OBJECT

public:
    MobileMonitor(QObject *timerOwner, Panel &panel);

    void setSignalImage(QQuickImage *image) { m_signal = image; }
    StatusText &stateText() { return m_state; }

    /// Starts the refreshing, or stops it and shows a modem without a link.
    void setup(bool enable);
    void stop() { m_timer.stop(); }
    /// Pauses the refreshing, or goes on with it and shows at once what was read.
    void setPaused(bool paused);
    /// Shows a modem without a link.
    void clear();
    /// Shows what was read.
    void update();
    /// Reads again, and shows it.
    void refresh();

private:
    Panel &m_panel;
    MonitorTimer m_timer;
    QQuickImage *m_signal = nullptr;
    StatusText m_state;
};

} // namespace QSP
