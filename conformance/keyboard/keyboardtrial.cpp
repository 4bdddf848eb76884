#include "conformance/keyboard/keyboardtrial.h"

#include <dlfcn.h>
#include <stdexcept>

namespace Conformance {

void KeyboardTrial::run(const KeyboardOrder &order, Witness &witness) const
{
    void *module = dlopen(m_module.c_str(), RTLD_NOW);
    void *function = module ? dlsym(module, MakeKeyboardChecksName) : nullptr;
    if (!function)
        throw std::runtime_error(dlerror());
    reinterpret_cast<MakeKeyboardChecks>(function)(order, witness);
}

} // namespace Conformance
