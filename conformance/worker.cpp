#include "conformance/worker.h"

#include "conformance/interruption.h"
#include "conformance/pipewitness.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Conformance {

namespace {

[[noreturn]] void workIn(int descriptor, const Worker::Work &work)
{
    // On a terminal, Ctrl-C is for all processes; this one is needed until it is replaced.
    Interruption::ignore();
    // What a library prints must not come between the results.
    dup2(STDERR_FILENO, STDOUT_FILENO);
    // Statics outlive it, and some of them tell: it is not destroyed.
    PipeWitness &witness = *new PipeWitness(descriptor);
    work(witness);
    std::exit(EXIT_SUCCESS);
}

} // namespace

Worker::Worker(const Work &work)
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    m_process = fork();
    if (m_process < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (m_process == 0) {
        close(ends[0]);
        workIn(ends[1], work);
    }
    close(ends[1]);
    m_descriptor = ends[0];
}

Worker::~Worker()
{
    reap(true);
    close(m_descriptor);
}

Worker::Event Worker::wait(std::chrono::milliseconds limit, Patience patience, Fields *message)
{
    constexpr std::chrono::milliseconds Step{100};
    std::chrono::milliseconds waited{0};
    while (!takeLine(message)) {
        if (patience == Patience::UntilInterrupted && Interruption::isAsked())
            return Event::Interruption;
        if (waitForBytes(Step) == Readiness::NotYet) {
            waited += Step;
            if (waited >= limit)
                return Event::Silence;
            continue;
        }
        std::array<char, 4096> bytes{};
        const ssize_t count = read(m_descriptor, bytes.data(), bytes.size());
        if (count == 0)
            return Event::Ended;
        if (count > 0)
            m_received.append(bytes.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "pipe");
    }
    return Event::Message;
}

Worker::Readiness Worker::waitForBytes(std::chrono::milliseconds limit) const
{
    pollfd waited{m_descriptor, POLLIN, 0};
    return poll(&waited, 1, static_cast<int>(limit.count())) > 0 ? Readiness::Ready : Readiness::NotYet;
}

std::string Worker::end()
{
    reap(false);
    if (WIFSIGNALED(m_status)) {
        const int number = WTERMSIG(m_status);
        return "was ended by signal " + std::to_string(number) + " (" + strsignal(number) + ')';
    }
    if (WEXITSTATUS(m_status) != EXIT_SUCCESS)
        return "ended with exit code " + std::to_string(WEXITSTATUS(m_status));
    return {};
}

bool Worker::takeLine(Fields *message)
{
    const std::size_t length = m_received.find('\n');
    if (length == std::string::npos)
        return false;
    *message = decode(m_received.substr(0, length));
    m_received.erase(0, length + 1);
    return true;
}

void Worker::reap(bool isKilled)
{
    if (m_process < 0)
        return;
    if (isKilled)
        kill(m_process, SIGKILL);
    while (waitpid(m_process, &m_status, 0) < 0 && errno == EINTR) {
    }
    m_process = -1;
}

} // namespace Conformance
