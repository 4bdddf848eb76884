#include "simulator/callbackthread.h"

#include <algorithm>

namespace HmiSimulator {

CallbackThread::~CallbackThread()
{
    stop();
}

void CallbackThread::scheduleReport(std::string label, int milliseconds, bool held, Work work)
{
    Job job;
    job.due = Clock::now() + std::chrono::milliseconds(milliseconds);
    job.report = true;
    job.held = held;
    job.label = std::move(label);
    job.work = std::move(work);
    schedule(std::move(job));
}

void CallbackThread::scheduleState(int milliseconds, Work work)
{
    Job job;
    job.due = Clock::now() + std::chrono::milliseconds(milliseconds);
    job.work = std::move(work);
    schedule(std::move(job));
}

void CallbackThread::schedule(Job job)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_stopping || m_clearing)
        return;
    job.id = ++m_nextId;
    job.manual = m_manual && job.report;
    m_jobs.push_back(std::move(job));
    if (!m_thread.joinable()) {
        m_thread = std::thread([this] { run(); });
        m_threadId = m_thread.get_id();
    }
    m_changed.notify_all();
}

void CallbackThread::setManual(bool manual, Waiting waiting)
{
    if (waiting == Waiting::Drop)
        dropReports();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_manual = manual;
    for (Job &job : m_jobs) {
        if (job.report && !job.claimed)
            job.manual = manual;
    }
    m_changed.notify_all();
}

std::vector<std::string> CallbackThread::pending() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> labels;
    for (const Job &job : m_jobs) {
        if (job.report)
            labels.push_back(job.label);
    }
    return labels;
}

bool CallbackThread::fireNext(const std::string &prefix, FireOn where)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto found = std::find_if(m_jobs.begin(), m_jobs.end(), [&prefix](const Job &job) {
        return job.report && !job.claimed && job.label.compare(0, prefix.size(), prefix) == 0;
    });
    if (found == m_jobs.end())
        return false;

    if (where == FireOn::CallingThread || isOwnThread()) {
        Jobs taken;
        taken.splice(taken.begin(), m_jobs, found);
        m_changed.notify_all();
        lock.unlock();
        taken.front().work();
        return true;
    }
    const std::uint64_t id = found->id;
    found->claimed = true;
    found->held = false;
    found->manual = false;
    found->due = Clock::time_point::min(); // ahead of everything that is merely due
    m_changed.notify_all();
    m_changed.wait(lock, [this, id] {
        return m_running != id &&
               std::none_of(m_jobs.begin(), m_jobs.end(), [id](const Job &job) { return job.id == id; });
    });
    return true;
}

void CallbackThread::dropReports()
{
    Jobs dropped; // destroyed after the lock is gone: their captures may call back
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto job = m_jobs.begin(); job != m_jobs.end();) {
        const auto current = job++;
        if (current->report)
            dropped.splice(dropped.end(), m_jobs, current);
    }
    m_changed.notify_all();
}

void CallbackThread::dropAll()
{
    Jobs dropped;
    std::unique_lock<std::mutex> lock(m_mutex);
    dropped.swap(m_jobs);
    m_changed.notify_all();
    // A callback that clears the simulator itself cannot wait for its own end.
    if (isOwnThread())
        return;
    m_clearing = true; // what the running callback asks for is forgotten as well
    m_changed.wait(lock, [this] { return m_running == 0; });
    m_clearing = false;
}

bool CallbackThread::waitIdle(int milliseconds)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] {
        return m_running == 0 && std::all_of(m_jobs.begin(), m_jobs.end(),
                                             [](const Job &job) { return job.held || job.manual; });
    });
}

void CallbackThread::stop()
{
    Jobs dropped;
    std::thread thread;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        dropped.swap(m_jobs);
        m_stopping = true;
        thread.swap(m_thread);
        m_changed.notify_all();
    }
    if (thread.get_id() == std::this_thread::get_id())
        thread.detach(); // a callback ended the process: nobody can wait for it
    else if (thread.joinable())
        thread.join();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_stopping = false;
    m_threadId = {};
}

void CallbackThread::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stopping) {
        const auto next = nextDue();
        if (next == m_jobs.end()) {
            m_changed.wait(lock);
            continue;
        }
        if (next->due > Clock::now()) {
            m_changed.wait_until(lock, Clock::time_point(next->due));
            continue;
        }
        Jobs taken;
        taken.splice(taken.begin(), m_jobs, next);
        m_running = taken.front().id;
        lock.unlock();
        taken.front().work();
        taken.clear(); // what the callback holds goes before anybody is told that it is done
        lock.lock();
        m_running = 0;
        m_changed.notify_all();
    }
}

CallbackThread::Jobs::iterator CallbackThread::nextDue()
{
    auto next = m_jobs.end();
    for (auto job = m_jobs.begin(); job != m_jobs.end(); ++job) {
        if (!job->held && !job->manual && (next == m_jobs.end() || job->due < next->due))
            next = job;
    }
    return next;
}

} // namespace HmiSimulator
