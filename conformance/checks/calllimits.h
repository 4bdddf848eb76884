#pragma once

namespace Conformance {

// Milliseconds that a call may keep the thread that makes it.
constexpr double GetterLimit = 1;     ///< getters are called while drawing
constexpr double GetterWarning = 0.2; ///< a page asks a few dozen of them at once
constexpr double RequestLimit = 250;  ///< from the tap to the indicator that says that something is going on
constexpr double BeepLimit = 20;      ///< comes with every key
constexpr double StartWarning = 100;  ///< the first picture waits for it

} // namespace Conformance
