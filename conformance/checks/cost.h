#pragma once

#include <functional>

namespace Conformance {

/// What one call costs the thread that makes it, in milliseconds. A call during which the thread slept counts by the
/// clock on the wall; one that did not counts by the processor time of the thread, so that what a busy machine takes
/// for others is not held against the library.
double costOf(const std::function<void()> &call);

/// The 95th percentile of the costs of many calls. A call that seems slow is looked at again, up to three times, and
/// the best look counts: what is slow by itself is slow each time. @p alive is called now and then.
double usualCostOf(const std::function<void()> &call, const std::function<void()> &alive);

} // namespace Conformance
