#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace HostileService {

/// The threads on which reports are made, and the reports that are kept back. Thread-safe; no lock is held while a
/// report is made.
class Courier
{
public:
    using Report = std::function<void()>;

    static constexpr int threads = 8;

    Courier() = default;
    /// No report is made any more when it has returned.
    ~Courier();
    Courier(const Courier &) = delete;
    Courier &operator=(const Courier &) = delete;

    /// Makes the report on one of the threads.
    void send(Report report);
    /// Keeps it until deliverKept(); the oldest is forgotten when there are too many.
    void keep(Report report);
    /// Keeps it until somebody asks a getter.
    void keepForGetter(Report report);
    /// Makes one of those, if there is one.
    void deliverInGetter();
    void deliverKept();
    void forgetKept();
    void waitIdle();

private:
    void work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::thread> m_threads;
    std::deque<Report> m_sent;
    std::deque<Report> m_kept;
    std::deque<Report> m_forGetters;
    int m_working = 0;
    bool m_ends = false;
};

} // namespace HostileService
