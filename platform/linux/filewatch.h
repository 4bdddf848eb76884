#pragma once

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QObject>

namespace HmiLinux {

/// Tells when a file may have been changed, whether it was written into or replaced.
class FileWatch : public QObject
{
    Q_OBJECT

public:
    explicit FileWatch(QString file, QObject *parent = nullptr);

signals:
    void changed();

private:
    void look();

    QString m_file;
    QFileSystemWatcher m_watcher;
};

} // namespace HmiLinux
