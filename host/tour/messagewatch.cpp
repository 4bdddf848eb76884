#include "host/tour/messagewatch.h"

#include <QtCore/QtGlobal>

#include <atomic>
#include <cstring>

namespace MessageWatch {

namespace {

std::atomic<int> g_count{0};
QtMessageHandler g_previous = nullptr;

// What the panel's platform has to say of itself is no fault of the screen.
bool isOfPlatform(const QMessageLogContext &context)
{
    static constexpr char category[] = "panelsettings.linux.";
    return context.category != nullptr && std::strncmp(context.category, category, sizeof(category) - 1) == 0;
}

void watch(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !isOfPlatform(context))
        ++g_count;
    g_previous(type, context, message);
}

} // namespace

void install()
{
    g_previous = qInstallMessageHandler(watch);
}

int count()
{
    return g_count;
}

} // namespace MessageWatch
