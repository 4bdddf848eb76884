#include "shell/base/servicestopwatch.h"

#include "shell/base/logging.h"

#include <QtCore/QHash>

#include <ctime>

namespace QSP {

namespace {

constexpr qint64 silence = 60000;

} // namespace

ServiceStopwatch::Clock ServiceStopwatch::s_clock = &ServiceStopwatch::machineTime;

void ServiceStopwatch::setClock(Clock clock)
{
    s_clock = clock ? clock : &machineTime;
}

qint64 ServiceStopwatch::machineTime()
{
    // Some ten milliseconds coarse, and so cheap that each call of the service can be measured.
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
}

void ServiceStopwatch::tell(qint64 end) const
{
    // When each was told of last; on the GUI thread, as all calls that are measured.
    static QHash<const char *, qint64> told;
    const auto last = told.constFind(m_operation);
    if (last != told.constEnd() && end - *last < silence)
        return;
    told.insert(m_operation, end);
    qCWarning(logService, "%s: the service kept the screen waiting for %lld ms", m_operation, end - m_begin);
}

} // namespace QSP
