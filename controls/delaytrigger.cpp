#include "controls/delaytrigger.h"

#include <utility>

DelayTrigger::DelayTrigger(int delay, QObject *parent) : QTimer(parent)
{
    Q_UNUSED(delay)
    connect(this, &QTimer::timeout, this, &DelayTrigger::onTimeout);
}

void DelayTrigger::setCallback(std::function<void()> callback)
{
    m_callback = std::move(callback);
}

void DelayTrigger::doWork()
{
    stop();
    start(m_delay);
}

void DelayTrigger::onTimeout()
{
    // A copy: what is called may replace the callback.
    if (const auto callback = m_callback)
        callback();
}
