#include "linux/workerthread.h"

#include "linux/worker.h"

namespace HmiLinux {

WorkerThread::WorkerThread(std::unique_ptr<Worker> worker) : m_worker(std::move(worker))
{
    setObjectName(QStringLiteral("panelsettings"));
    m_worker->moveToThread(this);
}

WorkerThread::~WorkerThread()
{
    quit();
    if (QThread::currentThread() != this)
        wait();
}

void WorkerThread::run()
{
    m_worker->start();
    exec();
    m_worker.reset();
}

} // namespace HmiLinux
