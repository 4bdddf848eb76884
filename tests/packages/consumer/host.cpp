// A host loads the plug-in from where its package says that it lies.

#include <isystemset.h>
#include <panelsettings/version.h>
#include <pluginregistry.h>

#include <cstdio>
#include <cstring>
#include <dlfcn.h>

int main()
{
    if (std::strcmp(PANELSETTINGS_VERSION_STR, VERSION) != 0) {
        std::fprintf(stderr, "headers of %s, package of %s\n", PANELSETTINGS_VERSION_STR, VERSION);
        return 1;
    }
    void *library = dlopen(PLUGIN, RTLD_NOW);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    const auto queryData = reinterpret_cast<int (*)(int)>(dlsym(library, "VexPluginQueryData"));
    const auto getInstance =
        reinterpret_cast<VexPlugin::PluginRegistry *(*)()>(dlsym(library, "VexPluginGetInstance"));
    if (!queryData || queryData(0) != 0 || !getInstance)
        return 1;
    return getInstance()->factories().count(typeid(ISystemSet)) == 1 ? 0 : 1;
}
