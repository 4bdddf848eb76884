#include "linux/worker.h"

#include "linux/ping.h"

namespace HmiLinux {

Worker::Worker(const Root &root, const Config &config, const Interfaces &interfaces, const QString &bus,
               Published<Snapshot> *state)
    : m_config(config)
    , m_interfaces(interfaces)
    , m_state(state)
    , m_bus(bus, this)
    , m_network(interfaces, state, this)
    , m_clock(&m_bus, this)
    , m_power(&m_bus, this)
    , m_buzzer(root, config, makeSounder(root, config), this)
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
    new Ping(m_interfaces.at(place), target, m_config.pingTimeout, done, this);
}

} // namespace HmiLinux
