#pragma once

#include "conformance/witness.h"

#include <functional>
#include <set>
#include <string>

namespace Conformance {

/// Which keyboard is to be checked, and how.
struct KeyboardOrder {
    std::string library;          ///< its path
    std::set<std::string> groups; ///< empty: all
    /// Whether a result of this title is there already, from a process before this one.
    std::function<bool(const std::string &)> isDone;
};

/// Makes the checks of a keyboard; found by this name in the module that has them, which alone needs the toolkit. It
/// is for a process of its own that ends afterwards by exit(), because the end is judged too.
using MakeKeyboardChecks = void (*)(const KeyboardOrder &order, Witness &witness);
constexpr char MakeKeyboardChecksName[] = "panelConformanceKeyboardChecks";

} // namespace Conformance
