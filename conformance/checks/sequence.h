#pragma once

#include "conformance/checks/restorer.h"

#include <optional>

namespace Conformance {

/// Makes the checks of an order one after the other, and puts the panel back after each that changes it.
class Sequence
{
public:
    Sequence(const Order &order, Witness &witness) : m_order(order), m_witness(witness) {}

    void run();

private:
    using Function = std::function<void(Check &)>;

    bool isWanted(const CheckInfo &info) const;
    bool changesWifi() const;
    void start(const CheckInfo &info);
    /// Waits until the service has read its panel, if the order grants it time for that. Until then it may answer
    /// neutral, which is not to be taken for the panel.
    void settle(Check &check) const;
    void make(const CheckInfo &info, const Function &function);
    void make(const CheckInfo &info, HMI::SystemSet::NIC adapter, const Function &function);
    void rememberPanel(Check &check);
    void restore(const CheckInfo &info);
    void leaveRequests() const;

    const Order &m_order;
    Witness &m_witness;
    std::optional<Restorer> m_restorer;
    int m_adapters = 0; ///< those of the panel
};

} // namespace Conformance
