#pragma once

namespace Conformance {

// Reports that came once more than they should. Thread-safe.
void noteRepeat(const char *operation);
/// The operation whose report was repeated first; null when none was.
const char *firstRepeat();

} // namespace Conformance
