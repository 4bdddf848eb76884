#include "plugin/implsystemset.h"
#include "plugin/pluginregistry.h"

#define PANEL_EXPORT __attribute__((visibility("default")))

namespace {

VexPlugin::PluginRegistry *g_registry = nullptr;

} // namespace

extern "C" {

/// Makes the registry of this library, which holds one entry, ISystemSet. To be called once.
PANEL_EXPORT VexPlugin::PluginRegistry *VexPluginGetInstance()
{
    g_registry = new VexPlugin::PluginRegistry;
    g_registry->RegisterPlugin<ImplSystemSet, ISystemSet>();
    return g_registry;
}

/// Frees the registry. To be called once; objects that its factory made live on.
PANEL_EXPORT void VexPluginCloseInstance()
{
    delete g_registry;
}

/// 0 for the query code 0, -1 for every other one.
PANEL_EXPORT int VexPluginQueryData(int code)
{
    return code == 0 ? 0 : -1;
}
}
