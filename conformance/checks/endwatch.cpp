#include "conformance/checks/endwatch.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace Conformance {

namespace {

constexpr Milliseconds ShortestWait{300};
constexpr Milliseconds LongestWait{5000};

// Reports may come while nothing of this program is left but these.
std::atomic<bool> hasEnded{false};
std::atomic<const char *> lateOperation{nullptr};
std::atomic<Milliseconds::rep> longestReport{0};

} // namespace

void EndWatch::arm(Witness &witness)
{
    static const EndWatch watch(witness);
}

void EndWatch::heard(const char *operation, Milliseconds after)
{
    if (hasEnded)
        lateOperation = operation;
    Milliseconds::rep longest = longestReport;
    while (after.count() > longest && !longestReport.compare_exchange_weak(longest, after.count())) {
    }
}

EndWatch::~EndWatch()
{
    hasEnded = true;
    // What was under way when the service ended would have come by then.
    const Milliseconds wait = std::clamp(Milliseconds(2 * longestReport), ShortestWait, LongestWait);
    std::this_thread::sleep_for(wait);

    Result result;
    result.group = "life";
    result.name = "silence";
    if (const char *operation = lateOperation) {
        result.verdict = Verdict::Failed;
        result.findings.push_back({operation, {}, "no report after the destructor has returned", "a report"});
    }
    result.notes.push_back("listened for " + std::to_string(wait.count()) + " ms");
    m_witness.end(result);
}

} // namespace Conformance
