#pragma once

#include <QtCore/QTimer>

#include <functional>

/// Runs a callback once a burst of calls has died down, and again every quiet
/// period after that, until it is stopped.
class DelayTrigger : public QTimer
{
    Q_OBJECT

public:
    /// How long the calls must have stopped, in milliseconds.
    static constexpr int quietPeriod = 200;

    /// @p delay has no effect: every trigger waits for the same quiet period.
    DelayTrigger(int delay, QObject *parent);

    /// Replaces the callback; an empty one makes the expiry do nothing.
    void setCallback(std::function<void()> callback);
    /// Pushes the expiry back by the full quiet period.
    void doWork();

public slots:
    void onTimeout();

private:
    int m_delay = quietPeriod;
    std::function<void()> m_callback;
};
