#pragma once

#include "hmi/systemset.h"
#include "meyersingleton.h"
#include "tests/linux/harness/sandbox.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtTest/QtTest>

#include <algorithm>
#include <mutex>
#include <vector>

/// What the programs share that run on the device: they reach the service as the screen does, and what is around the
/// device over its control.
namespace Lab {

using HMI::SystemSet;

inline SystemSet &panel()
{
    return MeyerSingleton<SystemSet>::instance();
}

/// The device is emulated, and slow.
constexpr int Patience = 60000;

inline QStringList tell(const char *words)
{
    return Sandbox::tell(QString::fromLatin1(words).split(QLatin1Char(' '))).value_or(QStringList{});
}

/// A number that the control answers with; -1 where it does not.
inline qint64 number(const char *words)
{
    const QStringList answer = tell(words);
    return answer.isEmpty() ? -1 : answer.constFirst().toLongLong();
}

/// Whether the service knows the adapter; the first thing to wait for.
inline bool isKnown(SystemSet::NIC nic)
{
    const HMI::MAC mac = panel().getMac(nic);
    return std::any_of(mac.begin(), mac.end(), [](unsigned char byte) { return byte != 0; });
}

/// What a service reports, from whatever thread.
template <class Value> class Reports
{
public:
    void add(Value value)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_values.push_back(std::move(value));
    }
    std::size_t count() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_values.size();
    }
    Value at(std::size_t place) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_values.at(place);
    }
    bool waitFor(std::size_t number) const
    {
        return QTest::qWaitFor([this, number] { return count() >= number; }, Patience);
    }

private:
    mutable std::mutex m_mutex;
    std::vector<Value> m_values;
};

/// The outcome of a request for a lease, or for the static addresses; -1 for none.
inline int requestDhcp(SystemSet::NIC nic, bool on)
{
    const auto reports = std::make_shared<Reports<int>>();
    panel().setDHCP(
        nic, on, [reports](SystemSet::DHCP_STATE state) { reports->add(state); }, true);
    return reports->waitFor(1) ? reports->at(0) : -1;
}

/// Whether the other end of the adapter answers.
inline bool answersPing(SystemSet::NIC nic)
{
    const auto reports = std::make_shared<Reports<bool>>();
    panel().pingTest(nic, [reports](bool isAnswered) { reports->add(isAnswered); });
    return reports->waitFor(1) && reports->at(0);
}

} // namespace Lab

/// main() of a program of the lab. It tells its tests without a service.
#define LAB_MAIN(TestClass)                                                                                  \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        QCoreApplication application(argc, argv);                                                            \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
