#include "linux/filewatch.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace HmiLinux {

FileWatch::FileWatch(QString file, QObject *parent)
    : QObject(parent), m_file(std::move(file)), m_watcher(this)
{
    // One that is replaced is a new one, which only its directory tells.
    const QString directory = QFileInfo(m_file).path();
    if (QDir().mkpath(directory))
        m_watcher.addPath(directory);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatch::look);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatch::look);
    look();
}

void FileWatch::look()
{
    if (!m_watcher.files().contains(m_file) && QFileInfo::exists(m_file))
        m_watcher.addPath(m_file);
    emit changed();
}

} // namespace HmiLinux
