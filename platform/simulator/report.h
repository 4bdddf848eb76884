#pragma once

#include "simulator/calltext.h"
#include "simulator/core.h"

namespace HmiSimulator {

/// What became of a request, decided when its report falls due.
struct Outcome {
    std::string text; ///< for the journal
    std::function<void()>
        tell; ///< calls the callback; may be called twice; null when there is nobody to tell
};

/// A request on its way to its report.
struct Request {
    std::string operation; ///< "setDHCP"
    std::string subject;   ///< "LAN0", or nothing
    int milliseconds;
    std::function<Outcome()> settle; ///< changes the panel, then says what to report
};

/// Tells @p done of @p result.
template <class Result> Outcome answer(const std::function<void(Result)> &done, Result result)
{
    if (!done)
        return {};
    return {text(result), [done, result] { done(result); }};
}

/// The fault that the reports of this request have; counts the request.
DeliveryFault takeFault(Operation operation);
/// Sees to it that the request settles and is reported, with @p fault.
void submit(const DeliveryFault &fault, Request request);

} // namespace HmiSimulator
