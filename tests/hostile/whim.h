#pragma once

#include "hmi/systemset.h"

#include <atomic>
#include <mutex>
#include <random>

namespace HostileService {

/// Draws what no service should answer. Thread-safe.
class Whim
{
public:
    void begin(unsigned seed);
    void useFewLetters() { m_hasFewLetters = true; }

    /// Whether the next answer is one of those: in some stretches hardly any is, in others most are.
    bool isWild();
    /// From 0 to @p count - 1.
    int below(int count);
    /// Any whole number, those at which code breaks more often than the others.
    int number();
    quint32 address() { return static_cast<quint32>(number()); }
    /// Up to 100 kB of markup, bytes of no encoding, NUL, control characters and letters of many scripts.
    std::string text();
    /// All 33 bytes may be other than NUL.
    HMI::SSID name();
    /// Up to 5,000 networks, or null.
    std::unique_ptr<std::vector<HMI::SystemSet::SsidInfo>> networks();

private:
    HMI::SystemSet::SsidInfo network();
    std::string phrasesOf(int count, size_t longest);

    std::mutex m_mutex;
    std::mt19937 m_random;
    std::atomic<bool> m_hasFewLetters{false};
    int m_wildness = 50; // in percent
};

} // namespace HostileService
