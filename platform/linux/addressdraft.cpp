#include "linux/addressdraft.h"

namespace HmiLinux {

namespace {

constexpr int g_typingLimit = 120000;

} // namespace

Addresses AddressDraft::over(const Addresses &stored, const Wish &wish) const
{
    ProfileValues values;
    values.stored = stored;
    if (isAlive())
        values = m_kept.over(values);
    return wish.over(values).stored;
}

void AddressDraft::keep(const Wish &wish)
{
    if (!isAlive())
        m_kept = {};
    const auto take = [](std::optional<HMI::IP> *kept, const std::optional<HMI::IP> &brought) {
        if (brought)
            *kept = brought;
    };
    take(&m_kept.ip, wish.ip);
    take(&m_kept.mask, wish.mask);
    take(&m_kept.gateway, wish.gateway);
    m_end.setRemainingTime(g_typingLimit);
}

void AddressDraft::forget()
{
    m_end.setRemainingTime(0);
}

} // namespace HmiLinux
