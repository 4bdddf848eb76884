#include "original.h"

#include "mutants.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

#include <dlfcn.h>

namespace Mutants {

void *originalAddress(const char *member)
{
    static void *simulator = dlopen(PANEL_SIMULATOR, RTLD_NOW | RTLD_NOLOAD);
    for (const Conformance::Operation &operation : Conformance::Operations) {
        void *address = std::string_view(operation.name) == member && simulator != nullptr
                            ? dlsym(simulator, operation.symbol)
                            : nullptr;
        if (address != nullptr)
            return address;
    }
    std::cerr << "mutants: the simulator has no " << member << '\n';
    std::abort();
}

bool is(Mutant mutant)
{
    static const Mutant chosen = [] {
        const char *name = std::getenv("PANEL_MUTANT");
        if (name == nullptr)
            return Mutant::None;
        for (const Row &row : AllMutants) {
            if (std::string_view(row.name) == name)
                return row.mutant;
        }
        std::cerr << "mutants: none is called " << name << '\n';
        std::abort();
    }();
    return mutant == chosen;
}

} // namespace Mutants
