#pragma once

#include "conformance/checks/check.h"

namespace Conformance {

/// Listens whether anything comes from a service that has ended. Armed before the service is made, it ends after it,
/// as everything that a process keeps goes in the opposite order; then it waits a while and tells.
class EndWatch
{
public:
    static void arm(Witness &witness);
    /// A report of @p operation has come, so long after it was asked for. Thread-safe, also after the end.
    static void heard(const char *operation, Milliseconds after);

    EndWatch(const EndWatch &) = delete;
    EndWatch &operator=(const EndWatch &) = delete;

private:
    explicit EndWatch(Witness &witness) : m_witness(witness) {}
    ~EndWatch();

    Witness &m_witness;
};

} // namespace Conformance
