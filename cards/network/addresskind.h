#pragma once

#include "panel/nic.h"

#include <QtCore/QVector>

#include <array>

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
};

/// One of the three addresses of an adapter: where it is shown, read and written.
struct AddressKind {
    const char *label;
    CIpInput *AdapterRows::*field;
    HMI::IP (HMI::SystemSet::*live)(NIC) const;   ///< in force now
    HMI::IP (HMI::SystemSet::*stored)(NIC) const; ///< the static configuration
    void (HMI::SystemSet::*write)(NIC, HMI::IP, bool);
};

inline constexpr AddressKind g_ip = {"IP Address", &AdapterRows::ip, &HMI::SystemSet::getIp,
                                     &HMI::SystemSet::getIpFromEE, &HMI::SystemSet::setIp};
inline constexpr AddressKind g_mask = {"Subnet Mask", &AdapterRows::mask, &HMI::SystemSet::getSubnetMask,
                                       &HMI::SystemSet::getSubnetMaskFromEE, &HMI::SystemSet::setSubnetMask};
inline constexpr AddressKind g_gateway = {"Default Gateway", &AdapterRows::gateway,
                                          &HMI::SystemSet::getGateway, &HMI::SystemSet::getGatewayFromEE,
                                          &HMI::SystemSet::setGateway};
/// In the order of their rows.
inline constexpr std::array<const AddressKind *, 3> g_addressKinds = {&g_ip, &g_mask, &g_gateway};

} // namespace QSP
