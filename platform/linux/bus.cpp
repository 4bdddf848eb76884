#include "linux/bus.h"

#include "linux/log.h"

#include <QtDBus/QDBusError>

#include <algorithm>
#include <atomic>

namespace HmiLinux {

namespace {

// A bus that restarts is away for a moment; one that is missing is not asked for all the time.
constexpr int g_firstRetry = 100;
constexpr int g_lastRetry = 10000;

QString newName()
{
    static std::atomic<int> count{0};
    return QStringLiteral("panelsettings-%1").arg(++count);
}

} // namespace

Bus::Bus(QString address, QObject *parent) : QObject(parent), m_address(std::move(address)), m_retry(this)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(g_firstRetry);
    connect(&m_retry, &QTimer::timeout, this, &Bus::open);
}

Bus::~Bus()
{
    close();
}

void Bus::open()
{
    if (m_connection)
        return;
    m_name = newName();
    QDBusConnection connection = m_address.isEmpty()
                                     ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, m_name)
                                     : QDBusConnection::connectToBus(m_address, m_name);
    if (!connection.isConnected()) {
        if (!m_told)
            qCWarning(busLog, "there is no message bus: %s", qPrintable(connection.lastError().message()));
        m_told = true;
        QDBusConnection::disconnectFromBus(m_name);
        retry();
        return;
    }
    m_told = true; // one that was there and restarts is no fault
    m_retry.setInterval(g_firstRetry);
    // The toolkit's connections end with their bus and do not come back.
    connection.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                       QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                       SLOT(disconnected()));
    m_connection = connection;
    emit opened();
}

QDBusConnection Bus::connection() const
{
    return m_connection.value_or(QDBusConnection(QString()));
}

void Bus::disconnected()
{
    if (!m_connection)
        return;
    qCInfo(busLog, "the message bus has gone");
    close();
    emit lost();
    retry();
}

void Bus::close()
{
    if (!m_connection)
        return;
    m_connection.reset();
    QDBusConnection::disconnectFromBus(m_name);
}

void Bus::retry()
{
    m_retry.start();
    m_retry.setInterval(std::min(m_retry.interval() * 2, g_lastRetry));
}

} // namespace HmiLinux
