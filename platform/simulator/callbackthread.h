#pragma once

#include "simulator/simulator.h"

#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace HmiSimulator {

/// The thread of the service: runs jobs when they fall due, or when they are
/// fired by hand. Started with the first job, joined by stop(). Thread-safe; no
/// lock is held while a job runs.
class CallbackThread
{
public:
    using Work = std::function<void()>;

    CallbackThread() = default;
    ~CallbackThread();
    CallbackThread(const CallbackThread &) = delete;
    CallbackThread &operator=(const CallbackThread &) = delete;

    /// A report: listed by pending(), waits in manual mode or when @p held.
    void scheduleReport(std::string label, int milliseconds, bool held, Work work);
    /// A change of state that takes its time.
    void scheduleState(int milliseconds, Work work);

    enum class Waiting { Keep, Drop };
    void setManual(bool manual, Waiting waiting = Waiting::Keep);
    std::vector<std::string> pending() const;
    bool fireNext(const std::string &prefix, FireOn where);
    /// Forgets all reports.
    void dropReports();
    /// Forgets everything and waits for the job that is running.
    void dropAll();
    bool waitIdle(int milliseconds);
    /// Forgets everything and ends the thread; the next job would start it again.
    void stop();

private:
    using Clock = std::chrono::steady_clock;
    struct Job {
        std::uint64_t id = 0;
        Clock::time_point due;
        bool report = false;
        bool held = false;
        bool manual = false;  ///< held by manual mode only
        bool claimed = false; ///< somebody who fires it by hand waits for its end
        std::string label;
        Work work;
    };
    using Jobs = std::list<Job>;

    void schedule(Job job);
    void run();
    Jobs::iterator nextDue();
    bool isOwnThread() const { return std::this_thread::get_id() == m_threadId; }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    Jobs m_jobs; ///< in the order in which they were asked for
    std::uint64_t m_nextId = 0;
    std::uint64_t m_running = 0; ///< id of the job under way on the thread
    bool m_manual = false;
    bool m_stopping = false;
    bool m_clearing = false;
    std::thread m_thread;
    std::thread::id m_threadId;
};

} // namespace HmiSimulator
