#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>

/// How long a call of this thread takes, without the time for which the thread could go on and others had the
/// processor: that is the machine's doing. What the call itself waits for counts.
class CallTimer
{
public:
    void start()
    {
        m_waitedBefore = waited();
        m_timer.start();
    }
    qint64 nsecsElapsed() const
    {
        const qint64 elapsed = m_timer.nsecsElapsed();
        return elapsed - (waited() - m_waitedBefore);
    }

private:
    // The second of the numbers: nanoseconds on a run queue.
    static qint64 waited()
    {
        QFile file(QStringLiteral("/proc/thread-self/schedstat"));
        const QByteArray numbers = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        return numbers.split(' ').value(1).toLongLong();
    }

    QElapsedTimer m_timer;
    qint64 m_waitedBefore = 0;
};
