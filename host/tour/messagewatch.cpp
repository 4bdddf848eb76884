#include "host/tour/messagewatch.h"

#include <QtCore/QtGlobal>

#include <atomic>

namespace MessageWatch {

namespace {

std::atomic<int> g_count{0};
QtMessageHandler g_previous = nullptr;

void watch(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
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
