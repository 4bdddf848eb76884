#include "linux/modem.h"

#include "linux/log.h"
#include "linux/modemnames.h"
#include "linux/modemtypes.h"

#include <algorithm>

namespace HmiLinux {

namespace {

constexpr int g_fullSignal = 100;

} // namespace

Modem::Modem(QString interface, QObject *parent)
    : QObject(parent), m_interface(std::move(interface)), m_mirror(Mm::service(), Mm::objects(), this)
{
    registerBusTypes();
    registerModemTypes();
    connect(&m_mirror, &ObjectMirror::changed, this, &Modem::mirrorChanged);
}

void Modem::attach(const QDBusConnection &bus)
{
    m_mirror.attach(bus);
}

void Modem::detach()
{
    m_mirror.detach();
}

QString Modem::port() const
{
    return property("PrimaryPort").toString();
}

ModemState Modem::state() const
{
    ModemState state;
    state.state = property("State").toInt();
    // What a modem that is switched off measured last tells nothing.
    if (state.state >= Mm::Enabled) {
        const uint percent = qdbus_cast<SignalQuality>(property("SignalQuality")).percent;
        state.signal = int(std::min(percent, uint(g_fullSignal)));
    }
    return state;
}

void Modem::mirrorChanged()
{
    const QString now = trouble();
    if (now != m_trouble && !now.isEmpty())
        qCWarning(modemLog, "4G does not work: %s", qPrintable(now));
    m_trouble = now;
    emit changed();
}

QString Modem::path() const
{
    const QStringList modems = m_mirror.pathsWith(Mm::modem());
    for (const QString &modem : modems) {
        const auto read = [this, &modem](const char *name) {
            return m_mirror.property(modem, Mm::modem(), QLatin1String(name));
        };
        if (read("PrimaryPort") == m_interface)
            return modem;
        const auto ports = qdbus_cast<ModemPorts>(read("Ports"));
        if (std::any_of(ports.cbegin(), ports.cend(),
                        [this](const ModemPort &port) { return port.name == m_interface; }))
            return modem;
    }
    return {};
}

QVariant Modem::property(const char *name) const
{
    return m_mirror.property(path(), Mm::modem(), QLatin1String(name));
}

QString Modem::trouble() const
{
    const int state = property("State").toInt();
    if (state == Mm::Locked)
        return QStringLiteral("the SIM card wants a code");
    if (state != Mm::Failed)
        return {};
    const uint reason = property("StateFailedReason").toUInt();
    if (reason == Mm::CardMissing)
        return QStringLiteral("there is no SIM card, or none that the modem takes");
    if (reason == Mm::CardBroken)
        return QStringLiteral("the SIM card cannot be used");
    return QStringLiteral("the modem failed, reason %1").arg(reason);
}

} // namespace HmiLinux
