#include "simulator/core.h"

#include "simulator/defaultpanel.h"

namespace HmiSimulator {

Core &Core::instance()
{
    static Core core;
    return core;
}

Core::Core() : m_panel(defaultPanel()) {}

void Core::replace(Panel panel)
{
    m_thread.dropAll();
    ++m_attempt;
    {
        const std::lock_guard<std::mutex> lock(m_driftMutex);
        m_random.seed();
    }
    write([&panel](Panel &current) { current = std::move(panel); });
}

void Core::reset()
{
    m_thread.setManual(false, CallbackThread::Waiting::Drop);
    replace(defaultPanel());
    m_journal.setGetters(false);
    m_journal.clear();
}

int Core::drift(int range)
{
    if (range <= 0)
        return 0;
    const std::lock_guard<std::mutex> lock(m_driftMutex);
    const auto span = 2 * static_cast<std::minstd_rand::result_type>(range) + 1;
    return static_cast<int>(m_random() % span) - range;
}

std::uint64_t Core::beginAttempt()
{
    return ++m_attempt;
}

bool Core::isAttempt(std::uint64_t attempt) const
{
    return m_attempt == attempt;
}

} // namespace HmiSimulator
