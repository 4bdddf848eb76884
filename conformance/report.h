#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace Conformance {

/// How a check came out, from best to worst.
enum class Verdict {
    Passed,
    Skipped,      ///< not asked for, or the panel has nothing that it is about
    CannotComply, ///< the library refused in a way that the contract allows
    Warned,       ///< allowed, but an operator will notice
    Failed,
};

/// One thing that was seen and should have been otherwise.
struct Finding {
    std::string operation;   ///< "setDns"
    std::string adapter;     ///< "LAN0"; empty where none is concerned
    std::string expectation; ///< "getDns answers what was set"
    std::string answer;      ///< "10.0.0.1"
};

/// What became of one check; one that is made for several adapters has a result for each.
struct Result {
    std::string group;   ///< "dns"
    std::string name;    ///< "stored"
    std::string adapter; ///< "LAN0"; empty where none is concerned
    Verdict verdict = Verdict::Passed;
    std::vector<Finding> findings;
    std::vector<std::string> notes; ///< what is worth knowing and neither good nor bad

    /// "dns.stored", or "dns.stored LAN0" where there is an adapter.
    std::string title() const { return group + '.' + name + (adapter.empty() ? "" : ' ' + adapter); }
};

/// The results of a run, in the order in which they came, and the forms in which they are told.
class Report
{
public:
    /// @p subject is what was judged: the library's path.
    explicit Report(std::string subject) : m_subject(std::move(subject)) {}

    void add(Result result) { m_results.push_back(std::move(result)); }
    const std::vector<Result> &results() const { return m_results; }
    bool has(const std::string &title) const;
    int count(Verdict verdict) const;
    /// Whether anything failed; everything else is within the contract.
    bool hasFailed() const { return count(Verdict::Failed) > 0; }

    /// One result for a reader: a line, and a further one for each finding and note.
    static void print(std::ostream &out, const Result &result);
    /// What it all comes to, in one line.
    void printSummary(std::ostream &out) const;
    /// Test Anything Protocol, version 13: warnings and refusals are "ok" with a remark.
    void writeTap(std::ostream &out) const;
    /// JUnit's XML: one test suite, findings of failures in "failure", all others in "system-out".
    void writeJunit(std::ostream &out) const;

private:
    std::string m_subject;
    std::vector<Result> m_results;
};

} // namespace Conformance
