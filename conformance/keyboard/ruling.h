#pragma once

#include "conformance/report.h"

namespace Conformance {

/// What comes of one check: made for it, and asked for the result at its end.
class Ruling
{
public:
    explicit Ruling(Result check) : m_result(std::move(check)) {}

    /// Fails the check unless @p isGood; returns it, so that what builds on it can be left out.
    bool expect(bool isGood, const std::string &operation, const std::string &expectation,
                const std::string &answer);
    void cannotComply(const std::string &why);
    void skip(const std::string &why);

    const Result &result() const { return m_result; }

private:
    void settle(Verdict verdict, const std::string &note);

    Result m_result;
};

} // namespace Conformance
