"""Two wired ports, and what their cables lead to: a far side in a network namespace of its own."""

import dataclasses
import json
import subprocess

FAR = ("nsenter", "--net=/run/netns/far")


@dataclasses.dataclass(frozen=True)
class Port:
    name: str
    hardware: str
    network: str
    # The default route of the one with the smaller number is the better one, whichever port gets its lease first.
    metric: int

    @property
    def plug(self):
        """The other end of its cable."""
        return f"{self.name}-far"

    @property
    def server(self):
        """The address of the far side: router, name server and DHCP server in one."""
        return f"{self.network}.1"


PORTS = {
    "lan0": Port("lan0", "02:00:00:00:00:10", "192.168.50", 100),
    "lan1": Port("lan1", "02:00:00:00:00:11", "192.168.60", 200),
}


def plug_in():
    """Makes the ports and puts their cables in."""
    subprocess.run(["ip", "netns", "add", "far"], check=True)
    near, far = ["link set lo up"], ["link set lo up"]
    for port in PORTS.values():
        near.append(f"link add {port.name} address {port.hardware} type veth peer name {port.plug} netns far")
        far.append(f"address add {port.server}/24 dev {port.plug}")
        far.append(f"link set {port.plug} up")
    batch([], near)
    batch(FAR, far)


def batch(prefix, lines):
    subprocess.run([*prefix, "ip", "-batch", "-"], input="\n".join(lines), encoding="utf-8", check=True)


def set_cable(port, is_in):
    batch(FAR, [f"link set {port.plug} {'up' if is_in else 'down'}"])


def addresses(port):
    """The addresses of the port as the kernel has them, "192.168.50.100/24"."""
    listed = ask("-4", "address", "show", "dev", port.name)
    return [f"{entry['local']}/{entry['prefixlen']}" for device in listed for entry in device.get("addr_info", ())]


def default_routes():
    """The default routes as the kernel has them, the best one first, "lan0 192.168.50.1 100": port, gateway, metric."""
    routes = sorted(ask("-4", "route", "show", "default"), key=lambda route: route.get("metric", 0))
    return [f"{route['dev']} {route.get('gateway', '-')} {route.get('metric', 0)}" for route in routes]


def ask(*question):
    done = subprocess.run(["ip", "-json", *question], stdout=subprocess.PIPE, encoding="utf-8", check=True)
    return json.loads(done.stdout or "[]")
