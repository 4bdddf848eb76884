#pragma once

#include "shell/base/guigate.h"
#include "shell/base/logging.h"

#include <QtCore/QPointer>
#include <QtCore/QThread>

#include <memory>
#include <tuple>
#include <utility>

namespace QSP {

/// Makes a callback for the service that does its work on the GUI thread.
///
/// The service may call the result on any thread, at once, late, several times,
/// after @p object has gone or while the application ends. Each call is queued
/// to the GUI thread; there @p work(object, arguments...) runs, unless
/// @p object no longer lives. The application is the receiver, so that nothing
/// is asked of @p object on a foreign thread. Call this on the GUI thread.
/// @p operation names in the log what is reported on; a literal.
template <class Object, class Work> auto onGuiThread(const char *operation, Object *object, Work work)
{
    GuiGate::open();
    return [guard = QPointer<Object>(object), work = std::move(work), operation](auto &&...arguments) {
        // Shared, because a report may carry what cannot be copied, such as a unique_ptr.
        auto kept = std::make_shared<std::tuple<std::decay_t<decltype(arguments)>...>>(
            std::forward<decltype(arguments)>(arguments)...);
        GuiGate::post([guard, work, kept, operation, thread = QThread::currentThreadId()] {
            logReport(operation, thread, !guard.isNull());
            if (guard)
                std::apply([&](auto &...values) { work(guard.data(), std::move(values)...); }, *kept);
        });
    };
}

} // namespace QSP
