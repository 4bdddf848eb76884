#include "contracts.h"

#include <QtCore/QElapsedTimer>

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

using HMI::SystemSet;
using namespace Contract;

namespace {

constexpr int PatienceMilliseconds = 60000;

/// Reports as they come, from whatever thread. The callbacks share it, so that
/// one that comes after its test has ended finds it alive.
template <class Report> class Mailbox
{
public:
    void put(Report report)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_reports.push_back(std::move(report));
        m_arrived.notify_all();
    }
    /// Waits for the first report from @p at on that is @p wanted; -1 when none comes in time.
    template <class Wanted> int waitFor(Wanted wanted, std::size_t at = 0)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        int found = -1;
        m_arrived.wait_for(lock, std::chrono::milliseconds(PatienceMilliseconds), [&] {
            for (; found < 0 && at < m_reports.size(); ++at) {
                if (wanted(m_reports[at]))
                    found = static_cast<int>(at);
            }
            return found >= 0;
        });
        return found;
    }
    bool waitForAny()
    {
        return waitFor([](const Report &) { return true; }) >= 0;
    }
    std::size_t count() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_reports.size();
    }
    /// Valid while no further report comes.
    const Report &at(int index) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_reports.at(static_cast<std::size_t>(index));
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::deque<Report> m_reports;
};

template <class Report> using Shared = std::shared_ptr<Mailbox<Report>>;
using List = std::unique_ptr<std::vector<SystemSet::SsidInfo>>;

Shared<SystemSet::DHCP_STATE> askForDhcp(SystemSet::NIC nic, bool on)
{
    auto mailbox = std::make_shared<Mailbox<SystemSet::DHCP_STATE>>();
    service().setDHCP(
        nic, on, [mailbox](SystemSet::DHCP_STATE state) { mailbox->put(state); }, true);
    return mailbox;
}

Shared<List> askForList(void (SystemSet::*operation)(const SystemSet::WifiListCallback &))
{
    auto mailbox = std::make_shared<Mailbox<List>>();
    (service().*operation)([mailbox](List list) { mailbox->put(std::move(list)); });
    return mailbox;
}

Shared<SystemSet::StateWifi> join(const HMI::SSID &ssid, const std::string &password)
{
    auto mailbox = std::make_shared<Mailbox<SystemSet::StateWifi>>();
    service().connectWifi(ssid, password, [mailbox](SystemSet::StateWifi state) { mailbox->put(state); });
    return mailbox;
}

bool isFinal(SystemSet::StateWifi state)
{
    return state != SystemSet::WIFI_CONNECTING;
}

HMI::SSID nowhere()
{
    HMI::SSID ssid{};
    const char name[] = "no network has this name";
    std::copy(std::begin(name), std::end(name), ssid.begin());
    return ssid;
}

} // namespace

void ContractRequests::dhcpReports_data()
{
    QTest::addColumn<int>("nic");
    for (const SystemSet::NIC nic : EditableAdapters)
        QTest::addRow("adapter %d", int(nic)) << int(nic);
    QTest::addRow("no adapter") << 0;
}

void ContractRequests::dhcpReports()
{
    QFETCH(const int, nic);
    const auto adapter = static_cast<SystemSet::NIC>(nic);
    const bool before = service().isDhcpOn(adapter);

    const Shared<SystemSet::DHCP_STATE> reports = askForDhcp(adapter, true);
    QCOMPARE(service().isDhcpOn(adapter), has(adapter));
    QVERIFY(reports->waitForAny());
    if (has(adapter) && reports->at(0) == SystemSet::DHCP_OK)
        QVERIFY(quint32(service().getIp(adapter)) != 0);
    if (!has(adapter))
        QVERIFY(reports->at(0) != SystemSet::DHCP_OK);

    QVERIFY(askForDhcp(adapter, before)->waitForAny());
    QCOMPARE(service().isDhcpOn(adapter), before);
}

void ContractRequests::switchingToStaticPutsStoredInForce()
{
    for (const SystemSet::NIC nic : {SystemSet::LAN0, SystemSet::LAN1}) {
        if (!has(nic))
            continue;
        const bool dhcp = service().isDhcpOn(nic);
        const HMI::IP stored = service().getIpFromEE(nic);
        QVERIFY(askForDhcp(nic, true)->waitForAny());
        QCOMPARE(quint32(service().getIpFromEE(nic)), quint32(stored)); // a lease never overwrites it
        const Shared<SystemSet::DHCP_STATE> reports = askForDhcp(nic, false);
        QVERIFY(reports->waitForAny());
        QCOMPARE(reports->at(0), SystemSet::DHCP_OK);
        const quint32 live = service().getIp(nic);
        QVERIFY2(live == stored || live == 0, "0 where the cable is out");
        QVERIFY(askForDhcp(nic, dhcp)->waitForAny());
    }
}

void ContractRequests::pingReports()
{
    std::map<SystemSet::NIC, Shared<bool>> answers;
    for (const SystemSet::NIC nic : AllAdapters) {
        const auto mailbox = std::make_shared<Mailbox<bool>>();
        service().pingTest(nic, [mailbox](bool answered) { mailbox->put(answered); });
        answers[nic] = mailbox;
    }
    for (const auto &[nic, mailbox] : answers) {
        QVERIFY(mailbox->waitForAny());
        if (!has(nic) || !service().isNicEnabled(nic))
            QVERIFY(!mailbox->at(0));
    }
}

void ContractRequests::scanDeliversAList()
{
    const Shared<List> lists = askForList(&SystemSet::scanWifi);
    QVERIFY(lists->waitForAny());
    const List &list = lists->at(0);
    if (!has(SystemSet::WIFI) || !service().isNicEnabled(SystemSet::WIFI))
        QVERIFY(list == nullptr || list->empty());
    if (list == nullptr)
        return;
    for (const SystemSet::SsidInfo &network : *list) {
        QCOMPARE(network.ssid.back(), '\0');
        QVERIFY(network.signal <= 100);
        QCOMPARE(QString::fromStdString(network.password).toStdString(), network.password);
    }
}

void ContractRequests::unknownNetworkIsNotJoined()
{
    const Shared<SystemSet::StateWifi> states = join(nowhere(), "not a password of anybody");
    const int final = states->waitFor(isFinal);
    QVERIFY(final >= 0);
    QVERIFY(states->at(final) != SystemSet::WIFI_CONNECTED);
    QVERIFY(service().currentWifiSsid() != nowhere());
}

void ContractRequests::newAttemptReplacesOld()
{
    const Shared<SystemSet::StateWifi> old = join(nowhere(), {});
    const Shared<SystemSet::StateWifi> states = join(nowhere(), {});
    QVERIFY(states->waitFor(isFinal) >= 0);
    // Whether the old one still reports is the platform's choice; it cannot have joined.
    for (std::size_t i = 0; i < old->count(); ++i)
        QVERIFY(old->at(static_cast<int>(i)) != SystemSet::WIFI_CONNECTED);
}

void ContractRequests::resetForgets()
{
    const Shared<List> lists = askForList(&SystemSet::resetWifi);
    QVERIFY(lists->waitForAny());
    QVERIFY(!service().isWifiConnected());
    QVERIFY(service().currentWifiSsid() == HMI::SSID{});
    QCOMPARE(service().currentWifiSignalStrength(), 0);
    if (lists->at(0) == nullptr)
        return;
    for (const SystemSet::SsidInfo &network : *lists->at(0))
        QVERIFY(network.password.empty());
}

void ContractRequests::emptyFunctionsAreNotCalled()
{
    const bool dhcp = service().isDhcpOn(SystemSet::LAN0);
    service().setDHCP(SystemSet::LAN0, dhcp, {}, true);
    service().pingTest(SystemSet::LAN0, {});
    service().connectWifi(nowhere(), {}, {});
    service().scanWifi({});
    service().resetWifi({});
    // Requests that do report come through after these: nothing has crashed on the way.
    QVERIFY(askForDhcp(SystemSet::LAN0, dhcp)->waitForAny());
    QVERIFY(askForList(&SystemSet::scanWifi)->waitForAny());
}

void ContractRequests::requestsReturnAtOnce()
{
    QElapsedTimer clock;
    clock.start();
    const bool dhcp = service().isDhcpOn(SystemSet::LAN0);
    const Shared<SystemSet::DHCP_STATE> states = askForDhcp(SystemSet::LAN0, dhcp);
    const Shared<List> lists = askForList(&SystemSet::scanWifi);
    const Shared<SystemSet::StateWifi> joins = join(nowhere(), {});
    QVERIFY2(clock.elapsed() < 250, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(states->waitForAny());
    QVERIFY(lists->waitForAny());
    QVERIFY(joins->waitFor(isFinal) >= 0);
}
