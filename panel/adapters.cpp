#include "panel/adapters.h"

namespace QSP {

Adapters::Adapters(WifiLink *link, QObject *parent) : QObject(parent), m_link(link) {}

int Adapters::present() const
{
    return m_present.get([] { return callService<&HMI::SystemSet::getAllNIC>(); });
}

Adapter &Adapters::of(NIC nic)
{
    Adapter *&adapter = m_adapters[nic];
    if (!adapter) {
        adapter = new Adapter(nic, nic == HMI::SystemSet::WIFI ? m_link : nullptr, this);
        connect(adapter, &Adapter::enabledChanged, this, &Adapters::enabledChanged);
        connect(adapter, &Adapter::staticChanged, this, [this, nic] { emit staticChanged(nic); });
        connect(adapter, &Adapter::dnsDue, this, [this, nic] { emit dnsDue(nic); });
    }
    return *adapter;
}

void Adapters::forget()
{
    m_present.forget();
    for (Adapter *adapter : qAsConst(m_adapters))
        adapter->forget();
}

void Adapters::readAll()
{
    // In the order in which they are listed, which is the order of what is written meanwhile.
    for (const NIC nic : g_adapters) {
        if (Adapter *adapter = m_adapters.value(nic))
            adapter->readAll();
    }
}

} // namespace QSP
