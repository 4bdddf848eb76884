#include "host/endingsignals.h"

#include <QtCore/QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> endings{SIGHUP, SIGINT, SIGTERM};

// The end to read from, and the one to write to. A handler may do hardly more than write.
std::array<int, 2> g_pipe{-1, -1};

void carry(int number)
{
    const auto byte = static_cast<unsigned char>(number);
    // There is nobody to tell of a failure; the next signal ends the program anyway.
    [[maybe_unused]] const ssize_t written = write(g_pipe[1], &byte, 1);
}

} // namespace

EndingSignals::EndingSignals(std::function<void()> clearUp) : m_clearUp(std::move(clearUp))
{
    if (pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndingSignals::end);

    struct sigaction action {};
    action.sa_handler = carry;
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    for (const int number : endings) {
        struct sigaction present {};
        // What whoever started the program wants to be ignored, as nohup does, stays so.
        if (sigaction(number, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}

void EndingSignals::end()
{
    unsigned char number = 0;
    if (read(g_pipe[0], &number, 1) != 1)
        return;
    m_clearUp();
    std::signal(number, SIG_DFL);
    std::raise(number);
}
