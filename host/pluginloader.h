#pragma once

#include "plugin/isystemset.h"
#include "plugin/pluginregistry.h"

#include <QtCore/QLibrary>

#include <memory>

/// Loads the settings screen from its library. To be kept until the screen has gone.
class PluginLoader
{
public:
    PluginLoader() = default;
    ~PluginLoader();
    PluginLoader(const PluginLoader &) = delete;
    PluginLoader &operator=(const PluginLoader &) = delete;

    /// The library that belongs to this host: built or installed together with
    /// it. Its mere name, for the system to search, when there is none.
    static QString ownLibrary();

    /// The settings screen, still without a single item; null when @p file
    /// offers none, which errorString() then explains. A name without a slash
    /// is left to the system, which searches its own directories for it.
    std::shared_ptr<ISystemSet> load(const QString &file);
    QString errorString() const { return m_error; }

private:
    QLibrary m_library;
    VexPlugin::PluginRegistry *m_registry = nullptr;
    QString m_error;
};
