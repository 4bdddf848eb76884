#include "linux/profilebook.h"

#include "linux/ask.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/objectmirror.h"

#include <QtCore/QTimer>
#include <QtDBus/QDBusArgument>

namespace HmiLinux {

ProfileBook::ProfileBook(const ObjectMirror *mirror, QObject *parent)
    : QObject(parent), m_mirror(mirror), m_bus(QString()), m_round(new QObject(this))
{}

void ProfileBook::attach(const QDBusConnection &bus)
{
    m_bus = bus;
    m_bus.connect(Nm::service(), QString(), Nm::profile(), QStringLiteral("Updated"), this,
                  SLOT(updated(QDBusMessage)));
}

void ProfileBook::detach()
{
    m_bus = QDBusConnection(QString());
    follow();
}

void ProfileBook::follow()
{
    if (!m_mirror->isComplete()) {
        delete m_round;
        m_round = new QObject(this);
        m_profiles.clear();
        m_known.clear();
        m_waiting.clear();
        return;
    }
    const QStringList paths = m_mirror->pathsWith(Nm::profile());
    const QSet<QString> present(paths.cbegin(), paths.cend());
    const QSet<QString> gone = m_known - present;
    for (const QString &path : gone) {
        m_known.remove(path);
        m_profiles.remove(path);
        m_waiting.remove(path);
    }
    for (const QString &path : paths) {
        if (m_known.contains(path))
            continue;
        m_known.insert(path);
        m_waiting.insert(path);
        fetch(path, {});
    }
}

void ProfileBook::readAgain(const QString &path, const std::function<void()> &read)
{
    fetch(path, read);
}

const Profile *ProfileBook::byPath(const QString &path) const
{
    const auto found = m_profiles.constFind(path);
    return found == m_profiles.constEnd() ? nullptr : &*found;
}

const Profile *ProfileBook::byUuid(const QString &uuid) const
{
    for (const Profile &profile : m_profiles) {
        if (profile.uuid == uuid)
            return &profile;
    }
    return nullptr;
}

const Profile *ProfileBook::byId(const QString &id, const QStringList &types) const
{
    for (const Profile &profile : m_profiles) {
        if (profile.id == id && types.contains(profile.type))
            return &profile;
    }
    return nullptr;
}

void ProfileBook::updated(const QDBusMessage &signal)
{
    if (m_known.contains(signal.path()))
        fetch(signal.path(), {});
}

void ProfileBook::fetch(const QString &path, const std::function<void()> &read)
{
    ask(m_bus, Nm::call(path, Nm::profile(), "GetSettings"), m_round,
        [this, path, read](const QDBusMessage &answer) {
            // Forgotten for that, the panel's own would be made a second time.
            if (isUnanswered(answer)) {
                QTimer::singleShot(RetryTime, m_round, [this, path, read] { fetch(path, read); });
                return;
            }
            m_waiting.remove(path);
            // One of somebody else's, or one that was deleted while it was asked for.
            if (isError(answer))
                m_profiles.remove(path);
            else
                m_profiles.insert(path, readProfile(path, qdbus_cast<Sections>(answer.arguments().value(0))));
            if (read)
                read();
            emit changed();
        });
}

} // namespace HmiLinux
