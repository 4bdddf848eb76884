#pragma once

#include "conformance/message.h"
#include "conformance/witness.h"

#include <chrono>
#include <functional>
#include <string>

#include <sys/types.h>

namespace Conformance {

/// A process in which a library is tried, so that its crash, its hang or its exit() is seen from outside.
class Worker
{
public:
    using Work = std::function<void(Witness &)>;

    /// Begins @p work in a process of its own, which exits when it is done.
    explicit Worker(const Work &work);
    /// Ends the process, if it goes on.
    ~Worker();
    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    enum class Event {
        Message,      ///< the process has told something
        Silence,      ///< it has told nothing for too long
        Interruption, ///< this program is asked to end
        Ended,
    };
    /// Whether a wait ends when this program is asked to end.
    enum class Patience { UntilInterrupted, UntilTheEnd };
    /// Waits for the next event; @p message gets what was told.
    Event wait(std::chrono::milliseconds limit, Patience patience, Fields *message);
    /// How the process ended, once it has: "was ended by signal 11 (Segmentation fault)"; empty when it ended well.
    std::string end();

private:
    enum class Readiness { Ready, NotYet };
    Readiness waitForBytes(std::chrono::milliseconds limit) const;
    bool takeLine(Fields *message);
    void reap(bool isKilled);

    pid_t m_process = -1;
    int m_descriptor = -1;
    int m_status = 0;
    std::string m_received;
};

} // namespace Conformance
