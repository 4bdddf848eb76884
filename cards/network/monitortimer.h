#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace QSP {

/// The timer of a status monitor: made on first need as a child of the card, then reused.
class MonitorTimer
{
public:
    MonitorTimer(QObject *card, int interval) : m_card(card), m_interval(interval) {}

    bool isRunning() const { return m_timer && m_timer->isActive(); }

    /// Makes the timer if there is none yet; true when it did. @p tick runs as long as @p monitor lives.
    template <class Monitor, class Tick> bool ensure(Monitor *monitor, Tick tick)
    {
        if (m_timer)
            return false;
        m_timer = new QTimer(m_card);
        m_timer->setInterval(m_interval);
        QObject::connect(m_timer, &QTimer::timeout, monitor, tick);
        return true;
    }

    /// Starts it; a running one keeps its phase. True when it was not running.
    bool start()
    {
        if (!m_timer || m_timer->isActive())
            return false;
        m_timer->start();
        return true;
    }

    void stop()
    {
        if (m_timer)
            m_timer->stop();
    }

private:
    QObject *m_card;
    int m_interval;
    QTimer *m_timer = nullptr;
};

} // namespace QSP
