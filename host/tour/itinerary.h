#pragma once

#include "host/tour/actions.h"

#include <QtCore/QString>

#include <vector>

/// One picture of the tour, and what is done before it is taken.
struct Stop {
    QString picture;
    std::vector<Action> actions;
};

/// All stops, in their order. @p isNarrow: menu and page take turns on the screen. @p isStrict: the screen is as a
/// host gets it who asks for nothing.
std::vector<Stop> itinerary(bool isNarrow, bool isStrict);
