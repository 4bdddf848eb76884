#pragma once

#include "hmi/systemset.h"
#include "meyersingleton.h"
#include "shell/base/operationname.h"
#include "shell/base/servicestopwatch.h"

namespace QSP {

/// Calls an operation of the panel's service, which a library of the platform provides: the one way to it from the
/// GUI thread.
///
///     const HMI::IP address = callService<&HMI::SystemSet::getIp>(nic);
///
/// One that keeps the screen waiting is told of in the log.
template <auto Operation, class... Arguments> auto callService(const Arguments &...arguments)
{
    // Built by the first call, which is none of its operations yet.
    auto &service = MeyerSingleton<HMI::SystemSet>::instance();
    const ServiceStopwatch stopwatch(g_operationName<Operation>.data());
    return (service.*Operation)(arguments...);
}

} // namespace QSP
