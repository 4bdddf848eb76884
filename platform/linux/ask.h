#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

namespace HmiLinux {

/// What the answer, or the error in its place, is handed to.
using OnAnswer = std::function<void(const QDBusMessage &)>;

/// How long a daemon may think about a request before it counts as refused, in milliseconds.
constexpr int AnswerLimit = 20000;
/// How long after a limit has passed in vain the same is asked again, in milliseconds.
constexpr int RetryTime = 1000;

/// Calls a method and returns at once. @p answered runs on the thread of @p context, never once that is gone. The
/// daemon is not started for it: one that is not there is not wanted on this device.
void ask(const QDBusConnection &bus, QDBusMessage question, QObject *context, const OnAnswer &answered,
         int limit = AnswerLimit);
/// As ask(), for daemons that live only while somebody calls them.
void askStarting(const QDBusConnection &bus, const QDBusMessage &question, QObject *context,
                 const OnAnswer &answered, int limit = AnswerLimit);

inline bool isError(const QDBusMessage &answer)
{
    return answer.type() == QDBusMessage::ErrorMessage;
}

/// Whether nobody has answered in time: what was asked about is as it was, for all that is known.
bool isUnanswered(const QDBusMessage &answer);

/// The error's name and text, for the log.
QString reasonOf(const QDBusMessage &answer);

} // namespace HmiLinux
