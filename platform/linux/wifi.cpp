#include "linux/wifi.h"

#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/objectmirror.h"
#include "linux/profilebook.h"
#include "linux/wififorgetting.h"
#include "linux/wifilist.h"
#include "linux/wifiname.h"

#include <algorithm>

namespace HmiLinux {

using HMI::SystemSet;

namespace {

constexpr int g_readyTime = 5000;
constexpr int g_graceTime = 2000;

} // namespace

Wifi::Wifi(QString interface, const State *state, const ObjectMirror *mirror, const ProfileBook *book,
           QObject *parent)
    : QObject(parent)
    , m_interface(std::move(interface))
    , m_state(state)
    , m_mirror(mirror)
    , m_book(book)
    , m_bus(QString())
    , m_scan(mirror, this)
    , m_ready(this)
    , m_grace(this)
{
    connect(&m_scan, &WifiScan::ended, this, &Wifi::deliver);
    m_ready.setSingleShot(true);
    m_ready.setInterval(g_readyTime);
    connect(&m_ready, &QTimer::timeout, this, &Wifi::deliverNothing);
    m_grace.setSingleShot(true);
    m_grace.setInterval(g_graceTime);
    connect(&m_grace, &QTimer::timeout, this, [this] {
        qCInfo(wifiLog, "what was joined is left already");
        report(SystemSet::WIFI_OFFLINE);
    });
}

void Wifi::attach(const QDBusConnection &bus)
{
    m_bus = bus;
}

void Wifi::interrupt()
{
    m_scan.cancel();
    deliverNothing();
    if (m_join)
        m_join->abandon();
    m_grace.stop();
    report(SystemSet::WIFI_OFFLINE);
}

void Wifi::whenKnown(std::function<void()> work)
{
    if (m_state->read()->round > 0)
        work();
    else
        m_untilKnown.push_back(std::move(work));
}

void Wifi::scan(const OnList &done)
{
    whenKnown([this, done] {
        m_listeners.push_back(done);
        startScan();
    });
}

void Wifi::startScan()
{
    if (m_scan.isRunning())
        return;
    if (!isOn())
        return deliverNothing();
    const AdapterState now = adapter();
    if (now.deviceState > Nm::Unavailable) {
        m_ready.stop();
        m_scan.start(m_bus, now.device);
    } else if (!m_ready.isActive()) {
        m_ready.start();
    }
}

void Wifi::deliver(bool heard)
{
    const QString device = adapter().device;
    const QVector<WifiNetwork> networks = reading().networks(device, m_interface);
    if (!isOn() || !m_mirror->has(device, Nm::device()) || (networks.isEmpty() && !heard))
        return deliverNothing();
    std::vector<OnList> listeners;
    listeners.swap(m_listeners);
    makeWifiList(m_bus, networks, this, [listeners](const WifiRecords &records) {
        for (const OnList &listener : listeners) {
            if (listener)
                listener(std::make_unique<WifiRecords>(records));
        }
    });
}

void Wifi::deliverNothing()
{
    m_ready.stop();
    std::vector<OnList> listeners;
    listeners.swap(m_listeners);
    for (const OnList &listener : listeners) {
        if (listener)
            listener(nullptr);
    }
}

void Wifi::reset(const OnList &done)
{
    whenKnown([this, done] {
        if (m_join)
            m_join->abandon();
        QStringList paths;
        const QVector<const Profile *> profiles = reading().stored(m_interface);
        for (const Profile *profile : profiles)
            paths.append(profile->path);
        qCInfo(wifiLog, "forgetting all networks, %d were known", paths.size());
        m_scan.cancel(); // it would not be fresh; who waits for it gets the new one
        forgetNetworks(m_bus, paths, adapter().device, this, [this, done] {
            m_listeners.push_back(done);
            startScan();
        });
    });
}

void Wifi::join(const HMI::SSID &ssid, const SharedSecret &password, const OnJoin &done)
{
    whenKnown([this, name = bytesOf(ssid), password, done] {
        if (m_join)
            m_join->abandon();
        m_grace.stop();
        report(SystemSet::WIFI_OFFLINE);
        m_onJoin = done;
        if (m_onJoin)
            m_onJoin(SystemSet::WIFI_CONNECTING);
        if (name.isEmpty() || !isOn())
            report(SystemSet::WIFI_OFFLINE);
        else
            startJoin(name, password);
    });
}

void Wifi::startJoin(const QByteArray &name, const SharedSecret &password)
{
    const auto isHeard = [this](const QByteArray &wanted) {
        const QVector<WifiNetwork> networks = reading().networks(adapter().device, m_interface);
        return std::any_of(networks.begin(), networks.end(),
                           [&wanted](const WifiNetwork &network) { return network.name == wanted; });
    };
    m_join = std::make_unique<WifiJoin>(m_bus, targetOf(name, password), isHeard, this);
    connect(m_join.get(), &WifiJoin::ended, this, &Wifi::endJoin);
    m_join->start();
}

WifiTarget Wifi::targetOf(const QByteArray &name, const SharedSecret &password) const
{
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const std::size_t place = *placeOf(SystemSet::WIFI);
    WifiTarget target;
    target.device = snapshot->adapters.at(place).device;
    target.interface = m_interface;
    target.values = snapshot->values(place);
    target.values.dhcp |= target.values.stored.ip == 0; // nothing was ever set
    target.password = password;
    const QVector<WifiNetwork> networks = reading().networks(target.device, m_interface);
    const auto heard = std::find_if(networks.begin(), networks.end(),
                                    [&name](const WifiNetwork &network) { return network.name == name; });
    if (heard != networks.end())
        target.network = *heard;
    else
        target.network.security = password->isEmpty() ? WifiSecurity::Open : WifiSecurity::Psk;
    target.network.name = name;
    if (const Profile *known = reading().known(name, m_interface)) {
        target.network.profile = known->path;
        target.isOwn = known->isOwnWifi;
    }
    return target;
}

void Wifi::endJoin(SystemSet::StateWifi state)
{
    WifiJoin *ended = m_join.release();
    m_joined = ended->name();
    ended->retire();
    if (state != SystemSet::WIFI_CONNECTED)
        return report(state);
    m_grace.start();
    lookForJoined();
}

void Wifi::lookForJoined()
{
    // Who is told asks for the name at once.
    const WifiLink link = adapter().wifi;
    if (!m_grace.isActive() || !link.isJoined || bytesOf(link.ssid) != m_joined)
        return;
    m_grace.stop();
    report(SystemSet::WIFI_CONNECTED);
}

void Wifi::report(SystemSet::StateWifi state)
{
    const OnJoin done = std::exchange(m_onJoin, {});
    if (done)
        done(state);
}

void Wifi::mirrorChanged()
{
    m_scan.mirrorChanged();
    if (m_join && !m_mirror->has(adapter().device, Nm::device()))
        m_join->abandon(); // pulled out
}

void Wifi::deviceChanged(const QString &device, uint state, uint reason)
{
    if (m_join)
        m_join->deviceChanged(device, state, reason);
}

void Wifi::published()
{
    std::vector<std::function<void()>> waiting;
    waiting.swap(m_untilKnown);
    for (const std::function<void()> &work : waiting)
        work();
    if (m_ready.isActive())
        startScan();
    lookForJoined();
}

bool Wifi::isOn() const
{
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const std::size_t place = *placeOf(SystemSet::WIFI);
    return snapshot->adapters.at(place).known && snapshot->values(place).enabled;
}

AdapterState Wifi::adapter() const
{
    return m_state->read()->adapters.at(*placeOf(SystemSet::WIFI));
}

} // namespace HmiLinux
