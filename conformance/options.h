#pragma once

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Conformance {

/// What was asked for on the command line.
struct Options {
    std::string library;
    std::set<std::string> groups; ///< empty: all
    int adapters = 0;             ///< mask of HMI::SystemSet::NIC
    bool isReadOnly = false;
    bool isKeyboard = false; ///< the library is one of an on-screen keyboard, not of a service
    bool isListWanted = false;
    bool isHelpWanted = false;
    std::string tapFile;
    std::string junitFile;
    std::chrono::seconds patience{60};
    std::chrono::seconds limit{30};
    std::chrono::seconds settling{0};

    /// Reads @p arguments (without the program's name). Null when something is wrong with them; @p error then says
    /// what.
    static std::optional<Options> read(const std::vector<std::string> &arguments, std::string *error);
    /// What --help prints.
    static std::string help();
};

} // namespace Conformance
