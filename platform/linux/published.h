#pragma once

#include <memory>

namespace HmiLinux {

/// A value that any thread reads at any time without waiting for those who change it: a change makes a new one.
template <class T> class Published
{
public:
    Published() : m_value(std::make_shared<const T>()) {}

    std::shared_ptr<const T> read() const { return std::atomic_load(&m_value); }

    /// @p change gets a copy to work on; when another thread was faster, it gets a new one.
    template <class Change> void change(const Change &change)
    {
        std::shared_ptr<const T> before = read();
        std::shared_ptr<const T> after;
        do {
            auto next = std::make_shared<T>(*before);
            change(*next);
            after = std::move(next);
        } while (!std::atomic_compare_exchange_weak(&m_value, &before, after));
    }

private:
    std::shared_ptr<const T> m_value;
};

} // namespace HmiLinux
