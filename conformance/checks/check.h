#pragma once

#include "conformance/adapternames.h"
#include "conformance/checklist.h"
#include "conformance/checks/order.h"
#include "conformance/checks/valuetext.h"
#include "conformance/operations.h"

#include "meyersingleton.h"

#include <algorithm>
#include <functional>

namespace Conformance {

using Milliseconds = std::chrono::milliseconds;

/// The service that is judged.
inline HMI::SystemSet &service()
{
    return MeyerSingleton<HMI::SystemSet>::instance();
}

/// Whether the panel has the adapter.
inline bool has(HMI::SystemSet::NIC nic)
{
    return (service().getAllNIC() & nic) != 0;
}

/// One check under way: what it is made for, and what it finds. It goes on after a finding, so that one run tells
/// all that there is.
class Check
{
public:
    Check(const CheckInfo &info, HMI::SystemSet::NIC adapter, const Order &order, Witness &witness);

    /// Whether the checks may use the adapter at all.
    bool isAsked(HMI::SystemSet::NIC nic) const { return (m_order.adapters & nic) != 0; }
    /// The adapter that the check is made for; of no meaning for a check of the whole panel.
    HMI::SystemSet::NIC adapter() const { return m_adapter; }
    const Result &result() const { return m_result; }

    void failed(const std::string &operation, const std::string &expectation, const std::string &answer = {});
    void warned(const std::string &operation, const std::string &expectation, const std::string &answer = {});
    /// The panel is as it was: within the contract where mayRefuse() says so, else a failure.
    void refused(const std::string &operation, const std::string &expectation,
                 const std::string &answer = {});
    void skipped(const std::string &reason);
    void note(const std::string &text) { m_result.notes.push_back(text); }
    /// The findings from now on are about @p nic, or about none (0), in a check that looks at several by itself.
    void about(HMI::SystemSet::NIC nic) { m_subject = nic == NoAdapter ? std::string() : nameOf(nic); }

    /// Fails unless @p found is @p wanted.
    template <class Value> bool expect(const std::string &operation, const Value &found, const Value &wanted)
    {
        if (found == wanted)
            return true;
        failed(operation, text(wanted), text(found));
        return false;
    }
    bool expectRange(const std::string &operation, int found, int low, int high);
    bool expectUtf8(const std::string &operation, const std::string &bytes);

    /// When a setter's effect must be seen.
    enum class When { AtCall, Soon };
    /// Whether @p get answers @p wanted after a call of @p setter; what it answered before tells a refusal.
    template <class Value>
    bool takes(const std::string &setter, const std::string &getter, const std::function<Value()> &get,
               const Value &before, const Value &wanted, When when)
    {
        const auto arrived = [&] { return get() == wanted; };
        const std::string expectation = getter + " answers " + text(wanted);
        const bool isAtCall = when == When::AtCall;
        if (!isAtCall)
            waitFor(arrived, SoonLimit);
        const Value answer = get();
        if (answer == wanted)
            return true;
        if (!(answer == before))
            failed(setter, expectation, text(answer));
        else if (isAtCall && waitFor(arrived, LateLimit))
            failed(setter, expectation + " right after the call", text(before) + " at first");
        else
            refused(setter, expectation, text(answer) + " as before");
        return false;
    }

    /// Lets events and time pass until @p condition holds; false when @p limit passes first.
    bool waitFor(const std::function<bool()> &condition, Milliseconds limit) const;
    /// How long to wait for a report that the contract grants @p limit.
    Milliseconds patience(Milliseconds limit) const
    {
        return std::min<Milliseconds>(limit, m_order.patience);
    }
    void alive() const { m_witness.alive(); }

private:
    void add(Verdict verdict, const std::string &operation, const std::string &expectation,
             const std::string &answer);

    static constexpr Milliseconds SoonLimit{2000};
    static constexpr Milliseconds LateLimit{300};

    Result m_result;
    HMI::SystemSet::NIC m_adapter;
    std::string m_subject; ///< the adapter that findings are about
    const Order &m_order;
    Witness &m_witness;
};

} // namespace Conformance
