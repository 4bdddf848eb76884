#pragma once

#include "host/tour/visitor.h"

#include <QtCore/QString>

#include <functional>
#include <vector>

/// One picture of the tour, and what is done before it is taken.
struct Stop {
    QString picture;
    std::vector<std::function<void(Visitor &)>> actions;
};

/// All stops, in their order. @p isNarrow: menu and page take turns on the screen.
std::vector<Stop> itinerary(bool isNarrow);
