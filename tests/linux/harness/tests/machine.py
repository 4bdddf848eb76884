"""The machine around the sandbox, as somebody sees it who looks whether anything has been touched."""

import dataclasses
import os
import pathlib
import subprocess

SERVICES = ("NetworkManager", "dnsmasq", "ModemManager")


@dataclasses.dataclass(frozen=True)
class Process:
    number: int
    name: str
    parent: int
    # In ticks since the machine was started; with the number it names a process for good.
    started: int

    def age(self):
        with open("/proc/uptime", encoding="ascii") as uptime:
            return float(uptime.read().split()[0]) - self.started / os.sysconf("SC_CLK_TCK")


class Look:
    """What is seen at one moment."""

    def __init__(self):
        self.network = network()
        self.files = files()
        self.services = services()


def processes():
    """The processes in the machine's own network and process namespaces, as far as this user may look."""
    own = {kind: os.readlink(f"/proc/self/ns/{kind}") for kind in ("net", "pid")}
    found = set()
    for directory in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if all(os.readlink(directory / "ns" / kind) == name for kind, name in own.items()):
                found.add(process(directory))
        except OSError:
            # It has ended meanwhile, or belongs to somebody else.
            continue
    return found


def process(directory):
    name, _, rest = (directory / "stat").read_text(encoding="utf-8").partition("(")[2].rpartition(")")
    fields = rest.split()
    return Process(int(directory.name), name, int(fields[1]), int(fields[19]))


def services():
    """The machine's own processes of the kinds that run in the sandbox."""
    return {found for found in processes() if found.name in SERVICES}


def lasting():
    """The machine's own processes that have run for a while and that nobody waits for."""
    return {found for found in processes() if found.parent == 1 and found.age() > 60}


def network():
    """Links, addresses, routes, rules and name servers, as lines by subject, without what counts by itself."""
    seen = {}
    for subject in ("link", "address", "route show table all", "-6 route show table all", "rule", "-6 rule"):
        told = subprocess.run(["ip", "-oneline", *subject.split()], stdout=subprocess.PIPE, encoding="utf-8", check=True)
        seen[subject] = sorted(steady(line) for line in told.stdout.splitlines())
    resolver = pathlib.Path("/etc/resolv.conf")
    seen["resolver"] = resolver.read_text(encoding="utf-8").splitlines() if resolver.exists() else None
    seen["host name"] = os.uname().nodename
    return seen


def steady(line):
    words = line.split()
    for lifetime in ("valid_lft", "preferred_lft", "expires"):
        if lifetime in words:
            place = words.index(lifetime)
            del words[place : place + 2]
    return " ".join(words)


def files():
    """What is mounted, and what lies where services leave things."""
    with open("/proc/self/mountinfo", encoding="utf-8") as mounts:
        mounted = sorted(line.split(" ", 2)[2] for line in mounts)
    places = ("/run", "/run/netns", "/run/dbus", "/var/lib", "/etc/NetworkManager")
    return {"mounts": mounted, **{place: listed(pathlib.Path(place)) for place in places}}


def listed(directory):
    return sorted(path.name for path in directory.iterdir()) if directory.is_dir() else None
