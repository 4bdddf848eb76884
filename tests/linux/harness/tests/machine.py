"""The machine around the sandbox, as somebody sees it who looks whether anything has been touched."""

import os
import pathlib
import subprocess

NETWORK = ("link", "address", "route show table all", "-6 route show table all", "rule", "-6 rule")
# Each is mounted, made or written to inside.
PLACES = (
    "/proc",
    "/sys",
    "/run",
    "/run/dbus/system_bus_socket",
    "/run/harness",
    "/run/netns",
    "/run/netns/far",
    "/run/NetworkManager",
    "/var/lib",
    "/var/lib/NetworkManager",
    "/etc/NetworkManager",
)
SERVICES = ("NetworkManager", "dnsmasq", "ModemManager")


class Look:
    """What is seen at one moment."""

    def __init__(self):
        self.devices = {line.split()[1].partition("@")[0].rstrip(":") for line in told_by_ip("link")}
        self.lines = {f"{subject}: {line}" for subject in NETWORK for line in told_by_ip(subject)}
        self.lines |= {f"file: {line}" for line in files()} | {f"host name: {os.uname().nodename}"}
        self.lines |= {f"service: {service}" for service in services()}

    def changes_since(self, before):
        """What is no longer there, and what has come; not devices that others make meanwhile, as containers do."""
        lost = sorted(f"lost {line}" for line in before.lines - self.lines)
        new_devices = self.devices - before.devices - {"lan0", "lan1"}
        return lost + sorted(f"came {line}" for line in self.lines - before.lines if not new_devices & names_in(line))


def services():
    """The machine's own processes of the kinds that run in the sandbox, as far as this user may look."""
    own = {kind: os.readlink(f"/proc/self/ns/{kind}") for kind in ("net", "pid")}
    for directory in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            name = (directory / "comm").read_text(encoding="utf-8").strip()
            if name in SERVICES and all(os.readlink(directory / "ns" / kind) == place for kind, place in own.items()):
                yield f"{directory.name} {name}"
        except OSError:
            # It has ended meanwhile, or belongs to somebody else.
            continue


def told_by_ip(subject):
    """The lines of ip(8), without what counts by itself."""
    told = subprocess.check_output(["ip", "-oneline", *subject.split()], encoding="utf-8")
    return [steady(line) for line in told.splitlines()]


def steady(line):
    words = line.split()
    for lifetime in ("valid_lft", "preferred_lft", "expires"):
        if lifetime in words:
            place = words.index(lifetime)
            del words[place : place + 2]
    return " ".join(words)


def names_in(line):
    return {word.partition("@")[0].rstrip(":") for word in line.split()}


def files():
    """What lies and is mounted where the sandbox puts things. Elsewhere on the machine others come and go."""
    for place in PLACES:
        path = pathlib.Path(place)
        yield f"{place} is number {path.stat().st_ino}" if path.exists() else f"{place} is not there"
    with open("/proc/self/mountinfo", encoding="utf-8") as mounts:
        for line in mounts:
            if line.split()[4] in PLACES:
                yield f"mounted: {line.split(' ', 2)[2].strip()}"
    resolver = pathlib.Path("/etc/resolv.conf")
    yield f"resolver: {resolver.read_text(encoding='utf-8') if resolver.exists() else None!r}"
