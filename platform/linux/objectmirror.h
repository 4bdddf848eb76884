#pragma once

#include "linux/dbustypes.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace HmiLinux {

/// All objects of one daemon with their properties, as its signals tell them.
///
/// Signals are subscribed to before the objects are asked for: what changes in between comes after the answer and
/// is not lost. While the daemon is away there are no objects; once it is back they are read afresh.
class ObjectMirror : public QObject
{
    Q_OBJECT

public:
    /// @p manager is the path of the daemon's object manager.
    ObjectMirror(QString service, QString manager, QObject *parent = nullptr);

    void attach(const QDBusConnection &bus);
    void detach();

    /// Whether the daemon is there and its objects are known.
    bool isComplete() const { return m_complete; }
    QStringList pathsWith(const QString &interface) const;
    bool has(const QString &path, const QString &interface) const;
    /// Invalid where there is no such property.
    QVariant property(const QString &path, const QString &interface, const QString &name) const;

signals:
    /// Something is otherwise than before, also isComplete().
    void changed();

private slots:
    void ownerChanged(const QDBusMessage &signal);
    void interfacesAdded(const QDBusMessage &signal);
    void interfacesRemoved(const QDBusMessage &signal);
    void propertiesChanged(const QDBusMessage &signal);

private:
    void fetch();
    void clear();

    QString m_service;
    QString m_manager;
    QDBusConnection m_bus;
    QTimer m_retry; ///< of a daemon that is there and does not answer
    QHash<QString, Sections> m_objects;
    int m_round = 0; ///< what was asked in an earlier one is answered for nobody
    bool m_complete = false;
    bool m_told = false;
};

} // namespace HmiLinux
