"""The system bus of the sandbox."""

import os
import socket

import places
from daemon import Daemon

CONFIGURATION = f"""<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>{places.BUS_ADDRESS}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
"""


class Bus(Daemon):
    """Lets everybody do everything: there is one user in the sandbox. It starts no services."""

    name = "bus"

    def command(self):
        configuration = places.HOME / "bus.conf"
        configuration.write_text(CONFIGURATION, encoding="utf-8")
        return ["dbus-daemon", "--nofork", "--nopidfile", "--nosyslog", f"--config-file={configuration}"]

    def launch(self):
        # What a killed bus left is no bus.
        if not self.is_running() and places.BUS_SOCKET.exists():
            os.unlink(places.BUS_SOCKET)
        super().launch()

    def is_ready(self):
        with socket.socket(socket.AF_UNIX) as attempt:
            return attempt.connect_ex(str(places.BUS_SOCKET)) == 0
