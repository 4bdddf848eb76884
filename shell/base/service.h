#pragma once

#include "hmi/systemset.h"
#include "meyersingleton.h"

namespace QSP {

/// The panel's service, which a library of the platform provides: the one way to it for the whole screen.
inline HMI::SystemSet &systemSet()
{
    return MeyerSingleton<HMI::SystemSet>::instance();
}

} // namespace QSP
