// Faults that the sanitizers must find, and one order that they must not take for a fault: what our suppressions
// and annotations leave of them.

#include "shell/base/guithread.h"

#include <QtCore/QCoreApplication>

#include <cstdlib>
#include <thread>

namespace {

int g_ordered = 0;
int g_raced = 0;

// Handed over by the queue alone: waiting for events would read what the other thread wrote to wake this one.
void passOn(QCoreApplication &app)
{
    bool isCalled = false;
    std::thread thread([call = QSP::onGuiThread("report", &app, [&isCalled](QCoreApplication *) {
                            ++g_ordered;
                            isCalled = true;
                        })] {
        ++g_ordered;
        call();
    });
    while (!isCalled)
        QCoreApplication::sendPostedEvents();
    thread.join();
}

// The queue orders what comes before the call, and not what comes after it.
void race(QCoreApplication &app)
{
    bool isCalled = false;
    std::thread thread([call = QSP::onGuiThread("report", &app, [&isCalled](QCoreApplication *) {
                            ++g_raced;
                            isCalled = true;
                        })] {
        call();
        ++g_raced;
    });
    while (!isCalled)
        QCoreApplication::sendPostedEvents();
    thread.join();
}

void leak()
{
    static_cast<void>(new QObject);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QByteArray fault(argc > 1 ? argv[1] : "");
    if (fault == "order")
        passOn(app);
    else if (fault == "race")
        race(app);
    else if (fault == "leak")
        leak();
    else
        return EXIT_FAILURE;
    return EXIT_SUCCESS;
}
