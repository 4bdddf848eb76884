#pragma once

#include "conformance/checks/order.h"

namespace Conformance {

/// Loads a service library and puts it through the checks, in the process that calls it.
class ServiceTrial
{
public:
    /// @p module is the file of the checks: they call the service as the screen does, so they can be loaded only
    /// when it is there.
    ServiceTrial(std::string library, std::string module)
        : m_library(std::move(library)), m_module(std::move(module))
    {}

    void run(const Order &order, Witness &witness) const;

private:
    std::string m_library;
    std::string m_module;
};

} // namespace Conformance
