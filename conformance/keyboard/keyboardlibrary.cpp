#include "conformance/keyboard/keyboardlibrary.h"

#include <dlfcn.h>

namespace Conformance {

bool KeyboardLibrary::load(const std::string &path)
{
    m_library = dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL);
    if (!m_library)
        m_error = dlerror();
    return m_library != nullptr;
}

bool KeyboardLibrary::resolve()
{
    return find(&m_instance, "_ZN16QVkbPluginLoader8instanceEP12QQuickWindow") &&
           find(&m_vkb, "_ZN16QVkbPluginLoader3vkbEv");
}

template <class Function> bool KeyboardLibrary::find(Function *function, const char *symbol)
{
    *function = reinterpret_cast<Function>(dlsym(m_library, symbol));
    if (!*function)
        m_error = dlerror();
    return *function != nullptr;
}

} // namespace Conformance
