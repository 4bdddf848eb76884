#pragma once

#include <functional>
#include <map>
#include <memory>
#include <typeindex>
#include <utility>

namespace VexPlugin {

/// What a plug-in library offers: one factory for each interface it implements.
///
/// The map is the only data member and there is no virtual function, so a host
/// that does not know this header may view the pointer that
/// VexPluginGetInstance() returns as a pointer to that map.
class PluginRegistry
{
public:
    /// Makes a fresh object; cast it to a pointer to the interface it was asked for.
    using Factory = std::function<std::shared_ptr<void>()>;

    /// Offers @p Impl under the key typeid(@p Interface). A key that is taken already stays as it is.
    template <class Impl, class Interface> void RegisterPlugin()
    {
        m_factories.emplace(std::type_index(typeid(Interface)), [] {
            std::shared_ptr<Interface> object = std::make_shared<Impl>();
            return std::static_pointer_cast<void>(std::move(object));
        });
    }

    /// The factories by the type index of their interface.
    const std::map<std::type_index, Factory> &factories() const { return m_factories; }

private:
    std::map<std::type_index, Factory> m_factories;
};

} // namespace VexPlugin
