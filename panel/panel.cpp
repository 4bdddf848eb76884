#include "panel/panel.h"

#include <algorithm>

namespace QSP {

Panel::Panel(QObject *parent)
    : QObject(parent)
    , m_wifi(this)
    , m_adapters(&m_wifi, this)
    , m_defaultAdapter(m_adapters, this)
    , m_modem(m_adapters.of(HMI::SystemSet::MOBILE_4G), this)
    , m_tunnel(m_adapters.of(HMI::SystemSet::VPN), this)
{
    m_wifi.attempt().setHasAddress([this] { return m_adapters.of(HMI::SystemSet::WIFI).hasAddressByNow(); });
}

void Panel::select(NIC nic)
{
    if (nic == m_selected)
        return;
    const NIC before = m_selected;
    m_selected = nic;
    m_adapters.of(nic).forget();
    m_wifi.forget();
    m_modem.forget();
    m_tunnel.forget();
    emit selectionChanged(nic, before);
}

void Panel::selectFirst()
{
    if (m_selected != g_noAdapter)
        return;
    const int present = m_adapters.present();
    const auto *first = std::find_if(g_adapters.begin(), g_adapters.end(),
                                     [present](NIC nic) { return (present & nic) != 0; });
    if (first != g_adapters.end())
        select(*first);
}

void Panel::read()
{
    m_wifi.forget();
    m_modem.forget();
    m_tunnel.forget();
    m_defaultAdapter.forget(); // and the adapters
    m_adapters.readAll();
    emit wasRead();
}

} // namespace QSP
