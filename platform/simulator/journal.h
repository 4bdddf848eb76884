#pragma once

#include "simulator/simulator.h"

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>

namespace HmiSimulator {

/// Every call of the service, kept up to a bound. Thread-safe.
class Journal
{
public:
    void record(Kind kind, std::string operation, std::vector<std::string> arguments);
    /// Cheap enough to stand in front of every getter.
    bool wantsGetters() const { return m_getters.load(std::memory_order_relaxed); }
    void setGetters(bool on) { m_getters.store(on, std::memory_order_relaxed); }

    std::vector<Entry> entries() const;
    std::uint64_t dropped() const;
    void clear();
    void watch(std::function<void(const Entry &)> watcher);

private:
    mutable std::mutex m_mutex;
    std::deque<Entry> m_entries;
    std::function<void(const Entry &)> m_watcher;
    std::uint64_t m_sequence = 0;
    std::uint64_t m_dropped = 0;
    std::atomic<bool> m_getters{false};
};

} // namespace HmiSimulator
