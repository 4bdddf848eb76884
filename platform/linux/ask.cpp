#include "linux/ask.h"

#include <QtDBus/QDBusError>
#include <QtDBus/QDBusPendingCallWatcher>

namespace HmiLinux {

void ask(const QDBusConnection &bus, QDBusMessage question, QObject *context, const OnAnswer &answered,
         int limit)
{
    question.setAutoStartService(false);
    askStarting(bus, question, context, answered, limit);
}

void askStarting(const QDBusConnection &bus, const QDBusMessage &question, QObject *context,
                 const OnAnswer &answered, int limit)
{
    if (!bus.isConnected()) {
        // The toolkit's pending call would never end.
        const QDBusMessage refusal =
            QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("there is no bus"));
        QMetaObject::invokeMethod(
            context, [answered, refusal] { answered(refusal); }, Qt::QueuedConnection);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(question, limit), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, answered] {
        watcher->deleteLater();
        answered(watcher->reply());
    });
}

bool isUnanswered(const QDBusMessage &answer)
{
    const QDBusError::ErrorType type = QDBusError(answer).type();
    return type == QDBusError::NoReply || type == QDBusError::Timeout || type == QDBusError::TimedOut;
}

QString reasonOf(const QDBusMessage &answer)
{
    return QStringLiteral("%1 (%2)").arg(answer.errorMessage(), answer.errorName());
}

} // namespace HmiLinux
