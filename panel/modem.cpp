#include "panel/modem.h"

#include "panel/adapter.h"

namespace QSP {

Modem::Modem(Adapter &adapter, QObject *parent) : QObject(parent)
{
    connect(&adapter, &Adapter::enabling, this, &Modem::forget);
    connect(&adapter, &Adapter::enabledChanged, this, &Modem::forget);
}

int Modem::signalStrength() const
{
    return m_signal.get([] { return callService<&HMI::SystemSet::get4GSignal>(HMI::SystemSet::MOBILE_4G); });
}

int Modem::state() const
{
    return m_state.get([] { return callService<&HMI::SystemSet::get4GState>(HMI::SystemSet::MOBILE_4G); });
}

void Modem::forget()
{
    m_signal.forget();
    m_state.forget();
}

} // namespace QSP
