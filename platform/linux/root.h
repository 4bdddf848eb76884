#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <optional>

namespace HmiLinux {

/// The directory under which the system's files are sought: "/" on a panel, another one in tests.
class Root
{
public:
    enum class Access {
        All,
        ReadOnly, ///< what is to be written counts as written, and nothing is
    };

    explicit Root(QString directory = {}, Access access = Access::All);

    bool isReadOnly() const { return m_access == Access::ReadOnly; }

    /// Where the file called @p absolute on a panel lies.
    QString path(const QString &absolute) const { return m_directory + absolute; }

    /// The contents of a small file; nothing when it cannot be read.
    std::optional<QByteArray> read(const QString &absolute) const;
    /// Replaces a file as a whole, making its directory: after a power cut it is the old or the new one.
    bool replace(const QString &absolute, const QByteArray &contents) const;
    /// Writes into a file that the kernel made, such as one of sysfs.
    bool tell(const QString &absolute, const QByteArray &value) const;

private:
    QString m_directory;
    Access m_access;
};

/// Does work that may take long somewhere else than on the caller's thread, in the order in which it was handed in.
using Later = std::function<void(std::function<void()>)>;

} // namespace HmiLinux
