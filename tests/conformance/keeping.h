#pragma once

#include <functional>
#include <optional>

namespace Mutants {

/// The function of the newest ping, kept over the end of the service.
std::function<void(bool)> &lastPing();

/// The brightness, kept over the end of the process as a panel keeps it: beside the file that PANEL_STATE names.
void keepLevel(int level);
std::optional<int> keptLevel();

/// Everything that checks must put back, as the panel really is, as one line in the file that PANEL_STATE names.
void writeState();

} // namespace Mutants
