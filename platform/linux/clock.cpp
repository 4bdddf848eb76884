#include "linux/clock.h"

#include "linux/ask.h"
#include "linux/bus.h"
#include "linux/log.h"

#include <QtCore/QTimer>

namespace HmiLinux {

namespace {

// What 32 bits hold: file systems and hardware clocks of panels do not go beyond.
constexpr qint64 g_latest = 0x7FFFFFFF;
constexpr qint64 g_microseconds = 1000000;
// The daemon refuses a time until the service that kept it has stopped.
constexpr int g_attempts = 15;
constexpr int g_pause = 50;

QDBusMessage call(const char *method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.timedate1"),
                                          QStringLiteral("/org/freedesktop/timedate1"),
                                          QStringLiteral("org.freedesktop.timedate1"), QLatin1String(method));
}

} // namespace

Clock::Clock(const Bus *bus, QObject *parent) : QObject(parent), m_bus(bus) {}

bool Clock::canHold(qint64 seconds)
{
    return seconds >= 0 && seconds <= g_latest;
}

void Clock::set(qint64 seconds, const OnSet &done)
{
    if (!canHold(seconds))
        return done(false);
    attempt(seconds, done, g_attempts);
}

void Clock::attempt(qint64 seconds, const OnSet &done, int attempts)
{
    QDBusMessage question = call("SetTime");
    question << qlonglong(seconds * g_microseconds) << false << false;
    askStarting(
        m_bus->connection(), question, this, [this, seconds, done, attempts](const QDBusMessage &answer) {
            if (!isError(answer))
                return done(true);
            const bool isKept =
                answer.errorName() == QLatin1String("org.freedesktop.timedate1.AutomaticTimeSyncEnabled");
            if (!isKept || attempts == 0) {
                qCWarning(clockLog, "the clock stays as it is: %s", qPrintable(reasonOf(answer)));
                return done(false);
            }
            if (attempts == g_attempts)
                return stopSynchronisation(seconds, done, attempts - 1);
            QTimer::singleShot(g_pause, this,
                               [this, seconds, done, attempts] { attempt(seconds, done, attempts - 1); });
        });
}

void Clock::stopSynchronisation(qint64 seconds, const OnSet &done, int attempts)
{
    QDBusMessage question = call("SetNTP");
    question << false << false;
    askStarting(m_bus->connection(), question, this,
                [this, seconds, done, attempts](const QDBusMessage &answer) {
                    if (isError(answer)) {
                        qCWarning(clockLog, "the clock stays as it is: %s", qPrintable(reasonOf(answer)));
                        return done(false);
                    }
                    attempt(seconds, done, attempts);
                });
}

} // namespace HmiLinux
