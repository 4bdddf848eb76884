// The library that can be broken in every way that a check looks for.

#include "tests/conformance/keyboard/brokenkeyboard.h"

#include <cstdlib>
#include <map>

namespace {

class Loader final : public QVkbPluginLoader
{
public:
    BrokenKeyboard keyboard;
    BrokenKeyboard second;
    bool isSecond = false;
};

/// Never destroyed, as is allowed: what is left of them at the end is as it is at any time.
std::map<QQuickWindow *, Loader *> &loaders()
{
    static auto &all = *new std::map<QQuickWindow *, Loader *>;
    return all;
}

struct End {
    ~End()
    {
        if (BrokenKeyboard::is("life.end"))
            std::abort();
    }
};
const End end;

} // namespace

QVkbPluginLoader *QVkbPluginLoader::instance(QQuickWindow *window)
{
    Loader *&known = loaders()[window];
    if (!known || BrokenKeyboard::is("window.loader"))
        known = new Loader;
    return known;
}

QVkbInterface *QVkbPluginLoader::vkb()
{
    auto *loader = static_cast<Loader *>(this);
    if (BrokenKeyboard::is("none"))
        return nullptr;
    if (BrokenKeyboard::is("window.separate"))
        return &loaders().begin()->second->keyboard;
    if (BrokenKeyboard::is("window.keyboard"))
        loader->isSecond = !loader->isSecond;
    return loader->isSecond ? &loader->second : &loader->keyboard;
}
