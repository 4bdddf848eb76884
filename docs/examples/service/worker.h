#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that does one piece of work after the other.
class Worker
{
public:
    Worker() : m_thread([this] { work(); }) {}
    /// What has not begun by now is dropped.
    ~Worker()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isEnding = true;
        }
        m_changed.notify_one();
        m_thread.join();
    }
    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    void later(std::function<void()> piece)
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_pieces.push_back(std::move(piece));
        }
        m_changed.notify_one();
    }

private:
    void work()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return m_isEnding || !m_pieces.empty(); });
            if (m_isEnding)
                return;
            const std::function<void()> piece = std::move(m_pieces.front());
            m_pieces.pop_front();
            lock.unlock();
            piece();
            lock.lock();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_pieces;
    bool m_isEnding = false;
    std::thread m_thread; // last, because it begins at once
};
