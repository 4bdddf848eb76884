#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <QtCore/QCoreApplication>

#include <chrono>
#include <cstdio>
#include <future>
#include <memory>
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
        // Daemons go on talking until a line says that they have.
        say("ending");
        std::getchar();
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
    const auto reporting = std::make_shared<std::promise<void>>();
    service().pingTest(HMI::SystemSet::VPN, [reporting](bool) {
        reporting->set_value();
        std::this_thread::sleep_for(600ms); // so that a service that does not wait for it ends before
        say("reported");
    });
    reporting->get_future().wait();
    return 0;
}
