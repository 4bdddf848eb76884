#pragma once

#include "linux/root.h"

#include <QtCore/QTemporaryDir>

/// The files of a panel, in a directory of the test's own.
class PanelDirectory
{
public:
    QString path() const { return m_directory.path(); }
    HmiLinux::Root root() const { return HmiLinux::Root(m_directory.path()); }

    /// Makes a file with its directories; @p absolute as on a panel.
    void put(const QString &absolute, const QByteArray &contents) const;
    /// Empty when there is no such file.
    QByteArray contents(const QString &absolute) const;

private:
    QTemporaryDir m_directory;
};
