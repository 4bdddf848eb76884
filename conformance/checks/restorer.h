#pragma once

#include "conformance/checks/settings.h"

#include <set>

namespace Conformance {

/// Puts a panel back to what it was, whatever a check has done to it.
class Restorer
{
public:
    explicit Restorer(Settings settings) : m_settings(std::move(settings)) {}

    const Settings &settings() const { return m_settings; }
    /// Sets what differs. What could not be set once is not tried again.
    void putBack(Check &check);
    /// Joins the network again that was joined in the beginning.
    void rejoin(Check &check) const;
    /// Warns of everything that differs.
    void compare(Check &check) const;

private:
    /// Calls @p set when @p get does not answer @p wanted, and waits until it does.
    template <class Value>
    void put(Check &check, const std::string &what, const std::function<Value()> &get, const Value &wanted,
             const std::function<void()> &set);
    void putBack(Check &check, HMI::SystemSet::NIC nic, const AdapterSettings &wanted);

    Settings m_settings;
    std::set<std::string> m_lost; ///< what could not be put back
};

} // namespace Conformance
