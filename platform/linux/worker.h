#pragma once

#include "linux/beeper.h"
#include "linux/bus.h"
#include "linux/clock.h"
#include "linux/config.h"
#include "linux/network.h"
#include "linux/power.h"

namespace HmiLinux {

/// All that waits for somebody: on a thread of its own, with a connection of its own to the message bus.
class Worker : public QObject
{
    Q_OBJECT

public:
    Worker(const Root &root, const Config &config, const Interfaces &interfaces, const QString &bus,
           Published<Snapshot> *state);

    /// The first thing on its thread.
    void start();
    /// The last: @p done comes when all that was asked for is stored, or cannot be for now.
    void finish(const std::function<void()> &done);

    Network &network() { return m_network; }
    Clock &clock() { return m_clock; }
    Power &power() { return m_power; }
    Beeper &beeper() { return m_beeper; }
    /// Asks the host of the configuration over an adapter of the panel.
    void ping(std::size_t place, const std::function<void(bool)> &done);

private:
    Config m_config;
    Interfaces m_interfaces;
    Published<Snapshot> *m_state;
    Bus m_bus;
    Network m_network;
    Clock m_clock;
    Power m_power;
    Beeper m_beeper;
};

} // namespace HmiLinux
