#pragma once

#include <QtCore/QThread>

#include <functional>
#include <memory>

namespace HmiLinux {

class Worker;

/// The thread of a worker, which lives as long as it and ends on it.
class WorkerThread : public QThread
{
public:
    explicit WorkerThread(std::unique_ptr<Worker> worker);
    /// As end().
    ~WorkerThread() override;

    /// Of the jobs alone: it is gone once the thread has ended.
    Worker *worker() const { return m_worker.get(); }

    /// Does @p job on the thread; returns at once. Any thread; after the end of the worker nothing comes of it.
    void post(std::function<void()> job);
    /// Ends the worker, once what it was asked for is stored; returns when it has ended. Without an application
    /// object no event is delivered any more, so that it ends as it is.
    void end();

protected:
    void run() override;

private:
    QObject m_door; ///< outlives the worker, for jobs that come too late
    std::unique_ptr<Worker> m_worker;
};

} // namespace HmiLinux
