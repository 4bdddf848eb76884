#include "tests/linux/paneldirectory.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

void PanelDirectory::put(const QString &absolute, const QByteArray &contents) const
{
    const QString file = m_directory.path() + absolute;
    QDir().mkpath(QFileInfo(file).path());
    QFile target(file);
    if (target.open(QIODevice::WriteOnly))
        target.write(contents);
}

QByteArray PanelDirectory::contents(const QString &absolute) const
{
    QFile file(m_directory.path() + absolute);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
