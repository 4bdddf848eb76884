#include "host/pluginloader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

PluginLoader::~PluginLoader()
{
    if (!m_registry)
        return;
    if (const auto closeInstance = reinterpret_cast<void (*)()>(m_library.resolve("VexPluginCloseInstance")))
        closeInstance();
    // The library stays loaded: the QML engine knows its types for as long as the process lives.
}

QString PluginLoader::ownLibrary()
{
    QString name = QStringLiteral(PANEL_PLUGIN_NAME);
    const QDir here(QCoreApplication::applicationDirPath());
    for (const char *place : {PANEL_PLUGIN_DIRECTORY, "."}) {
        const QFileInfo file(here.filePath(QString::fromLatin1(place)), name);
        if (file.exists())
            return file.absoluteFilePath();
    }
    return name;
}

std::shared_ptr<ISystemSet> PluginLoader::load(const QString &file)
{
    // A mere name never means the current directory, where anybody may have put something.
    const bool isPath = file.contains(QLatin1Char('/'));
    if (isPath && !QFileInfo(file).isFile()) {
        m_error = QStringLiteral("there is no file %1").arg(file);
        return {};
    }
    m_library.setFileName(isPath ? QFileInfo(file).absoluteFilePath() : file);
    if (!m_library.load()) {
        m_error = m_library.errorString();
        if (!isPath)
            m_error += QStringLiteral("; for a file of the current directory write ./%1").arg(file);
        return {};
    }

    using GetInstance = VexPlugin::PluginRegistry *(*)();
    const auto getInstance = reinterpret_cast<GetInstance>(m_library.resolve("VexPluginGetInstance"));
    if (!getInstance) {
        m_error = QStringLiteral("%1 is a library, but no plug-in: it does not export VexPluginGetInstance")
                      .arg(file);
        return {};
    }
    m_registry = getInstance();

    const auto &factories = m_registry->factories();
    const auto entry = factories.find(typeid(ISystemSet));
    if (entry == factories.end()) {
        m_error = QStringLiteral("%1 is a plug-in, but offers no settings screen (ISystemSet)").arg(file);
        return {};
    }
    return std::static_pointer_cast<ISystemSet>(entry->second());
}
