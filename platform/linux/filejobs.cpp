#include "linux/filejobs.h"

namespace HmiLinux {

void FileJobs::add(std::function<void()> job)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_jobs.push_back(std::move(job));
}

void FileJobs::run()
{
    const std::lock_guard<std::mutex> running(m_running);
    std::vector<std::function<void()>> jobs;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        jobs.swap(m_jobs);
    }
    for (const std::function<void()> &job : jobs)
        job();
}

} // namespace HmiLinux
