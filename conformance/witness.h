#pragma once

#include "conformance/report.h"

namespace Conformance {

/// Who is told how the checks go. A check names itself before it begins, so that a crash or a hang has a name.
class Witness
{
public:
    Witness() = default;
    Witness(const Witness &) = delete;
    Witness &operator=(const Witness &) = delete;

    virtual void begin(const Result &check) = 0;
    virtual void end(const Result &result) = 0;
    /// The checks go on, though the one under way takes its time.
    virtual void alive() = 0;
    /// What the panel was like before anything was changed, as decode() understands it: kept for a process that
    /// follows this one if it dies.
    virtual void keep(const std::string &settings) = 0;

protected:
    ~Witness() = default;
};

} // namespace Conformance
