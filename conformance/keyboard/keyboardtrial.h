#pragma once

#include "conformance/keyboard/keyboardorder.h"

namespace Conformance {

/// Puts a keyboard through the checks, in the process that calls it.
class KeyboardTrial
{
public:
    /// @p module is the file of the checks.
    explicit KeyboardTrial(std::string module) : m_module(std::move(module)) {}

    /// Throws when the module cannot be used.
    void run(const KeyboardOrder &order, Witness &witness) const;

private:
    std::string m_module;
};

} // namespace Conformance
