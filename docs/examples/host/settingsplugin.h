#pragma once

#include <isystemset.h>
#include <pluginregistry.h>

#include <QLibrary>

/// The settings screen's library, from loading it to giving it back.
class SettingsPlugin
{
public:
    SettingsPlugin()
    {
        using GetInstance = VexPlugin::PluginRegistry *(*)();
        const auto getInstance = reinterpret_cast<GetInstance>(m_library.resolve("VexPluginGetInstance"));
        if (getInstance)
            m_screen =
                std::static_pointer_cast<ISystemSet>(getInstance()->factories().at(typeid(ISystemSet))());
    }
    ~SettingsPlugin()
    {
        if (m_screen)
            reinterpret_cast<void (*)()>(m_library.resolve("VexPluginCloseInstance"))();
    }
    SettingsPlugin(const SettingsPlugin &) = delete;
    SettingsPlugin &operator=(const SettingsPlugin &) = delete;

    /// Null when the library could not be loaded; errorString() says why.
    ISystemSet *screen() const { return m_screen.get(); }
    QString errorString() const { return m_library.errorString(); }

private:
    // The whole name: with "panelsettings" alone the toolkit would not say which library is missing.
    QLibrary m_library{QStringLiteral("libpanelsettings.so")};
    std::shared_ptr<ISystemSet> m_screen;
};
