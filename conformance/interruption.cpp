#include "conformance/interruption.h"

#include <array>
#include <csignal>

namespace Conformance {

namespace {

constexpr std::array<int, 3> Signals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t asked = 0;

void handle(int number, void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigaction(number, &action, nullptr);
}

} // namespace

void Interruption::watch()
{
    for (const int number : Signals)
        handle(
            number, [](int) { asked = 1; }, static_cast<int>(SA_RESETHAND));
}

void Interruption::ignore()
{
    for (const int number : Signals)
        handle(number, SIG_IGN, 0);
}

bool Interruption::isAsked()
{
    return asked != 0;
}

} // namespace Conformance
