#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include <functional>

namespace HmiLinux {

class Bus;

/// The system clock, set through timedated. It copies the time to the hardware clock by itself.
class Clock : public QObject
{
    Q_OBJECT

public:
    using OnSet = std::function<void(bool)>;

    explicit Clock(const Bus *bus, QObject *parent = nullptr);

    /// Whether clocks of panels can hold the time.
    static bool canHold(qint64 seconds);
    /// Sets the clock to @p seconds since the Unix epoch; @p done says whether it is. Where the network keeps the
    /// time, it does so no longer.
    void set(qint64 seconds, const OnSet &done);

private:
    void attempt(qint64 seconds, const OnSet &done, int attempts);
    void stopSynchronisation(qint64 seconds, const OnSet &done, int attempts);

    const Bus *m_bus;
};

} // namespace HmiLinux
