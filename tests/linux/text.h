#pragma once

#include <QtCore/QString>

/// Short, because tests of daemons are full of names, paths and values.
inline QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}
