#pragma once

#include "tests/screen/screenfixture.h"
#include "tests/support/inventory.h"

/// Brings the screen into a state that is the same each time, and says what the program holds then: the panel as it
/// comes, all that is built on first need built, everything asked for answered, the screen closed.
Inventory inventoryAtRest(ScreenFixture &fixture);
