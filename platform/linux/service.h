#pragma once

#include "linux/brightness.h"
#include "linux/buzzerswitch.h"
#include "linux/config.h"
#include "linux/filejobs.h"
#include "linux/interfaces.h"
#include "linux/languagefile.h"
#include "linux/published.h"
#include "linux/vpnswitch.h"

#include <atomic>
#include <memory>

namespace HmiLinux {

class Worker;
class WorkerThread;

/// The service of a panel: what it knows, for any thread, and its worker on a thread of its own.
class Service
{
public:
    /// @p bus is the address of a message bus; empty for the system's.
    explicit Service(const Root &root = Root(), const QString &bus = {});
    /// After it no report comes.
    ~Service();
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    /// Whether nothing may be changed on this device.
    bool isReadOnly() const { return m_isReadOnly; }
    /// The adapters that the panel has, as a mask.
    int adapters() const { return m_mask; }
    /// The place of one of them; nothing for what the panel does not have.
    std::optional<std::size_t> place(HMI::SystemSet::NIC nic) const;
    std::shared_ptr<const Snapshot> snapshot() const { return m_state.read(); }

    /// Lets @p ask put what the operator asks for into the wish of an adapter: getters say so from now on.
    template <class Ask> void wish(std::size_t place, bool persist, const Ask &ask)
    {
        m_state.change([this, place, persist, &ask](Snapshot &snapshot) {
            Wish &wish = snapshot.wishes.at(place);
            ask(wish);
            wish.persist = persist;
            wish.number = ++m_wishes;
        });
    }

    /// Makes one adapter the default one in place of the others.
    void chooseDefault(std::size_t chosen);
    /// How far the tunnel to a server is. While somebody asks, it is looked after.
    VpnLink vpnLink(HMI::SystemSet::VPNServer server) const;

    Brightness &brightness() { return *m_brightness; }
    LanguageFile &language() { return *m_language; }
    VpnSwitch &vpn() { return *m_vpn; }
    BuzzerSwitch &buzzer() { return *m_buzzer; }
    /// Of what later() does alone.
    Worker &worker() { return *m_worker; }
    const std::string &serialNumber() const { return m_serialNumber; }

    /// Does @p work on the worker's thread; returns at once.
    void later(std::function<void()> work) const;
    /// Stores what was asked for and ends the worker. What is known stays, and is kept in files as before; nothing
    /// reaches a daemon any more, and nothing is reported.
    void endWorker();

private:
    bool m_isReadOnly;
    Config m_config;
    Interfaces m_interfaces;
    int m_mask;
    Published<Snapshot> m_state;
    std::atomic<quint64> m_wishes{0};
    std::string m_serialNumber;
    FileJobs m_files;
    std::unique_ptr<WorkerThread> m_thread;
    Worker *m_worker; ///< of m_thread
    std::unique_ptr<BuzzerSwitch> m_buzzer;
    std::unique_ptr<Brightness> m_brightness;
    std::unique_ptr<LanguageFile> m_language;
    std::unique_ptr<VpnSwitch> m_vpn;
};

} // namespace HmiLinux
