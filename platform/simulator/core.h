#pragma once

#include "simulator/callbackthread.h"
#include "simulator/journal.h"
#include "simulator/panel.h"
#include "simulator/panelclock.h"

#include <mutex>
#include <random>

namespace HmiSimulator {

/// What the service and the control interface share: the panel behind its
/// lock, the journal and the callback thread. No lock is held while a callback runs.
class Core
{
public:
    static Core &instance();

    /// Runs @p look with the panel locked and returns what it returns.
    template <class Look> auto read(Look look) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return look(static_cast<const Panel &>(m_panel));
    }
    template <class Edit> auto write(Edit edit)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const PanelClock::Follower clock(m_panel);
        return edit(m_panel);
    }
    /// Another panel: everything under way is forgotten first.
    void replace(Panel panel);
    /// Another panel, and nothing remembered.
    void reset();

    Journal &journal() { return m_journal; }
    CallbackThread &thread() { return m_thread; }
    /// A number from -@p range to @p range; the sequence begins anew with every panel.
    int drift(int range);

    /// Counts the attempts to join a network; an older one no longer changes anything.
    std::uint64_t beginAttempt();
    bool isAttempt(std::uint64_t attempt) const;

private:
    Core();

    mutable std::mutex m_mutex;
    Panel m_panel;
    mutable std::mutex m_driftMutex;
    std::minstd_rand m_random;
    std::atomic<std::uint64_t> m_attempt{0};
    Journal m_journal;
    CallbackThread m_thread; // last: its jobs use all of the above
};

} // namespace HmiSimulator
