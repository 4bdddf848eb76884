#pragma once

#include "shell/base/service.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>

#include <array>

Q_DECLARE_METATYPE(HMI::SystemSet::NIC)

namespace QSP {

using NIC = HMI::SystemSet::NIC;

/// The adapters that the screen knows, in the order in which it lists them.
constexpr std::array<NIC, 5> g_adapters = {HMI::SystemSet::LAN0, HMI::SystemSet::LAN1, HMI::SystemSet::WIFI,
                                           HMI::SystemSet::MOBILE_4G, HMI::SystemSet::VPN};

/// "No adapter": what a panel without any has selected.
constexpr NIC g_noAdapter = static_cast<NIC>(0);

/// Whether the adapter has addresses that can be seen and edited on the screen.
constexpr bool hasAddresses(NIC nic)
{
    return nic == HMI::SystemSet::LAN0 || nic == HMI::SystemSet::LAN1 || nic == HMI::SystemSet::WIFI;
}

/// The untranslated label of an adapter; the catalogue has it in the contexts of the cards that show it.
constexpr const char *adapterLabel(NIC nic)
{
    switch (nic) {
    case HMI::SystemSet::LAN0:
        return QT_TRANSLATE_NOOP("CardNetwork", "LAN0");
    case HMI::SystemSet::LAN1:
        return QT_TRANSLATE_NOOP("CardNetwork", "LAN1");
    case HMI::SystemSet::WIFI:
        return QT_TRANSLATE_NOOP("CardNetwork", "Wi-Fi");
    case HMI::SystemSet::MOBILE_4G:
        return QT_TRANSLATE_NOOP("CardNetwork", "4G");
    case HMI::SystemSet::VPN:
        return QT_TRANSLATE_NOOP("CardNetwork", "VPN");
    }
    return "";
}

/// Dotted text of an address.
QString dotted(HMI::IP address);

} // namespace QSP
