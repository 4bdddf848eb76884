#include "linux/worker.h"

#include "linux/ping.h"

#include <QtCore/QTimer>

namespace HmiLinux {

namespace {

// A daemon that is frozen must not keep the process.
constexpr int g_finishLimit = 1000;

} // namespace

Worker::Worker(const Root &root, const Config &config, const Interfaces &interfaces, const QString &bus,
               Published<Snapshot> *state)
    : m_config(config)
    , m_interfaces(interfaces)
    , m_state(state)
    , m_bus(bus, this)
    , m_network(root, config, interfaces, state, this)
    , m_clock(&m_bus, this)
    , m_power(&m_bus, this)
    , m_beeper(config, makeSounder(root, config), this)
{
    connect(&m_bus, &Bus::opened, this, [this] { m_network.attach(m_bus.connection()); });
    connect(&m_bus, &Bus::lost, &m_network, &Network::detach);
}

void Worker::start()
{
    m_bus.open();
    if (!m_bus.isOpen())
        m_network.detach();
}

void Worker::finish(const std::function<void()> &done)
{
    m_network.finish();
    if (!m_network.isWriting())
        return done();
    connect(&m_network, &Network::published, this, [this, done] {
        if (!m_network.isWriting())
            done();
    });
    QTimer::singleShot(g_finishLimit, this, done);
}

void Worker::ping(std::size_t place, const std::function<void(bool)> &done)
{
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const bool asksGateway = m_config.pingTarget == QLatin1String("gateway");
    const HMI::IP target = asksGateway ? snapshot->adapters.at(place).live.gateway
                                       : addressOf(m_config.pingTarget).value_or(HMI::IP());
    if (!snapshot->values(place).enabled || target == 0) {
        if (done)
            done(false);
        return;
    }
    // A modem that is commanded over a serial line has an interface only while it is connected.
    const QString &interface = snapshot->adapters.at(place).interface;
    new Ping(interface.isEmpty() ? m_interfaces.at(place) : interface, target, m_config.pingTimeout, done,
             this);
}

} // namespace HmiLinux
