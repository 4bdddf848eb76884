#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace QSP {

/// The timer of a status monitor: made on first need as a child of its owner, then reused.
///
/// While the screen is closed it is paused: what is started then begins to tick when the screen is opened.
class MonitorTimer
{
public:
    MonitorTimer(QObject *owner, int interval) : m_owner(owner), m_interval(interval) {}

    bool isMade() const { return m_timer != nullptr; }
    /// Whether it was started, be it paused or not.
    bool isRunning() const { return m_isRunning; }

    /// Makes the timer if there is none yet; true when it did. @p tick runs as long as @p monitor lives.
    template <class Monitor, class Tick> bool ensure(Monitor *monitor, Tick tick)
    {
        if (m_timer)
            return false;
        m_timer = new QTimer(m_owner);
        m_timer->setInterval(m_interval);
        QObject::connect(m_timer, &QTimer::timeout, monitor, tick);
        return true;
    }

    /// Starts it; a running one keeps its phase. True when it was not running.
    bool start()
    {
        if (!m_timer || m_isRunning)
            return false;
        m_isRunning = true;
        if (!m_isPaused)
            m_timer->start();
        return true;
    }

    void stop()
    {
        m_isRunning = false;
        if (m_timer)
            m_timer->stop();
    }

    void pause()
    {
        m_isPaused = true;
        if (m_timer)
            m_timer->stop();
    }

    /// Goes on after a pause; true when it runs, and what it keeps fresh is to be read at once.
    bool resume()
    {
        if (!m_isPaused)
            return false;
        m_isPaused = false;
        if (m_isRunning)
            m_timer->start();
        return m_isRunning;
    }

private:
    QObject *m_owner;
    int m_interval;
    QTimer *m_timer = nullptr;
    bool m_isRunning = false;
    bool m_isPaused = false;
};

} // namespace QSP
