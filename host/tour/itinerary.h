#pragma once

#include "host/options.h"
#include "host/tour/actions.h"

#include <QtCore/QString>

#include <vector>

/// One picture of the tour, and what is done before it is taken.
struct Stop {
    QString picture;
    std::vector<Action> actions;
};

/// All stops on a panel with these options and adapters (see PanelService::adapters()), in their order.
std::vector<Stop> itinerary(const Options &options, int adapters);
