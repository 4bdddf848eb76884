#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

namespace HmiLinux {

class Bus;

/// The system clock, set through timedated. It copies the time to the hardware clock by itself.
class Clock : public QObject
{
    Q_OBJECT

public:
    using OnSet = std::function<void(bool)>;
    using IsWanted = std::function<bool()>;

    explicit Clock(const Bus *bus, QObject *parent = nullptr);

    /// Whether clocks of panels can hold the time.
    static bool canHold(qint64 seconds);
    /// Sets the clock to @p seconds since the Unix epoch; @p done says whether it is. Where the network keeps the
    /// time, it does so no longer. Nothing is set any more once it is not wanted.
    void set(qint64 seconds, const OnSet &done, const IsWanted &isWanted);

private:
    struct Question {
        qint64 seconds;
        OnSet done;
        IsWanted isWanted;
    };

    void attempt(const Question &question, int attempts);
    void stopSynchronisation(const Question &question, int attempts);
    static void fail(const Question &question, const QDBusMessage &answer);

    const Bus *m_bus;
};

} // namespace HmiLinux
