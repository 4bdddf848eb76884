#pragma once

/// The one process-wide instance of a class.
///
/// instance() builds the object on first use (thread-safe) and destroys it at
/// process exit. Default visibility makes the object one and the same across
/// shared libraries whenever T itself has default visibility.
///
/// Use it as a base, `class Thing : public MeyerSingleton<Thing>`, or free,
/// `MeyerSingleton<HMI::SystemSet>::instance()`.
template <class T> class __attribute__((visibility("default"))) MeyerSingleton
{
public:
    static T &instance()
    {
        static T object;
        return object;
    }
};
