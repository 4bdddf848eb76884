#pragma once

#include "panel/adapter.h"

#include <QtCore/QVector>

class QQuickItem;

namespace QSP {

class BeepSwitch;
class CIpInput;

/// What was built for one adapter. The items belong to the card's column; what an adapter lacks is null.
struct AdapterRows {
    QVector<QQuickItem *> items;  ///< the rows, top to bottom
    BeepSwitch *enable = nullptr; ///< "Disable Network", "4G" or "VPN"
    BeepSwitch *fixed = nullptr;  ///< "Static IP"
    CIpInput *ip = nullptr;
    CIpInput *mask = nullptr;
    CIpInput *gateway = nullptr;

    CIpInput *&field(Address address)
    {
        if (address == Address::Ip)
            return ip;
        return address == Address::SubnetMask ? mask : gateway;
    }
};

} // namespace QSP
