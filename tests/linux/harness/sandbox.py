"""Namespaces of one's own, seen from outside: whether they may be had, and that what is in them ends in time."""

import os
import select
import shutil
import signal
import subprocess

from skip import Unavailable

# One user, whoever it is, is root in there. The first process inside is number one of its own process numbers: when it
# ends, the kernel ends all others.
ENTER = "unshare --map-root-user --mount --net --uts --pid --fork --kill-child --propagation private --".split()
# Nobody's own number: it is there on every machine, and owns nothing.
BECOME_ORDINARY = "setpriv --reuid 65534 --regid 65534 --clear-groups".split()
TOOLS = ("unshare", "setpriv", "nsenter", "ip", "dbus-daemon")
SWITCHES = (
    ("/proc/sys/kernel/unprivileged_userns_clone", "0"),
    ("/proc/sys/kernel/apparmor_restrict_unprivileged_userns", "1"),
    ("/proc/sys/user/max_user_namespaces", "0"),
    ("/proc/sys/user/max_net_namespaces", "0"),
)


def user_change(ordinary):
    """What makes a command one of an ordinary user."""
    return BECOME_ORDINARY if ordinary and os.getuid() == 0 else []


def probe(user, program):
    """Makes sure that a sandbox can be had here, and that the user can run the program."""
    for tool in TOOLS:
        if not shutil.which(tool):
            raise Unavailable(f"the program {tool} is missing")
    if subprocess.run([*user, "test", "-r", program], check=False).returncode != 0:
        raise Unavailable(f"an ordinary user cannot go to {program}")
    tried = subprocess.run([*user, *ENTER, "true"], stderr=subprocess.PIPE, encoding="utf-8", check=False)
    if tried.returncode != 0:
        said = " ".join(tried.stderr.split())
        whom = "an ordinary user" if user else f"user {os.getuid()}"
        raise Unavailable(f"namespaces are forbidden to {whom} here: {said}{closed_switches()}")


def closed_switches():
    closed = [f"{path.removeprefix('/proc/sys/')}={value}" for path, value in SWITCHES if read(path) == value]
    return f" ({', '.join(closed)})" if closed else ""


def read(path):
    try:
        with open(path, encoding="ascii") as file:
            return file.read().strip()
    except OSError:
        return None


def run(user, command):
    """Runs the command as the user in namespaces of its own; returns its exit code.

    A signal that ends this process ends all in there.
    """
    received = []
    # Also when nobody gets the chance to say anything, as with SIGKILL.
    with subprocess.Popen([*user, "setpriv", "--pdeathsig", "KILL", *ENTER, *command]) as process:

        def end(number, _frame):
            try:
                inside = os.pidfd_open(first_inside(process.pid))
            except ProcessLookupError:
                return  # it has just ended by itself
            received.append((number, inside))
            process.kill()

        for number in (signal.SIGTERM, signal.SIGHUP):
            if signal.getsignal(number) != signal.SIG_IGN:
                signal.signal(number, end)
        # From a terminal it reaches the command too, which decides what it means.
        signal.signal(signal.SIGINT, signal.SIG_IGN)
        code = process.wait()
    if received:
        number, inside = received[0]
        select.select([inside], [], [])
        signal.signal(number, signal.SIG_DFL)
        os.kill(os.getpid(), number)
    return code if code >= 0 else 128 - code


def first_inside(process):
    """The first process inside, by its number outside, or the one that is about to make it.

    It has not ended before the kernel has ended all others in there.
    """
    made = (read(f"/proc/{process}/task/{process}/children") or "").split()
    return int(made[0]) if made else process
