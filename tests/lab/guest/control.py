"""What the tests may let happen around the device and ask of it, whoever runs them: a line in, lines out."""

import pathlib
import socketserver
import subprocess
import threading
import time

SOCKET = pathlib.Path("/run/lab")


def serve(air, buzzer, backlight):
    """Answers in a thread of its own from now on."""
    commands = {
        "appear": lambda name: air.points[name].appear(),
        "vanish": lambda name: air.points[name].vanish(),
        "profiles": profiles,
        "addresses": addresses,
        "resolver": resolver,
        "clock": lambda: [str(int(time.time()))],
        "hardware-clock": lambda: [pathlib.Path("/sys/class/rtc/rtc0/since_epoch").read_text().strip()],
        # timedated itself is not asked: it would be running then.
        "synchronisation": lambda: [said("systemctl", "is-enabled", "systemd-timesyncd")],
        "radio": lambda: [told("nmcli", "radio", "wifi")],
        "heard": lambda: [str(tone) for tone in buzzer.heard()],
        "backlight": lambda: [backlight.level(), backlight.highest()],
    }

    class Handler(socketserver.StreamRequestHandler):
        def handle(self):
            name, *words = self.rfile.readline().decode().split()
            try:
                lines = ["ok", *(commands[name](*words) or ())]
            except (KeyError, TypeError, OSError, subprocess.CalledProcessError) as error:
                lines = [f"error: {name}: {error!r}"]
            self.wfile.write("".join(f"{line}\n" for line in lines).encode())

    server = socketserver.UnixStreamServer(str(SOCKET), Handler)
    SOCKET.chmod(0o666)
    threading.Thread(target=server.serve_forever, daemon=True).start()


def told(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()


def said(*command):
    """As told(), also of one that says no by its exit code."""
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def profiles():
    """The files of the stored profiles, and of those that only live in memory."""
    return [
        path.name
        for place in ("/etc/NetworkManager/system-connections", "/run/NetworkManager/system-connections")
        for path in sorted(pathlib.Path(place).glob("*"))
    ]


def addresses(interface):
    lines = told("ip", "-4", "-oneline", "address", "show", "dev", interface).splitlines()
    return [line.split()[3] for line in lines]


def resolver():
    lines = pathlib.Path("/etc/resolv.conf").read_text(encoding="utf-8").splitlines()
    return [line.split()[1] for line in lines if line.startswith("nameserver ")]
