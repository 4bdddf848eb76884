#include "host/tour/messagewatch.h"

#include <QtCore/QByteArray>

#include <atomic>

namespace MessageWatch {

namespace {

std::atomic<int> g_count{0};
QtMessageHandler g_previous = nullptr;

// What the panel's platform has to say of itself, or keeps waiting on a machine that does much else, is no fault of
// the screen.
bool isOfPlatform(const QMessageLogContext &context)
{
    if (!context.category)
        return false;
    return qstrncmp(context.category, "panelsettings.linux.", 20) == 0 ||
           qstrcmp(context.category, "panelsettings.service") == 0;
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
