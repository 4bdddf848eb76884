#include "cards/general/secondtimer.h"

#include <QtCore/QDateTime>
#include <QtCore/QTimerEvent>

namespace QSP {

namespace {

constexpr int second = 1000;
// Where in the second to fire. Not at its very beginning: the wall clock is kept right by slowing it down at
// times, and a tick that comes a hair too early shows the old second for another one.
constexpr int aim = 5;
constexpr int latest = 20;

// All time zones agree on it, and none has to be worked out.
int millisecondOfSecond()
{
    return static_cast<int>(QDateTime::currentMSecsSinceEpoch() % second);
}

int millisecondsUntil(int millisecond)
{
    const int until = millisecond - millisecondOfSecond();
    return until > 0 ? until : until + second;
}

} // namespace

SecondTimer::SecondTimer(QObject *parent) : QTimer(parent)
{
    setTimerType(Qt::PreciseTimer);
    setInterval(second);
}

void SecondTimer::startOnTheSecond()
{
    m_endOfSecond.start(millisecondsUntil(aim), Qt::PreciseTimer, this);
}

bool SecondTimer::isOnTheSecond() const
{
    // What counts is when the next tick falls due. That this one is handled late may be for once.
    const int next = (millisecondOfSecond() + remainingTime()) % second;
    return next > 0 && next <= latest;
}

void SecondTimer::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_endOfSecond.timerId()) {
        m_endOfSecond.stop();
        start();
        QTimerEvent tick(timerId());
        QTimer::timerEvent(&tick);
        return;
    }
    if (!m_endOfSecond.isActive() && !isOnTheSecond())
        startOnTheSecond();
    QTimer::timerEvent(event);
}

} // namespace QSP
