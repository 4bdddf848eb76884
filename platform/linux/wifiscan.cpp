#include "linux/wifiscan.h"

#include "linux/ask.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/objectmirror.h"

namespace HmiLinux {

namespace {

// A device with many channels takes some five seconds; who asked gives up after thirty.
constexpr int g_limit = 15000;
// The last networks are told in the same breath as the end.
constexpr int g_settleTime = 10;

} // namespace

WifiScan::WifiScan(const ObjectMirror *mirror, QObject *parent)
    : QObject(parent), m_mirror(mirror), m_limit(this), m_settle(this)
{
    m_limit.setObjectName(QStringLiteral("scanLimit"));
    m_limit.setSingleShot(true);
    m_limit.setInterval(g_limit);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        qCWarning(wifiLog, "the scan does not end; what was heard before has to do");
        m_settle.start();
    });
    m_settle.setSingleShot(true);
    m_settle.setInterval(g_settleTime);
    connect(&m_settle, &QTimer::timeout, this, [this] {
        cancel();
        emit ended(m_heard);
    });
}

void WifiScan::start(const QDBusConnection &bus, const QString &device)
{
    m_device = device;
    m_before = lastScan();
    m_heard = false;
    m_limit.start();
    m_request = std::make_unique<QObject>(this);
    QDBusMessage question = Nm::call(device, Nm::wireless(), "RequestScan");
    question << QVariantMap();
    ask(bus, question, m_request.get(), [this](const QDBusMessage &answer) {
        if (!isError(answer))
            return;
        // The daemon refuses what it has done a moment ago: what it heard then is fresh.
        qCInfo(wifiLog, "no scan: %s", qPrintable(reasonOf(answer)));
        m_settle.start();
    });
}

void WifiScan::cancel()
{
    m_limit.stop();
    m_settle.stop();
    m_request.reset();
}

void WifiScan::mirrorChanged()
{
    if (!isRunning() || m_settle.isActive() || lastScan() == m_before)
        return;
    m_heard = true;
    m_settle.start();
}

qlonglong WifiScan::lastScan() const
{
    return m_mirror->property(m_device, Nm::wireless(), QStringLiteral("LastScan")).toLongLong();
}

} // namespace HmiLinux
