#pragma once

#include "hmi/systemset.h"

#include <vector>

/// One getter of the service, and whether it answers what is so on the bench's panel: not what it answers before
/// anything is known.
struct Answer {
    const char *name;
    bool (*isTrue)(const HMI::SystemSet &panel);
};

const std::vector<Answer> &answers();
