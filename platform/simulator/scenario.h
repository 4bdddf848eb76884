#pragma once

#include "simulator/panel.h"

#include <string>

namespace HmiSimulator {

/// A panel, or why there is none: "name:line: reason".
struct Scenario {
    std::optional<Panel> panel;
    std::string error;
};

/// Reads a scenario; @p name stands in the error text.
Scenario readScenario(const std::string &json, const std::string &name);
Scenario readScenarioFile(const std::string &path);

} // namespace HmiSimulator
