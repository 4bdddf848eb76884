#pragma once

#include "conformance/operations.h"

namespace Mutants {

/// The simulator's own definition of a member that a mutant replaces.
void *originalAddress(const char *member);

/// The same as a function that takes the object first, as members do on every platform we know.
template <class Function> Function *original(const char *member)
{
    return reinterpret_cast<Function *>(originalAddress(member));
}

} // namespace Mutants
