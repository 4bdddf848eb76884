#include "linux/activation.h"

#include "linux/ask.h"
#include "linux/nmnames.h"

#include <QtDBus/QDBusObjectPath>

namespace HmiLinux {

namespace {

// The daemon's own limit for a lease is below.
constexpr int g_limit = 40000;

} // namespace

Activation::Activation(QObject *parent) : QObject(parent), m_limit(this)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(g_limit);
    connect(&m_limit, &QTimer::timeout, this, [this] { end(QStringLiteral("it takes too long")); });
}

void Activation::start(const QDBusConnection &bus, const QString &profile, const QString &device)
{
    m_device = device;
    m_prepared = false;
    m_wasUnplugged = false;
    m_limit.start();
    m_request = std::make_unique<QObject>(this);
    QDBusMessage question = Nm::call(Nm::path(), Nm::service(), "ActivateConnection");
    question << QDBusObjectPath(profile) << QDBusObjectPath(device) << QDBusObjectPath(QStringLiteral("/"));
    ask(bus, question, m_request.get(), [this](const QDBusMessage &answer) {
        if (isError(answer))
            end(reasonOf(answer));
    });
}

void Activation::cancel()
{
    m_limit.stop();
    m_request.reset();
}

void Activation::deviceChanged(uint state, uint reason)
{
    if (!isRunning())
        return;
    if (state == Nm::Preparing) {
        m_prepared = true;
        return;
    }
    if (!m_prepared || reason == Nm::ProfileRemoved)
        return;
    if (reason == Nm::NewActivation) {
        m_prepared = false;
        return;
    }
    m_wasUnplugged = state <= Nm::Unavailable;
    if (state == Nm::Activated)
        end({});
    else if (state == Nm::Failed)
        end(reason == Nm::NoLease ? QStringLiteral("no lease was to be had")
                                  : QStringLiteral("it failed, reason %1").arg(reason));
    else if (state <= Nm::Disconnected)
        end(QStringLiteral("the adapter was switched off, reason %1").arg(reason));
}

void Activation::end(const QString &why)
{
    m_limit.stop();
    emit ended(why);
}

} // namespace HmiLinux
