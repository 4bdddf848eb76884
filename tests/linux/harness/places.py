"""Where everything lies inside the sandbox. All of it is in memory and goes with the sandbox."""

import pathlib

HOME = pathlib.Path("/run/harness")
BIN = HOME / "bin"
CONTROL = HOME / "control"
LOGS = HOME / "logs"
PROFILES = HOME / "profiles"

BUS_SOCKET = pathlib.Path("/run/dbus/system_bus_socket")
BUS_ADDRESS = f"unix:path={BUS_SOCKET}"
# What NetworkManager would put into /etc/resolv.conf, which it is told to leave alone.
RESOLVER = pathlib.Path("/run/NetworkManager/resolv.conf")
