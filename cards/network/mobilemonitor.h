#pragma once

#include "cards/network/monitortimer.h"
#include "cards/network/statustext.h"

class QQuickImage;

namespace QSP {

/// Keeps the signal and the state of the 4G modem fresh while 4G is selected and enabled.
class MobileMonitor : public QObject
{
    Q_OBJECT

public:
    explicit MobileMonitor(QObject *card);

    void setSignalImage(QQuickImage *image) { m_signal = image; }
    StatusText &stateText() { return m_state; }

    /// Starts the refreshing, or stops it and shows a modem without a link.
    void setup(bool enable);
    void stop() { m_timer.stop(); }
    /// Pauses the refreshing, or goes on with it and refreshes at once.
    void setPaused(bool paused);
    /// Shows a modem without a link.
    void clear();
    /// Asks the service.
    void update();

private:
    MonitorTimer m_timer;
    QQuickImage *m_signal = nullptr;
    StatusText m_state;
};

} // namespace QSP
