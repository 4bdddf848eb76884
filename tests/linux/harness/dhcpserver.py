"""The DHCP server behind a port."""

import places
from daemon import Daemon
from ports import FAR


class DhcpServer(Daemon):
    """Each port has its own, so that one can be silent while the other answers."""

    def __init__(self, port, unpacked):
        super().__init__()
        self._port = port
        self._unpacked = unpacked
        self.name = f"dhcp-{port.name}"

    def command(self):
        port = self._port
        return [
            *FAR,
            self._unpacked.program("dnsmasq"),
            "--keep-in-foreground",
            "--conf-file=/dev/null",
            "--log-facility=-",
            "--log-dhcp",
            "--pid-file=",
            # There is no other user in the sandbox that it could become.
            "--user=root",
            "--group=",
            # DHCP alone.
            "--port=0",
            f"--interface={port.plug}",
            "--bind-interfaces",
            "--dhcp-authoritative",
            # It otherwise looks for three seconds whether anybody has the address that it is about to hand out.
            "--no-ping",
            f"--dhcp-leasefile={places.HOME}/{self.name}.leases",
            f"--dhcp-range={port.network}.100,{port.network}.150,2m",
            f"--dhcp-option=option:dns-server,{port.server}",
        ]

    def environment(self):
        return self._unpacked.environment()

    def silence(self):
        """Lets it hear and answer nothing, as a server does that hangs: a port that is closed would be an answer."""
        self.freeze()

    def answer(self):
        """Ends the silence with a new server, which knows nothing of what was asked meanwhile."""
        self.kill()
        self.start()
