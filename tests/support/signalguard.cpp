// Every test program's own kill(), ahead of the C library's and so also the toolkit's.
//
// A test signals one process at a time, one that it started. A number that is none means a group to the kernel, and
// -1 all that the user has: what QProcess holds for a child that could not be made, as under an emulator, would end
// everything on the machine when the QProcess goes.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <sys/syscall.h>
#include <unistd.h>

extern "C" {

// A name that nobody else has, for the link to ask for.
int killOne(pid_t process, int number) noexcept
{
    if (process > 0)
        return static_cast<int>(syscall(SYS_kill, process, number));
    std::fprintf(stderr, "a test was about to send signal %d to the processes of %d\n", number, int(process));
    if (number != 0)
        std::abort();
    errno = EPERM;
    return -1;
}

__attribute__((visibility("default"), alias("killOne"))) int kill(pid_t, int) noexcept;

} // extern "C"
