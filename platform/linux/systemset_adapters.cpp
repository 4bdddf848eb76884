#include "linux/systemset_p.h"

#include "linux/vpntunnel.h"
#include "linux/worker.h"

using namespace HmiLinux;

namespace HMI {

int SystemSet::getAllNIC() const
{
    return d->service.adapters();
}

bool SystemSet::isNicEnabled(NIC nic) const
{
    return d->read<bool>(nic,
                         [](const Snapshot &now, std::size_t place) { return now.values(place).enabled; });
}

void SystemSet::enableNIC(NIC nic, bool enable, bool persist)
{
    const std::optional<std::size_t> place = d->service.place(nic);
    if (!place || isNicEnabled(nic) == enable ||
        d->onlyTells(QStringLiteral("switch %1 %2")
                         .arg(nameOf(nic), enable ? QStringLiteral("on") : QStringLiteral("off"))))
        return;
    if (nic == VPN) {
        d->service.vpn().setOn(enable, persist);
        d->service.later([this] { d->service.worker().network().vpn()->choose(); });
        return;
    }
    d->service.wish(*place, persist, [enable](Wish &wish) { wish.enabled = enable; });
    d->service.later([this, place] { d->service.worker().network().writer(*place)->writeEnabled(); });
}

SystemSet::NIC SystemSet::getDefaultNIC() const
{
    const std::shared_ptr<const Snapshot> now = d->service.snapshot();
    const std::optional<std::size_t> chosen = now->defaultPlace();
    if (chosen)
        return Adapters.at(*chosen);
    for (const NIC nic : Adapters) {
        if (d->service.place(nic))
            return nic;
    }
    return NIC();
}

void SystemSet::setDefaultNIC(NIC nic, bool)
{
    const std::optional<std::size_t> chosen = d->service.place(nic);
    // The tunnel's routes are those that its server hands out.
    if (!chosen || nic == VPN || d->onlyTells(QStringLiteral("make %1 the default adapter").arg(nameOf(nic))))
        return;
    d->service.chooseDefault(*chosen);
}

void SystemSet::pingTest(NIC nic, const std::function<void(bool)> &done)
{
    const std::optional<std::size_t> place = d->service.place(nic);
    d->service.later([this, place, done] {
        if (place)
            d->service.worker().ping(*place, done);
        else if (done)
            done(false);
    });
}

} // namespace HMI
