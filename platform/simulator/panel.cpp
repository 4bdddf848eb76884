#include "simulator/panel.h"

namespace HmiSimulator {

Delays Delays::all(int milliseconds)
{
    Delays delays;
    for (int *delay : {&delays.dhcp, &delays.fixed, &delays.ping, &delays.scan, &delays.reset,
                       &delays.connecting, &delays.connect, &delays.mobile, &delays.vpn}) {
        *delay = milliseconds;
    }
    return delays;
}

const Adapter *Panel::find(int nic) const
{
    if ((nicMask & nic) == 0)
        return nullptr;
    const auto found = adapters.find(nic);
    return found == adapters.end() ? nullptr : &found->second;
}

Adapter *Panel::find(int nic)
{
    return const_cast<Adapter *>(static_cast<const Panel *>(this)->find(nic));
}

} // namespace HmiSimulator
