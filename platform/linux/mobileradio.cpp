#include "linux/mobileradio.h"

#include "linux/ask.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/objectmirror.h"

namespace HmiLinux {

using HMI::SystemSet;

namespace {

constexpr auto g_switch = "WwanEnabled";
constexpr auto g_deviceSwitch = "WwanHardwareEnabled";

QString switchedOff()
{
    return QStringLiteral("mobile networks are switched off");
}

} // namespace

MobileRadio::MobileRadio(const Published<Snapshot> *state, const ObjectMirror *mirror, QObject *parent)
    : QObject(parent)
    , m_state(state)
    , m_mirror(mirror)
    , m_bus(QString())
    , m_requests(std::make_unique<QObject>(this))
{
    // Its answer may come before what it has changed is told.
    connect(m_mirror, &ObjectMirror::changed, this, [this] { m_isAsked = m_isAsked && isOff(g_switch); });
}

void MobileRadio::attach(const QDBusConnection &bus)
{
    m_bus = bus;
}

void MobileRadio::interrupt()
{
    m_requests = std::make_unique<QObject>(this);
    m_isAsked = false;
    m_trouble.clear();
}

void MobileRadio::published()
{
    const std::size_t place = *placeOf(SystemSet::MOBILE_4G);
    if (m_state->read()->wishes.at(place).enabled)
        return; // it may be switched on in a moment
    const QString now = trouble();
    if (now != m_trouble && !now.isEmpty())
        qCWarning(modemLog, "4G does not work: %s", qPrintable(now));
    m_trouble = now;
}

void MobileRadio::wishStored()
{
    const Wish wish = m_state->read()->wishes.at(*placeOf(SystemSet::MOBILE_4G));
    if (wish.enabled.value_or(false) && isOff(g_switch) && !m_isAsked)
        switchOn();
}

bool MobileRadio::isOff(const char *name) const
{
    const QVariant isOn = m_mirror->property(Nm::path(), Nm::service(), QLatin1String(name));
    return isOn.isValid() && !isOn.toBool();
}

void MobileRadio::switchOn()
{
    m_isAsked = true;
    const QDBusMessage question = Nm::set(Nm::path(), Nm::service(), g_switch, true);
    ask(m_bus, question, m_requests.get(), [this](const QDBusMessage &set) {
        if (!isError(set))
            return; // it is on when it is seen to be
        m_isAsked = false;
        m_trouble = switchedOff();
        qCWarning(modemLog, "4G does not work: %s, and stay so: %s", qPrintable(m_trouble),
                  qPrintable(reasonOf(set)));
    });
}

QString MobileRadio::trouble() const
{
    if (!m_state->read()->values(*placeOf(SystemSet::MOBILE_4G)).enabled)
        return {};
    if (isOff(g_deviceSwitch))
        return QStringLiteral("the device's own switch for mobile networks is off");
    return isOff(g_switch) && !m_isAsked ? switchedOff() : QString();
}

} // namespace HmiLinux
