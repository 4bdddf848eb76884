#pragma once

#include <functional>
#include <mutex>
#include <vector>

namespace HmiLinux {

/// Writing that is left for later, in its order. Thread-safe; whoever comes first does it.
class FileJobs
{
public:
    void add(std::function<void()> job);
    /// Does all that there is.
    void run();

private:
    std::mutex m_running; ///< held while jobs run, so that none overtakes another
    std::mutex m_mutex;
    std::vector<std::function<void()>> m_jobs;
};

} // namespace HmiLinux
