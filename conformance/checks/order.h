#pragma once

#include "conformance/witness.h"

#include <chrono>
#include <functional>
#include <set>
#include <string>

namespace Conformance {

/// What is to be checked, and how.
struct Order {
    std::set<std::string> groups; ///< empty: all
    int adapters = 0;             ///< mask of HMI::SystemSet::NIC
    bool isReadOnly = false;      ///< no check that changes the panel
    /// How long to wait for a report, at most; what the contract grants less time gets less.
    std::chrono::seconds patience{60};
    /// How long the service gets at most to read its panel, before what it answers counts.
    std::chrono::seconds settling{0};
    /// Whether a result of this title is there already, from a process before this one.
    std::function<bool(const std::string &)> isDone;
    /// What Witness::keep() was told by that process; empty in the first one.
    std::string settings;
};

/// Makes the checks of the service that is loaded; found by this name in the module that has them. It is for a process
/// of its own that ends afterwards by exit(), because the end of the service is judged too.
using MakeServiceChecks = void (*)(const Order &order, Witness &witness);
constexpr char MakeServiceChecksName[] = "panelConformanceServiceChecks";

} // namespace Conformance
