#include "linux/root.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace HmiLinux {

namespace {

// Files of this service are a line or two; a device that never ends must not be read to its end.
constexpr qint64 g_largest = 65536;

} // namespace

Root::Root(QString directory, Access access) : m_directory(std::move(directory)), m_access(access)
{
    while (m_directory.endsWith(QLatin1Char('/')))
        m_directory.chop(1);
}

std::optional<QByteArray> Root::read(const QString &absolute) const
{
    QFile file(path(absolute));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(g_largest);
}

bool Root::replace(const QString &absolute, const QByteArray &contents) const
{
    if (isReadOnly())
        return true;
    QDir().mkpath(QFileInfo(path(absolute)).path());
    QSaveFile file(path(absolute));
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.commit();
}

bool Root::tell(const QString &absolute, const QByteArray &value) const
{
    if (isReadOnly())
        return true;
    QFile file(path(absolute));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered | QIODevice::ExistingOnly) &&
           file.write(value) == value.size();
}

} // namespace HmiLinux
