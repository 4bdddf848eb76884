#include "simulator/journal.h"

#include <unistd.h>

namespace HmiSimulator {

namespace {

constexpr std::size_t MaximumEntries = 10000;

} // namespace

std::string Entry::text() const
{
    std::string text = operation + '(';
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0)
            text += ", ";
        text += arguments[i];
    }
    return text + ')';
}

void Journal::record(Kind kind, std::string operation, std::vector<std::string> arguments)
{
    const pid_t thread = gettid();
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_entries.size() == MaximumEntries) {
        m_entries.pop_front();
        ++m_dropped;
    }
    m_entries.push_back(
        {++m_sequence, kind, std::move(operation), std::move(arguments), thread == getpid(), thread});
    if (m_watcher)
        m_watcher(m_entries.back());
}

void Journal::watch(std::function<void(const Entry &)> watcher)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_watcher = std::move(watcher);
}

std::vector<Entry> Journal::entries() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return {m_entries.begin(), m_entries.end()};
}

std::uint64_t Journal::dropped() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_dropped;
}

void Journal::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.clear();
    m_dropped = 0;
}

} // namespace HmiSimulator
