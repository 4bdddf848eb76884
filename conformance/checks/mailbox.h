#pragma once

#include "conformance/checks/endwatch.h"
#include "conformance/checks/repeats.h"

#include <deque>
#include <memory>
#include <mutex>
#include <thread>

namespace Conformance {

/// Whether a request reports once, or as it goes on.
enum class Reports { Once, Several };

/// The reports of one request, as they come, from whatever thread. The function given to the service shares it, so
/// that a report that comes after its check has ended finds it alive.
template <class Report> class Mailbox
{
public:
    /// Made by the thread that asks, just before it does; @p operation is a literal.
    explicit Mailbox(const char *operation, Reports reports = Reports::Once)
        : m_operation(operation), m_isOnce(reports == Reports::Once)
    {}

    void put(Report report)
    {
        const auto after = std::chrono::duration_cast<Milliseconds>(Clock::now() - m_asked);
        EndWatch::heard(m_operation, after);
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_reports.empty()) {
            m_after = after;
            m_isForeign = std::this_thread::get_id() != m_asker;
        } else if (m_isOnce) {
            noteRepeat(m_operation);
        }
        m_reports.push_back(std::move(report));
    }
    /// The call has returned.
    void returned()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isWithinCall = !m_reports.empty() && !m_isForeign;
    }

    std::size_t count() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_reports.size();
    }
    bool isEmpty() const { return count() == 0; }
    /// The report at @p index, which must have come.
    const Report &at(std::size_t index) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_reports.at(index); // later reports move none of those before
    }
    /// How the first report came, for the reader.
    std::string origin() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const char *thread = m_isForeign      ? "on another thread"
                             : m_isWithinCall ? "from within the call"
                                              : "on the calling thread";
        return std::string(m_operation) + " reported " + thread + ", after " +
               std::to_string(m_after.count()) + " ms";
    }

private:
    using Clock = std::chrono::steady_clock;

    const char *m_operation;
    const bool m_isOnce;
    const std::thread::id m_asker = std::this_thread::get_id();
    const Clock::time_point m_asked = Clock::now();
    mutable std::mutex m_mutex;
    std::deque<Report> m_reports;
    Milliseconds m_after{0};
    bool m_isForeign = false;
    bool m_isWithinCall = false;
};

} // namespace Conformance
