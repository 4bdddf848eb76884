#include "tests/linux/networkmanager/watchedapplication.h"

#include <QtCore/QThread>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

qint64 read(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

} // namespace

struct WatchedApplication::Moment {
    qint64 clock;
    qint64 worked; ///< by this thread
    qint64 queued; ///< while others had the processor
    long sleeps;
};

WatchedApplication::WatchedApplication(int &argc, char **argv)
    : QGuiApplication(argc, argv), m_schedule(::open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC))
{}

WatchedApplication::~WatchedApplication()
{
    ::close(m_schedule);
}

bool WatchedApplication::notify(QObject *receiver, QEvent *event)
{
    // Events of other threads pass here too, and some come while another is handled.
    if (m_depth > 0 || QThread::currentThread() != thread())
        return QGuiApplication::notify(receiver, event);
    const Moment before = now();
    ++m_depth;
    const bool isHandled = QGuiApplication::notify(receiver, event);
    --m_depth;
    const Moment after = now();
    if (after.sleeps != before.sleeps)
        m_longest = std::max(m_longest, (after.clock - before.clock) - (after.worked - before.worked) -
                                            (after.queued - before.queued));
    return isHandled;
}

WatchedApplication::Moment WatchedApplication::now() const
{
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    std::array<char, 128> text = {};
    qint64 queued = 0;
    // The time on the processor, and the time that it was waited for.
    if (::pread(m_schedule, text.data(), text.size() - 1, 0) > 0) {
        char *end = nullptr;
        std::strtoll(text.data(), &end, 10);
        queued = std::strtoll(end, nullptr, 10);
    }
    return {read(CLOCK_MONOTONIC), read(CLOCK_THREAD_CPUTIME_ID), queued, usage.ru_nvcsw};
}
