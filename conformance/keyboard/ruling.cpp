#include "conformance/keyboard/ruling.h"

namespace Conformance {

bool Ruling::expect(bool isGood, const std::string &operation, const std::string &expectation,
                    const std::string &answer)
{
    if (!isGood) {
        m_result.verdict = Verdict::Failed;
        m_result.findings.push_back({operation, {}, expectation, answer});
    }
    return isGood;
}

void Ruling::cannotComply(const std::string &why)
{
    settle(Verdict::CannotComply, why);
}

void Ruling::skip(const std::string &why)
{
    settle(Verdict::Skipped, why);
}

void Ruling::settle(Verdict verdict, const std::string &note)
{
    if (m_result.verdict == Verdict::Passed)
        m_result.verdict = verdict;
    m_result.notes.push_back(note);
}

} // namespace Conformance
