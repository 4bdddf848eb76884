#pragma once

#if defined(__SANITIZE_THREAD__)
#include <mutex>
#endif

namespace QSP {

/// Makes the order that Qt's event queue keeps visible to the thread sanitizer, for which Qt
/// itself is not built: what is queued under a HandOver happens before what begins with one.
/// Nothing at all in any other build.
class HandOver
{
#if defined(__SANITIZE_THREAD__)
public:
    HandOver() : m_lock(mutex()) {}

private:
    static std::mutex &mutex()
    {
        static std::mutex theMutex;
        return theMutex;
    }

    std::lock_guard<std::mutex> m_lock;
#else
public:
    // Not the implicit one: an object with that would count as an unused variable.
    HandOver() {} // NOLINT(modernize-use-equals-default)
#endif
};

} // namespace QSP
