#pragma once

#include "hmi/systemset.h"

#include <QtCore/QByteArray>
#include <QtCore/QSet>
#include <QtCore/QString>

namespace QSP {

/// Which password which network has refused, so that it is not offered again while the service still
/// reports it. Keeps no password, only what tells one from another.
class WifiRefusals
{
public:
    /// Stands for a network together with a password.
    using Digest = QByteArray;

    WifiRefusals();

    Digest digestOf(const HMI::SSID &ssid, const QString &password) const;
    void add(const Digest &digest) { m_refused.insert(digest); }
    void remove(const Digest &digest) { m_refused.remove(digest); }
    void clear() { m_refused.clear(); }
    bool contains(const HMI::SSID &ssid, const QString &password) const
    {
        return !m_refused.isEmpty() && m_refused.contains(digestOf(ssid, password));
    }

private:
    QByteArray m_salt;
    QSet<Digest> m_refused;
};

} // namespace QSP
