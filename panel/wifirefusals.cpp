#include "panel/wifirefusals.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QRandomGenerator>

#include <array>

namespace QSP {

namespace {

constexpr int blockSize = 64;

} // namespace

// Drawn anew each time, so that nobody who sees a digest can look its password up.
WifiRefusals::WifiRefusals()
{
    std::array<quint32, 4> salt{};
    QRandomGenerator::system()->fillRange(salt.data(), static_cast<qsizetype>(salt.size()));
    m_salt = QByteArray(reinterpret_cast<const char *>(salt.data()), sizeof(salt));
}

WifiRefusals::Digest WifiRefusals::digestOf(const HMI::SSID &ssid, const QString &password) const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(m_salt);
    hash.addData(ssid.data(), static_cast<int>(ssid.size()));
    hash.addData(reinterpret_cast<const char *>(password.constData()),
                 password.size() * static_cast<int>(sizeof(QChar)));
    QByteArray digest = hash.result();
    // Its last block holds the password until others come.
    hash.addData(QByteArray(blockSize, '\0'));
    return digest;
}

} // namespace QSP
