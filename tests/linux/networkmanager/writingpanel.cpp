#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <QtCore/QCoreApplication>

#include <chrono>
#include <cstdio>
#include <thread>

/// A panel whose operator goes to and fro between two networks until somebody cuts its power.
///
/// Tells the last number of the network that it finds stored, and of each that is asked for.

namespace {

using namespace std::chrono_literals;
using HMI::SystemSet;

// The time in which one is stored and put in force, and a little more.
constexpr auto g_period = 300ms;

SystemSet &panel()
{
    return MeyerSingleton<SystemSet>::instance();
}

void tell(quint32 number)
{
    std::printf("%u\n", number);
    std::fflush(stdout);
}

void choose(quint32 number)
{
    const quint32 network = 0xC0A83200 + (number << 8);
    panel().setIp(SystemSet::LAN0, network + number, true);
    panel().setSubnetMask(SystemSet::LAN0, 0xFFFFFF00, true);
    panel().setGateway(SystemSet::LAN0, network + 250 + number, true);
    panel().setDns(SystemSet::LAN0, {0x09090900 + number, 0x08080800 + number});
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    while (panel().getIpFromEE(SystemSet::LAN0) == 0)
        std::this_thread::sleep_for(1ms);
    quint32 number = panel().getIpFromEE(SystemSet::LAN0) & 0xFF;
    for (;;) {
        tell(number);
        number = 3 - number;
        choose(number);
        std::this_thread::sleep_for(g_period);
    }
}
