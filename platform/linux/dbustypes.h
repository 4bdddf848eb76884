#pragma once

#include <QtCore/QMap>
#include <QtCore/QVariant>
#include <QtDBus/QDBusObjectPath>

namespace HmiLinux {

/// The properties of one object, by interface; the settings of one profile, by section.
using Sections = QMap<QString, QVariantMap>;
/// All that an object manager has.
using ManagedObjects = QMap<QDBusObjectPath, Sections>;

/// Once a process, before anything is asked.
void registerBusTypes();

/// An element "a{sv}", as addresses and servers come in lists.
using Records = QList<QVariantMap>;
/// What a property of records holds, whether the bus or a program made it.
Records recordsOf(const QVariant &value);

} // namespace HmiLinux

Q_DECLARE_METATYPE(HmiLinux::Sections)
Q_DECLARE_METATYPE(HmiLinux::ManagedObjects)
Q_DECLARE_METATYPE(HmiLinux::Records)
