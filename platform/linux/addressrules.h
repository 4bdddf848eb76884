#pragma once

#include "hmi/systemset.h"

#include <QtCore/QString>

#include <optional>

namespace HmiLinux {

/// One set of static addresses; each 0 when not set.
struct Addresses {
    HMI::IP ip;
    HMI::IP mask;
    HMI::IP gateway;

    friend bool operator==(const Addresses &a, const Addresses &b)
    {
        return quint32(a.ip) == quint32(b.ip) && quint32(a.mask) == quint32(b.mask) &&
               quint32(a.gateway) == quint32(b.gateway);
    }
    friend bool operator!=(const Addresses &a, const Addresses &b) { return !(a == b); }
};

/// The servers of an adapter, preferred first; each 0 when not set.
struct Dns {
    HMI::IP first;
    HMI::IP second;

    friend bool operator==(const Dns &a, const Dns &b)
    {
        return quint32(a.first) == quint32(b.first) && quint32(a.second) == quint32(b.second);
    }
    friend bool operator!=(const Dns &a, const Dns &b) { return !(a == b); }
};

/// As the daemon keeps servers: no place is empty before another, and none stands there twice.
Dns inOrder(Dns dns);

/// An address of four decimal numbers; nothing for any other text.
std::optional<HMI::IP> addressOf(const QString &dotted);
QString dotted(HMI::IP address);

/// The mask with @p prefix leading ones.
HMI::IP maskOf(int prefix);
/// The number of leading ones; nothing for a mask with holes.
std::optional<int> prefixOf(HMI::IP mask);

/// Why the addresses cannot be in force together; empty when they can. All zero means "no address", which can.
QString conflictOf(const Addresses &addresses);

} // namespace HmiLinux
