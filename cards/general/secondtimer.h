#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QTimer>

namespace QSP {

/// Fires every 1000 ms, each time just behind the change of the wall clock's second.
///
/// A timer that merely repeats keeps the distance that it began with, and begins with another one whenever the
/// machine was busy for longer than a second: what it shows would be late by up to one, or jump over one.
class SecondTimer : public QTimer
{
    Q_OBJECT

public:
    explicit SecondTimer(QObject *parent = nullptr);

    /// Starts anew when the running second ends; until then it goes on as it is.
    void startOnTheSecond();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    bool isOnTheSecond() const;

    QBasicTimer m_endOfSecond;
};

} // namespace QSP
