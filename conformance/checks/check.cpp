#include "conformance/checks/check.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <algorithm>
#include <thread>

namespace Conformance {

Check::Check(const CheckInfo &info, HMI::SystemSet::NIC adapter, const Order &order, Witness &witness)
    : m_adapter(adapter), m_order(order), m_witness(witness)
{
    m_result.group = info.group;
    m_result.name = info.name;
    if (info.adapters != NoAdapter)
        m_result.adapter = m_subject = nameOf(adapter);
}

void Check::failed(const std::string &operation, const std::string &expectation, const std::string &answer)
{
    add(Verdict::Failed, operation, expectation, answer);
}

void Check::warned(const std::string &operation, const std::string &expectation, const std::string &answer)
{
    add(Verdict::Warned, operation, expectation, answer);
}

void Check::refused(const std::string &operation, const std::string &expectation, const std::string &answer)
{
    add(mayRefuse(operation) ? Verdict::CannotComply : Verdict::Failed, operation, expectation, answer);
}

void Check::skipped(const std::string &reason)
{
    m_result.verdict = std::max(m_result.verdict, Verdict::Skipped);
    note(reason);
}

void Check::add(Verdict verdict, const std::string &operation, const std::string &expectation,
                const std::string &answer)
{
    m_result.verdict = std::max(m_result.verdict, verdict);
    m_result.findings.push_back({operation, m_subject, expectation, answer});
}

bool Check::expectRange(const std::string &operation, int found, int low, int high)
{
    if (found >= low && found <= high)
        return true;
    failed(operation, text(low) + " to " + text(high), text(found));
    return false;
}

bool Check::expectUtf8(const std::string &operation, const std::string &bytes)
{
    if (QString::fromStdString(bytes).toStdString() == bytes)
        return true;
    failed(operation, "UTF-8", std::to_string(bytes.size()) + " bytes that are not");
    return false;
}

bool Check::waitFor(const std::function<bool()> &condition, Milliseconds limit) const
{
    using Clock = std::chrono::steady_clock;
    constexpr Milliseconds Step{1};
    constexpr Milliseconds SignOfLife{100};
    const Clock::time_point end = Clock::now() + limit;
    Clock::time_point nextSign = Clock::now() + SignOfLife;
    while (!condition()) {
        const Clock::time_point now = Clock::now();
        if (now >= end)
            return false;
        if (now >= nextSign) {
            alive();
            nextSign = now + SignOfLife;
        }
        // A library may report through the event loop of this thread, which the screen has too.
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(Step);
    }
    return true;
}

} // namespace Conformance
