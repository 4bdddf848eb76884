#include "linux/service.h"

#include "linux/filewatch.h"
#include "linux/log.h"
#include "linux/serialnumber.h"
#include "linux/vpntunnel.h"
#include "linux/worker.h"
#include "linux/workerthread.h"

namespace HmiLinux {

namespace {

using HMI::SystemSet;

Config configuration(const Root &root)
{
    QStringList problems;
    Config config = readConfig(root.path(QStringLiteral("/etc/panelsettings/linux.conf")), &problems);
    for (const QString &problem : qAsConst(problems))
        qCWarning(configLog, "%s", qPrintable(problem));
    return config;
}

} // namespace

Service::Service(const Root &root, const QString &bus)
    : m_isReadOnly(root.isReadOnly())
    , m_config(configuration(root))
    , m_interfaces(chooseInterfaces(root, m_config))
    , m_mask(adapterMask(m_interfaces))
    , m_serialNumber(readSerialNumber(root, m_config))
{
    // The toolkit's list of connections must outlive the worker, which is ended when the process ends.
    const QDBusConnection first(QStringLiteral("panelsettings"));
    Q_UNUSED(first)
    const Later keep = [this](std::function<void()> work) {
        m_files.add(std::move(work));
        later([this] { m_files.run(); });
    };
    // Before the worker reads what is chosen.
    m_vpn = std::make_unique<VpnSwitch>(root, m_config, &m_state, keep);
    m_thread =
        std::make_unique<WorkerThread>(std::make_unique<Worker>(root, m_config, m_interfaces, bus, &m_state));
    m_worker = m_thread->worker();
    m_buzzer = std::make_unique<BuzzerSwitch>(root, m_config, m_worker->beeper().canBeep());
    m_brightness = std::make_unique<Brightness>(root, m_config, keep);
    m_language = std::make_unique<LanguageFile>(root, m_config, keep);
    m_thread->start();
    if (m_isReadOnly)
        return; // a watch makes the directory of the file
    later([this] {
        auto *watch = new FileWatch(m_language->file(), m_worker);
        QObject::connect(watch, &FileWatch::changed, watch, [this] { m_language->readAgain(); });
    });
}

Service::~Service()
{
    m_thread->end();
    m_files.run(); // what was to be kept and came too late for the worker
}

std::optional<std::size_t> Service::place(SystemSet::NIC nic) const
{
    const std::optional<std::size_t> place = placeOf(nic);
    return place && (m_mask & nic) != 0 ? place : std::nullopt;
}

void Service::chooseDefault(std::size_t chosen)
{
    const std::shared_ptr<const Snapshot> now = snapshot();
    if (!now->adapters.at(chosen).isKept) {
        qCWarning(networkLog, "%s is not made the default adapter: the panel keeps no network of its own",
                  qPrintable(nameOf(Adapters.at(chosen))));
        return;
    }
    for (std::size_t other = 0; other < Adapters.size(); ++other) {
        const bool isChosen = other == chosen;
        // The tunnel's routes are those that its server hands out.
        if (!place(Adapters.at(other)) || Adapters.at(other) == SystemSet::VPN ||
            now->values(other).isDefault == isChosen)
            continue;
        wish(other, true, [isChosen](Wish &wish) { wish.isDefault = isChosen; });
        later([this, other] { worker().network().writer(other)->gather(); });
    }
}

VpnLink Service::vpnLink(SystemSet::VPNServer server) const
{
    const VpnLink link = snapshot()->vpnLinks.at(std::size_t(server));
    // Of what WireGuard receives nobody tells, and a peer may be silent for ever.
    if (link == VpnLink::Connecting)
        later([this] { m_worker->network().vpn()->look(); });
    return link;
}

void Service::endWorker()
{
    m_thread->end();
}

void Service::later(std::function<void()> work) const
{
    m_thread->post(std::move(work));
}

} // namespace HmiLinux
