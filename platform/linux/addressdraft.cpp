#include "linux/addressdraft.h"

namespace HmiLinux {

namespace {

constexpr int g_typingLimit = 120000;

/// Whether an adapter, or a gateway, can have @p address where @p mask holds, if it is one.
bool canStandAlone(HMI::IP address, HMI::IP mask)
{
    const bool isMask = prefixOf(mask).value_or(0) > 0;
    return conflictOf({address, isMask ? mask : maskOf(32), 0}).isEmpty();
}

} // namespace

Addresses AddressDraft::over(const Addresses &stored, const Wish &wish) const
{
    ProfileValues values;
    values.stored = stored;
    if (isAlive())
        values = m_kept.over(values);
    return wish.over(values).stored;
}

void AddressDraft::keep(const Wish &wish, const Addresses &whole)
{
    if (!isAlive())
        m_kept = {};
    // What is impossible by itself is refused for good: with another mask, it would come in force unasked.
    if (wish.ip && canStandAlone(*wish.ip, whole.mask))
        m_kept.ip = wish.ip;
    if (wish.mask && prefixOf(*wish.mask).value_or(0) > 0)
        m_kept.mask = wish.mask;
    if (wish.gateway && canStandAlone(*wish.gateway, whole.mask))
        m_kept.gateway = wish.gateway;
    m_end.setRemainingTime(g_typingLimit);
}

void AddressDraft::forget()
{
    m_end.setRemainingTime(0);
}

} // namespace HmiLinux
