#include "tests/linux/fakemodemmanager.h"

#include "linux/modemnames.h"
#include "linux/modemtypes.h"

using namespace HmiLinux;

namespace {

// Kinds of a port.
constexpr uint g_network = 2;
constexpr uint g_command = 3;

} // namespace

FakeModemManager::FakeModemManager() : FakeObjects(Mm::objects())
{
    registerModemTypes();
}

bool FakeModemManager::publish(const QString &address)
{
    return FakeObjects::publish(address, Mm::service());
}

QString FakeModemManager::modemPath(int number)
{
    return Mm::objects() + QStringLiteral("/Modem/%1").arg(number);
}

void FakeModemManager::addModem(const QString &interface, int number)
{
    const QString port = QStringLiteral("ttyUSB%1").arg(number);
    const ModemPorts ports{{port, g_command}, {interface, g_network}};
    add(modemPath(number), {{Mm::modem(),
                             {{QStringLiteral("State"), int(Mm::Disabled)},
                              {QStringLiteral("StateFailedReason"), 0U},
                              {QStringLiteral("PrimaryPort"), port},
                              {QStringLiteral("Ports"), QVariant::fromValue(ports)},
                              {QStringLiteral("SignalQuality"), QVariant::fromValue(SignalQuality())}}}});
}

void FakeModemManager::setState(int state, uint failedReason)
{
    set(modemPath(), Mm::modem(),
        {{QStringLiteral("State"), state}, {QStringLiteral("StateFailedReason"), failedReason}});
}

void FakeModemManager::setSignal(uint percent)
{
    set(modemPath(), Mm::modem(),
        {{QStringLiteral("SignalQuality"), QVariant::fromValue(SignalQuality{percent, true})}});
}
