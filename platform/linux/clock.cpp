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
constexpr int g_attempts = 60;
constexpr int g_pause = 50;

QString service()
{
    return QStringLiteral("org.freedesktop.timedate1");
}

QString path()
{
    return QStringLiteral("/org/freedesktop/timedate1");
}

QDBusMessage call(const char *method)
{
    return QDBusMessage::createMethodCall(service(), path(), service(), QLatin1String(method));
}

} // namespace

Clock::Clock(const Bus *bus, QObject *parent) : QObject(parent), m_bus(bus) {}

bool Clock::canHold(qint64 seconds)
{
    return seconds >= 0 && seconds <= g_latest;
}

void Clock::set(qint64 seconds, const OnSet &done, const IsWanted &isWanted)
{
    if (!canHold(seconds))
        return done(false);
    // A daemon that has to be started first keeps what it is asked, and would do it when nobody waits any more.
    const QDBusMessage greeting = QDBusMessage::createMethodCall(
        service(), path(), QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    const Question question{seconds, done, isWanted};
    askStarting(m_bus->connection(), greeting, this, [this, question](const QDBusMessage &answer) {
        if (isError(answer))
            fail(question, answer);
        else
            attempt(question, g_attempts);
    });
}

void Clock::attempt(const Question &question, int attempts)
{
    if (!question.isWanted())
        return question.done(false);
    QDBusMessage setting = call("SetTime");
    setting << qlonglong(question.seconds * g_microseconds) << false << false;
    askStarting(m_bus->connection(), setting, this, [this, question, attempts](const QDBusMessage &answer) {
        if (!isError(answer))
            return question.done(true);
        const bool isKept =
            answer.errorName() == QLatin1String("org.freedesktop.timedate1.AutomaticTimeSyncEnabled");
        if (!isKept || attempts == 0)
            return fail(question, answer);
        if (attempts == g_attempts)
            return stopSynchronisation(question, attempts - 1);
        QTimer::singleShot(g_pause, this, [this, question, attempts] { attempt(question, attempts - 1); });
    });
}

void Clock::stopSynchronisation(const Question &question, int attempts)
{
    QDBusMessage stopping = call("SetNTP");
    stopping << false << false;
    askStarting(m_bus->connection(), stopping, this, [this, question, attempts](const QDBusMessage &answer) {
        if (isError(answer))
            fail(question, answer);
        else
            attempt(question, attempts);
    });
}

void Clock::fail(const Question &question, const QDBusMessage &answer)
{
    qCWarning(clockLog, "the clock stays as it is: %s", qPrintable(reasonOf(answer)));
    question.done(false);
}

} // namespace HmiLinux
