#pragma once

#include "linux/bus.h"
#include "linux/buzzer.h"
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

    Network &network() { return m_network; }
    Clock &clock() { return m_clock; }
    Power &power() { return m_power; }
    Buzzer &buzzer() { return m_buzzer; }
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
    Buzzer m_buzzer;
};

} // namespace HmiLinux
