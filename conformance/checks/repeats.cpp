#include "conformance/checks/repeats.h"

#include <atomic>

namespace Conformance {

namespace {

std::atomic<const char *> repeated{nullptr};

} // namespace

void noteRepeat(const char *operation)
{
    const char *none = nullptr;
    repeated.compare_exchange_strong(none, operation);
}

const char *firstRepeat()
{
    return repeated;
}

} // namespace Conformance
