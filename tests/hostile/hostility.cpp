#include "tests/hostile/hostility.h"

#include "meyersingleton.h"
#include "tests/hostile/hostileservice.h"

namespace HostileService {

namespace {

std::atomic<Hostility *> g_instance{nullptr};

} // namespace

Hostility::Hostility()
{
    g_instance = this;
}

Hostility::~Hostility()
{
    g_instance = nullptr;
}

Hostility &Hostility::instance()
{
    MeyerSingleton<HMI::SystemSet>::instance();
    return *g_instance;
}

void Hostility::report(const Courier::Report &report)
{
    const auto times = [&report](int count) {
        return [report, count] {
            for (int i = 0; i < count; ++i)
                report();
        };
    };
    if (!m_whim.isWild()) {
        m_courier.send(report);
        return;
    }
    const int way = m_whim.below(100);
    if (way < 15) {
        // Never.
    } else if (way < 30) {
        report();
    } else if (way < 40) {
        times(2)();
    } else if (way < 50) {
        m_courier.send(times(2));
    } else if (way < 52) {
        m_courier.send(times(1000));
    } else if (way < 53) {
        times(1000)();
    } else if (way < 65) {
        for (int i = 0; i < Courier::threads; ++i)
            m_courier.send(times(10));
    } else if (way < 80) {
        m_courier.keepForGetter(report);
    } else {
        m_courier.keep(report);
    }
}

void begin(unsigned seed)
{
    Hostility::instance().courier().forgetKept();
    Hostility::instance().whim().begin(seed);
}

void deliverKept()
{
    Hostility::instance().courier().deliverKept();
}

void waitIdle()
{
    Hostility::instance().courier().waitIdle();
}

void useFewLetters()
{
    Hostility::instance().whim().useFewLetters();
}

} // namespace HostileService
