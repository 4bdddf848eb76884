#pragma once

#include "simulator/panel.h"

namespace HmiSimulator {

/// The panel that the simulator starts with: all five adapters, networks with names of every
/// kind. The same as scenarios/default.json.
Panel defaultPanel();

} // namespace HmiSimulator
