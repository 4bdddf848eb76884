#pragma once

#include "linux/profile.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

namespace HmiLinux {

class ObjectMirror;

/// The profiles that the daemon stores. Their contents are no properties: each is asked for when it appears and when
/// the daemon tells that it was changed.
class ProfileBook : public QObject
{
    Q_OBJECT

public:
    explicit ProfileBook(const ObjectMirror *mirror, QObject *parent = nullptr);

    void attach(const QDBusConnection &bus);
    void detach();

    /// Brings the list in step with the mirror's objects.
    void follow();
    /// Reads one again; @p read comes once it is known, or is known not to be readable.
    void readAgain(const QString &path, const std::function<void()> &read);

    /// Whether all profiles are read.
    bool isComplete() const { return m_waiting.isEmpty(); }
    const Profile *byPath(const QString &path) const;
    const Profile *byUuid(const QString &uuid) const;
    /// One of the @p types: an id may be given to more than one.
    const Profile *byId(const QString &id, const QStringList &types) const;

signals:
    void changed();

private slots:
    void updated(const QDBusMessage &signal);

private:
    void fetch(const QString &path, const std::function<void()> &read);

    const ObjectMirror *m_mirror;
    QDBusConnection m_bus;
    QHash<QString, Profile> m_profiles;
    QSet<QString> m_known;   ///< also those that may not be read
    QSet<QString> m_waiting; ///< asked for the first time, not answered
    QObject *m_round;        ///< what is asked dies with it
};

} // namespace HmiLinux
