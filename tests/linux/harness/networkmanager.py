"""The NetworkManager of the sandbox."""

import subprocess

import places
from daemon import Daemon
from ports import PORTS

CONFIGURATION = f"""[main]
plugins=keyfile
dhcp=internal
# It works out the name servers and writes them where nobody but a test reads them.
dns=default
rc-manager=unmanaged
systemd-resolved=false
hostname-mode=none
auth-polkit=false
# A port without a profile stays without one.
no-auto-default=*

[keyfile]
path={places.PROFILES}
unmanaged-devices=none

[device]
match-device=*
managed=1

[connectivity]
enabled=false
"""

PROFILE = """[connection]
id={port.name}
uuid=5eed0000-0000-4000-8000-{number:012}
type=ethernet
interface-name={port.name}

[ipv4]
method=auto
route-metric={port.metric}

[ipv6]
method=disabled
"""


class NetworkManager(Daemon):
    """The two ports are its own; with profiles, each gets its address from the server behind it."""

    name = "nm"

    def __init__(self, unpacked, with_profiles, log_level):
        super().__init__()
        self._unpacked = unpacked
        self._log_level = log_level
        if with_profiles:
            for number, port in enumerate(PORTS.values()):
                profile = places.PROFILES / f"{port.name}.nmconnection"
                profile.write_text(PROFILE.format(port=port, number=number), encoding="utf-8")
                profile.chmod(0o600)

    def command(self):
        configuration = places.HOME / "NetworkManager.conf"
        configuration.write_text(CONFIGURATION, encoding="utf-8")
        nowhere = places.HOME / "nowhere"
        return [
            self._unpacked.program("NetworkManager"),
            # In the foreground, and logs to where it is started instead of to the machine's log.
            "--debug",
            f"--config={configuration}",
            f"--config-dir={nowhere}",
            f"--system-config-dir={nowhere}",
            f"--intern-config={places.HOME}/NetworkManager-intern.conf",
            f"--state-file={places.HOME}/NetworkManager.state",
            f"--pid-file={places.HOME}/NetworkManager.pid",
            f"--log-level={self._log_level}",
        ]

    def environment(self):
        return self._unpacked.environment()

    def is_ready(self):
        """Whether it answers and has taken the ports over; what it activates by itself may still be on its way."""
        states = self.states()
        return all(states.get(name, "unmanaged") != "unmanaged" for name in PORTS)

    def states(self):
        """The states of the devices in the words of its own command."""
        asked = subprocess.run(
            [self._unpacked.program("nmcli"), "--terse", "--fields", "DEVICE,STATE", "device"],
            env=dict(self.environment(), LC_ALL="C"),
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            encoding="utf-8",
            check=False,
        )
        return dict(line.split(":", 1) for line in asked.stdout.splitlines() if ":" in line)
