#pragma once

#include <QtCore/QThread>

#include <memory>

namespace HmiLinux {

class Worker;

/// The thread of a worker, which lives as long as it and ends on it. Needs no application object for its end: a
/// service ends with the process, when no event is delivered any more.
class WorkerThread : public QThread
{
public:
    explicit WorkerThread(std::unique_ptr<Worker> worker);
    ~WorkerThread() override;

    Worker *worker() const { return m_worker.get(); }

protected:
    void run() override;

private:
    std::unique_ptr<Worker> m_worker;
};

} // namespace HmiLinux
