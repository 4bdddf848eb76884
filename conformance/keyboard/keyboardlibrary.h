#pragma once

#include "qvkb/qvkbpluginloader.h"

#include <string>

namespace Conformance {

/// A keyboard's library, loaded from its file. Nothing here is linked with one, so any can be judged.
class KeyboardLibrary
{
public:
    /// False, with error(), when the file cannot be loaded with all its symbols bound.
    bool load(const std::string &path);
    /// Looks up what a screen calls by name. False, with error(), when something is missing.
    bool resolve();
    const std::string &error() const { return m_error; }

    QVkbPluginLoader *loaderOf(QQuickWindow *window) const { return m_instance(window); }
    QVkbInterface *keyboardOf(QVkbPluginLoader *loader) const { return m_vkb(loader); }
    QVkbInterface *keyboardOf(QQuickWindow *window) const { return keyboardOf(loaderOf(window)); }

private:
    // A member function is called like a function that gets the object first.
    using Instance = QVkbPluginLoader *(*)(QQuickWindow *);
    using Vkb = QVkbInterface *(*)(QVkbPluginLoader *);

    template <class Function> bool find(Function *function, const char *symbol);

    void *m_library = nullptr; // for as long as the process: loaders live as long
    Instance m_instance = nullptr;
    Vkb m_vkb = nullptr;
    std::string m_error;
};

} // namespace Conformance
