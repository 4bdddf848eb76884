#include "qvkb/qvkbpluginloader.h"

QVkbPluginLoader *QVkbPluginLoader::instance(QQuickWindow *)
{
    static QVkbPluginLoader loader;
    return &loader;
}

QVkbInterface *QVkbPluginLoader::vkb()
{
    return nullptr;
}
