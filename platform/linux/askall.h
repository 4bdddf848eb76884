#pragma once

#include "linux/ask.h"

#include <QtCore/QVector>

namespace HmiLinux {

/// Calls all of @p questions at once. @p answered is handed each answer with the place of its question, @p done comes
/// after the last one, and at once where there is none.
void askAll(const QDBusConnection &bus, const QVector<QDBusMessage> &questions, QObject *context,
            const std::function<void(int, const QDBusMessage &)> &answered, const std::function<void()> &done,
            int limit = AnswerLimit);

} // namespace HmiLinux
