#include "shell/base/guigate.h"

#include <QtCore/QCoreApplication>

#include <mutex>

namespace QSP {

namespace {

// Never destroyed: the service may report while the process ends.
std::mutex g_mutex;
bool g_isOpen = false;

} // namespace

void GuiGate::open()
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    if (g_isOpen || !QCoreApplication::instance())
        return;
    // Called at the very beginning of the application's end, and waits there for who is just posting.
    qAddPostRoutine(&GuiGate::shut);
    g_isOpen = true;
}

void GuiGate::shut()
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_isOpen = false;
}

void GuiGate::post(std::function<void()> work)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    if (g_isOpen)
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

} // namespace QSP
