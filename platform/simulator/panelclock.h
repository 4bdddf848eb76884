#pragma once

#include "simulator/panel.h"

namespace HmiSimulator {

/// The panel's wall clock: the machine's, ahead by an offset, or one that stands, so that pictures of it are alike.
///
/// It is the wall clock of every program that links this library. Qt takes the time of day from
/// gettimeofday() alone, and the library defines that function ahead of the C library, so that whatever shows
/// QDateTime::currentDateTime() shows what was set by setSystemTime(), as it would on a panel. Nothing else
/// notices: timers run on monotonic clocks, files get the time of the kernel.
///
/// A program that loads the library later, as part of a plug-in, has found the C library's function by then. It
/// keeps the machine's time, unless it is started with LD_PRELOAD=libhmisystemset.so.
class PanelClock
{
public:
    /// Seconds since the epoch on the machine's clock.
    static long long machineSeconds();
    /// From now on the panel's clock goes, and is @p seconds ahead. Thread-safe.
    static void setOffset(long long seconds);
    /// From now on the panel's clock stands at @p seconds since the epoch. Thread-safe.
    static void standAt(long long seconds);

    /// Sets the clock by what @p panel says when the follower goes.
    class Follower
    {
    public:
        explicit Follower(const Panel &panel) : m_panel(panel) {}
        ~Follower()
        {
            if (m_panel.clockStandsAt < 0)
                setOffset(m_panel.clockOffset);
            else
                standAt(m_panel.clockStandsAt);
        }
        Follower(const Follower &) = delete;
        Follower &operator=(const Follower &) = delete;

    private:
        const Panel &m_panel;
    };
};

} // namespace HmiSimulator
