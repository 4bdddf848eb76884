#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <QtCore/QCoreApplication>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

/// A process whose end takes a while: what was made after the service ends first, and uses it once more.

namespace {

using namespace std::chrono_literals;

HMI::SystemSet &service()
{
    return MeyerSingleton<HMI::SystemSet>::instance();
}

void say(const char *line)
{
    std::puts(line);
    std::fflush(stdout);
}

struct SlowEnd {
    SlowEnd() = default;
    ~SlowEnd()
    {
        // Daemons go on talking meanwhile.
        std::this_thread::sleep_for(300ms);
        service().setBuzzerOn(!service().isBuzzerOn());
        service().setBright(HMI::SystemSet::BRIGHT_MIN, true);
        service().setIp(HMI::SystemSet::LAN0, 0x0A000009, true);
        service().beep(true);
        say("ended");
    }
    SlowEnd(const SlowEnd &) = delete;
    SlowEnd &operator=(const SlowEnd &) = delete;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    service();
    static const SlowEnd slow;
    say("ready");
    while (service().getIp(HMI::SystemSet::LAN0) == 0)
        std::this_thread::sleep_for(1ms);

    // Nothing of this is done yet when the process ends.
    service().setIp(HMI::SystemSet::LAN0, 0x0A000002, true);
    service().setSubnetMask(HMI::SystemSet::LAN0, 0xFFFFFF00, true);
    service().setGateway(HMI::SystemSet::LAN0, 0x0A000001, true);
    std::atomic<bool> isReporting{false};
    service().pingTest(HMI::SystemSet::VPN, [&isReporting](bool) {
        isReporting = true;
        std::this_thread::sleep_for(600ms); // beyond the end of what follows
        say("reported");
    });
    while (!isReporting)
        std::this_thread::yield();
    return 0;
}
