// A dump has the types that functions lead to, and no export leads to the interface that a host asks the registry for.
// The exports themselves are looked at in tests/tools.

#include "plugin/isystemset.h"
#include "plugin/pluginregistry.h"

extern "C" __attribute__((visibility("default"))) void whatAHostCalls(ISystemSet *,
                                                                      VexPlugin::PluginRegistry *)
{}
