#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariant>

namespace QSP {

/// What a property (mostly an alias) of a document's root refers to, or null
/// when there is no such property or it refers to something that is no T.
template <class T> T *aliasOf(const QObject *object, const char *name)
{
    return object ? qobject_cast<T *>(object->property(name).value<QObject *>()) : nullptr;
}

} // namespace QSP
