#pragma once

#include "tests/hostile/courier.h"
#include "tests/hostile/whim.h"

#include <atomic>

namespace HostileService {

/// What a calm panel would say: it does as it is told.
struct Settings {
    std::atomic<int> enabled{0x57};
    std::atomic<int> dhcp{0x07};
    std::atomic<int> defaultAdapter{1};
    std::atomic<int> server{0};
    std::atomic<int> bright{20};
    std::atomic<int> buzzer{1};
    std::atomic<int> language{1};
};

/// What the service is made of. There is one while the service lives.
class Hostility
{
public:
    Hostility();
    ~Hostility();
    Hostility(const Hostility &) = delete;
    Hostility &operator=(const Hostility &) = delete;

    static Hostility &instance();

    Whim &whim() { return m_whim; }
    Courier &courier() { return m_courier; }
    Settings &settings() { return m_settings; }

    /// Answers a getter: @p calm() or @p wild(); a report may come meanwhile.
    template <class Calm, class Wild> auto answer(Calm calm, Wild wild)
    {
        m_courier.deliverInGetter();
        return m_whim.isWild() ? wild() : calm();
    }
    /// Makes @p report in one of the ways in which a report can come, or in none.
    void report(const Courier::Report &report);

private:
    Whim m_whim;
    Settings m_settings;
    Courier m_courier; // last, so that its threads end first
};

} // namespace HostileService
