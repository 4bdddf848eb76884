#include "qvkb/qvkbpluginloader.h"

#include <algorithm>
#include <QtQuick/QQuickWindow>
#include <vector>

#include "standin.h"
#include "standinkeyboard.h"

namespace {

bool keyboardAvailable = true;

/// Every loader is one of these. When its window has gone, it serves the next one.
class WindowLoader final : public QVkbPluginLoader
{
public:
    bool isFree() { return !window && !keyboard.popup(); }

    QPointer<QQuickWindow> window;
    StandIn::StandInKeyboard keyboard;
};

/// Never destroyed: a keyboard may be asked for its state while the process ends.
std::vector<WindowLoader *> &loaders()
{
    static auto &all = *new std::vector<WindowLoader *>;
    return all;
}

} // namespace

QVkbPluginLoader *QVkbPluginLoader::instance(QQuickWindow *window)
{
    std::vector<WindowLoader *> &all = loaders();
    auto found = all.end();
    if (window)
        found =
            std::find_if(all.begin(), all.end(), [window](auto *loader) { return loader->window == window; });
    if (found == all.end())
        found = std::find_if(all.begin(), all.end(), [](auto *loader) { return loader->isFree(); });
    if (found == all.end())
        found = all.insert(all.end(), new WindowLoader);
    (*found)->window = window;
    return *found;
}

QVkbInterface *QVkbPluginLoader::vkb()
{
    return keyboardAvailable ? &static_cast<WindowLoader *>(this)->keyboard : nullptr;
}

void QVkbStandInSetAvailable(bool available)
{
    keyboardAvailable = available;
}
