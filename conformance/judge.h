#pragma once

#include "conformance/worker.h"

#include <iosfwd>
#include <optional>

namespace Conformance {

/// What earlier processes of the same run leave to the next.
struct Past {
    const Report &report;
    const std::string &settings; ///< what Witness::keep() was told
    bool isInterrupted;          ///< nothing is left to be done but to put the panel back
};

/// Lets a library be tried in a process of its own and collects the results. A process that crashes, hangs or exits
/// is a failure of the check that was under way; the checks that are left are made in another process.
class Judge
{
public:
    using Work = std::function<void(const Past &, Witness &)>;

    /// Each result is printed to @p out as it comes. A process that tells nothing for @p limit hangs.
    Judge(std::string subject, std::chrono::milliseconds limit, std::ostream &out)
        : m_report(std::move(subject)), m_limit(limit), m_out(out)
    {}

    /// Lets @p work be done in as many processes as it needs.
    const Report &judge(const Work &work);
    /// Whether it was broken off by who started the program.
    bool isInterrupted() const { return m_isInterrupted; }

private:
    enum class Outcome { Done, Died };
    Outcome watch(Worker &worker);
    void take(const Fields &message);
    Outcome conclude(const std::string &ending);
    Outcome breakOff();
    void add(const Result &result);

    Report m_report;
    std::chrono::milliseconds m_limit;
    std::ostream &m_out;
    std::string m_settings;
    std::optional<Result> m_running;
    bool m_isInterrupted = false;
};

} // namespace Conformance
