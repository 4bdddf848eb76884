#include "tests/hostile/courier.h"

#include <utility>

namespace HostileService {

namespace {

constexpr size_t mostKept = 200;

// One that goes may have been the last to hold what it holds, so it goes when no lock is held.
void add(std::deque<Courier::Report> &queue, Courier::Report report, Courier::Report *oldest)
{
    queue.push_back(std::move(report));
    if (queue.size() > mostKept) {
        *oldest = std::move(queue.front());
        queue.pop_front();
    }
}

} // namespace

Courier::~Courier()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ends = true;
        m_sent.clear();
    }
    m_changed.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
}

void Courier::send(Report report)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_ends)
            return;
        while (m_threads.size() < threads)
            m_threads.emplace_back([this] { work(); });
        m_sent.push_back(std::move(report));
    }
    m_changed.notify_all();
}

void Courier::keep(Report report)
{
    Report oldest;
    const std::lock_guard<std::mutex> lock(m_mutex);
    add(m_kept, std::move(report), &oldest);
}

void Courier::keepForGetter(Report report)
{
    Report oldest;
    const std::lock_guard<std::mutex> lock(m_mutex);
    add(m_forGetters, std::move(report), &oldest);
}

void Courier::deliverInGetter()
{
    Report report;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_forGetters.empty())
            return;
        report = std::move(m_forGetters.front());
        m_forGetters.pop_front();
    }
    report();
}

void Courier::deliverKept()
{
    std::deque<Report> kept;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        kept.swap(m_kept);
    }
    bool here = false;
    for (const Report &report : kept) {
        here = !here;
        if (here)
            report();
        else
            send(report);
    }
}

void Courier::forgetKept()
{
    std::deque<Report> kept;
    std::deque<Report> forGetters;
    const std::lock_guard<std::mutex> lock(m_mutex);
    kept.swap(m_kept);
    forGetters.swap(m_forGetters);
}

void Courier::waitIdle()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_sent.empty() && m_working == 0; });
}

void Courier::work()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ends || !m_sent.empty(); });
        if (m_ends)
            return;
        Report report = std::move(m_sent.front());
        m_sent.pop_front();
        ++m_working;
        lock.unlock();
        report();
        report = nullptr;
        lock.lock();
        --m_working;
        m_changed.notify_all();
    }
}

} // namespace HostileService
