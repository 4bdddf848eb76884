#pragma once

#include <QtQml/QQmlEngine>

#include <cstring>

namespace QSP {

/// Offers @p T to the documents, under the name of the class without its namespace. Once a process, however
/// often it is called; whoever needs a document with the type calls it first, so that nothing is registered
/// for pages that nobody visits.
template <class T> void registerQmlType()
{
    const char *const name = T::staticMetaObject.className();
    const char *const colon = std::strrchr(name, ':');
    static const int _registered = qmlRegisterType<T>("QQuickSystemSet", 1, 0, colon ? colon + 1 : name);
    Q_UNUSED(_registered)
}

} // namespace QSP
