#include "conformance/judge.h"

#include "conformance/pipewitness.h"

#include <ostream>

namespace Conformance {

namespace {

/// The last check of every run, which is under way when a process ends as it should.
Result theEnd()
{
    Result result;
    result.group = "life";
    result.name = "end";
    return result;
}

} // namespace

const Report &Judge::judge(const Work &work)
{
    // Each process that dies leaves a result that the next one has no need to ask for, or it is the last.
    for (std::size_t known = 0;; known = m_report.results().size()) {
        Worker worker([this, &work](Witness &witness) {
            work({m_report, m_settings, m_isInterrupted}, witness);
        });
        const bool wasInterrupted = m_isInterrupted;
        const Outcome outcome = watch(worker);
        if (m_isInterrupted && !wasInterrupted)
            continue; // with a process that puts the panel back
        if (outcome == Outcome::Done || m_report.results().size() == known)
            return m_report;
    }
}

Judge::Outcome Judge::watch(Worker &worker)
{
    m_running.reset();
    Fields message;
    const auto patience =
        m_isInterrupted ? Worker::Patience::UntilTheEnd : Worker::Patience::UntilInterrupted;
    for (;;) {
        switch (worker.wait(m_limit, patience, &message)) {
        case Worker::Event::Message:
            take(message);
            break;
        case Worker::Event::Silence:
            return conclude("has hung for " + std::to_string(m_limit.count()) + " ms");
        case Worker::Event::Interruption:
            m_isInterrupted = true;
            return breakOff();
        case Worker::Event::Ended:
            return conclude(worker.end());
        }
    }
}

void Judge::take(const Fields &message)
{
    const std::string &word = message.front();
    const Fields fields(message.begin() + 1, message.end());
    if (word == Word::Begin) {
        m_running = resultOf(fields);
    } else if (word == Word::End) {
        const std::optional<Result> result = resultOf(fields);
        if (result)
            add(*result);
        if (result && m_running && result->title() == m_running->title())
            m_running.reset();
    } else if (word == Word::Settings) {
        m_settings = fields.front();
    }
}

Judge::Outcome Judge::conclude(const std::string &ending)
{
    // Nothing can be checked of a library that cannot be loaded, and nothing is after an interruption.
    if (!m_running && ending.empty() && (m_report.hasFailed() || m_isInterrupted))
        return Outcome::Done;
    // A process that dies between two checks has not come to its end either.
    Result result = m_running.value_or(theEnd());
    const bool isLast = m_running && result.title() == theEnd().title();
    if (!isLast || !ending.empty()) {
        result.verdict = Verdict::Failed;
        const std::string what = ending.empty() ? "ended by exit()" : ending;
        result.findings.push_back({"the process", {}, "it goes on to the end of the check", "it " + what});
    }
    add(result);
    return isLast ? Outcome::Done : Outcome::Died;
}

Judge::Outcome Judge::breakOff()
{
    if (!m_running)
        return Outcome::Died;
    m_running->verdict = Verdict::Skipped;
    m_running->notes.emplace_back("interrupted");
    add(*m_running);
    return Outcome::Died;
}

void Judge::add(const Result &result)
{
    if (m_report.has(result.title()))
        return; // asked again by a process that had to begin anew
    m_report.add(result);
    Report::print(m_out, result);
    m_out.flush();
}

} // namespace Conformance
