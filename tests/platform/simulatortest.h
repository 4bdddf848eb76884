#pragma once

#include "tests/support/paneltest.h"

#include "hmi/systemset.h"
#include "meyersingleton.h"
#include "simulator/simulator.h"

#include <memory>
#include <mutex>

using HMI::SystemSet;

/// Texts that QCOMPARE can print.
inline QStringList lines(const std::vector<std::string> &texts)
{
    QStringList list;
    for (const std::string &text : texts)
        list.append(QString::fromStdString(text));
    return list;
}

inline SystemSet &service()
{
    return MeyerSingleton<SystemSet>::instance();
}

inline HMI::SSID ssid(const std::string &name)
{
    HMI::SSID result{};
    std::copy_n(name.begin(), std::min(name.size(), result.size()), result.begin());
    return result;
}

inline QString scenarioPath(const QString &name)
{
    return QStringLiteral(PANEL_SCENARIOS "/") + name;
}

/// Numbers reported from any thread, in their order.
class Reports
{
public:
    void add(int value)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_values.append(value);
    }
    QVector<int> values() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_values;
    }

private:
    mutable std::mutex m_mutex;
    QVector<int> m_values;
};

/// Requests whose results are gathered; the callbacks keep what they write to alive.
using SharedReports = std::shared_ptr<Reports>;

inline SharedReports askForDhcp(SystemSet::NIC nic, bool on = true)
{
    auto reports = std::make_shared<Reports>();
    service().setDHCP(
        nic, on, [reports](SystemSet::DHCP_STATE state) { reports->add(state); }, true);
    return reports;
}

inline SharedReports ping(SystemSet::NIC nic)
{
    auto reports = std::make_shared<Reports>();
    service().pingTest(nic, [reports](bool answered) { reports->add(answered ? 1 : 0); });
    return reports;
}

inline SharedReports join(const std::string &name, const std::string &password = {})
{
    auto reports = std::make_shared<Reports>();
    service().connectWifi(ssid(name), password,
                          [reports](SystemSet::StateWifi state) { reports->add(state); });
    return reports;
}

/// Sizes of the lists that come; -1 for null.
inline SharedReports
scan(void (SystemSet::*operation)(const SystemSet::WifiListCallback &) = &SystemSet::scanWifi)
{
    auto reports = std::make_shared<Reports>();
    (service().*operation)([reports](std::unique_ptr<std::vector<SystemSet::SsidInfo>> list) {
        reports->add(list ? static_cast<int>(list->size()) : -1);
    });
    return reports;
}

/// The list that a scan finds now.
inline std::vector<SystemSet::SsidInfo> scanNow()
{
    auto found = std::make_shared<std::vector<SystemSet::SsidInfo>>();
    HmiSimulator::setDelivery(HmiSimulator::Operation::Scan, HmiSimulator::Delivery::Synchronous);
    service().scanWifi([found](std::unique_ptr<std::vector<SystemSet::SsidInfo>> list) {
        if (list)
            *found = *list;
    });
    HmiSimulator::setDelivery(HmiSimulator::Operation::Scan, HmiSimulator::Delivery::Normal);
    return *found;
}
