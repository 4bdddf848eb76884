// A host that was given nothing of ours: no header, no library. It opens the
// plug-in by name and sees the registry as the map that it is.

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <functional>
#include <map>
#include <memory>
#include <typeindex>

// What a host must declare by itself: three functions in this order.
class QQmlEngine;
class QQuickItem;

class __attribute__((visibility("default"))) ISystemSet
{
public:
    virtual QQuickItem *init(QQmlEngine *engine, int width, int height, int rootPopupZ) = 0;
    virtual void open() = 0;
    virtual void close() = 0;

protected:
    ~ISystemSet() = default;
};

namespace {

using Registry = std::map<std::type_index, std::function<std::shared_ptr<void>()>>;

bool check(bool good, const char *what)
{
    if (!good)
        std::fprintf(stderr, "not so: %s\n", what);
    return good;
}

template <class Function> Function *resolve(void *library, const char *name)
{
    auto *function = reinterpret_cast<Function *>(dlsym(library, name));
    check(function, name);
    return function;
}

bool checkRegistry(const Registry &registry)
{
    if (!check(registry.size() == 1, "the registry has one entry"))
        return false;
    const auto entry = registry.find(typeid(ISystemSet));
    if (!check(entry != registry.end(), "its key is the type of ISystemSet"))
        return false;

    const std::shared_ptr<void> first = entry->second();
    const std::shared_ptr<void> second = entry->second();
    const bool areTwo = check(first && second && first != second, "the factory makes a new object each time");
    // Nothing is built yet, so there is nothing to show or hide.
    auto *screen = static_cast<ISystemSet *>(first.get());
    screen->open();
    screen->close();
    return areTwo;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    void *library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    auto *queryData = resolve<int(int)>(library, "VexPluginQueryData");
    auto *getInstance = resolve<void *()>(library, "VexPluginGetInstance");
    auto *closeInstance = resolve<void()>(library, "VexPluginCloseInstance");
    if (!queryData || !getInstance || !closeInstance)
        return 1;

    bool isGood = check(queryData(0) == 0, "query 0 is answered with 0");
    for (const int code : {1, -5, 2147483647})
        isGood = check(queryData(code) == -1, "every other query is answered with -1") && isGood;
    isGood = checkRegistry(*static_cast<const Registry *>(getInstance())) && isGood;
    closeInstance();

    // The library refuses to be unmapped: QML keeps pointers to its types.
    dlclose(library);
    isGood = check(dlopen(argv[1], RTLD_NOW | RTLD_NOLOAD), "the library stays in the process") && isGood;
    return isGood ? 0 : 1;
}
