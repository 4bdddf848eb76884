#include "linux/workerthread.h"

#include "linux/worker.h"

#include <QtCore/QCoreApplication>

namespace HmiLinux {

WorkerThread::WorkerThread(std::unique_ptr<Worker> worker) : m_worker(std::move(worker))
{
    setObjectName(QStringLiteral("panelsettings"));
    m_door.moveToThread(this);
    m_worker->moveToThread(this);
}

WorkerThread::~WorkerThread()
{
    end();
}

void WorkerThread::post(std::function<void()> job)
{
    QMetaObject::invokeMethod(&m_door, std::move(job), Qt::QueuedConnection);
}

void WorkerThread::end()
{
    if (QThread::currentThread() == this)
        return quit();
    if (QCoreApplication::instance() != nullptr)
        post([this] { m_worker->finish([this] { quit(); }); });
    else
        quit();
    wait();
}

void WorkerThread::run()
{
    m_worker->start();
    exec();
    m_worker.reset();
}

} // namespace HmiLinux
