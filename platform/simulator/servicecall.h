#pragma once

#include "simulator/calltext.h"
#include "simulator/core.h"

namespace HmiSimulator {

inline Core &core()
{
    return Core::instance();
}

/// Journals a call that is more than a look.
inline void action(const char *operation, std::vector<std::string> arguments = {})
{
    core().journal().record(Kind::Action, operation, std::move(arguments));
}

/// Journals a look, if looks are wanted, and takes it.
template <class Look> auto get(const char *operation, Look look)
{
    if (core().journal().wantsGetters())
        core().journal().record(Kind::Getter, operation, {});
    return core().read(look);
}

/// The same for a getter with an argument.
template <class Argument, class Look> auto get(const char *operation, Argument argument, Look look)
{
    if (core().journal().wantsGetters())
        core().journal().record(Kind::Getter, operation, {text(argument)});
    return core().read(look);
}

/// A look at one adapter; @p otherwise for an adapter that the panel does not have.
template <class Value, class Look>
Value getFrom(HMI::SystemSet::NIC nic, const char *operation, Value otherwise, Look look)
{
    return get(operation, nic, [&](const Panel &panel) -> Value {
        const Adapter *adapter = panel.find(nic);
        return adapter == nullptr ? otherwise : look(*adapter);
    });
}

inline std::string persistence(bool persist)
{
    return persist ? "persist" : "temporary";
}

} // namespace HmiSimulator
