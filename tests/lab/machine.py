"""The emulated device that the lab runs on."""

import contextlib
import json
import pathlib
import socket
import subprocess
import time

# What nothing sets: a clock that is right would hide that somebody sets it.
FIRST_SECOND = "2026-01-01T00:00:00"
SERIAL_NUMBER = "LAB-0001"


class MachineError(Exception):
    """The machine cannot be started."""


class Machine:
    """Runs from start() on; ended as soon as the device asks for a restart, or is switched off."""

    def __init__(self, place, share):
        self._logs = place / "log"
        self._image = place / "image"
        self._firmware = place / "panel.aml"
        self._control = place / "qmp"
        self._share = share
        self._process = None
        self.results = self._logs / "results"

    def start(self):
        self._logs.mkdir(parents=True, exist_ok=True)
        self.results.write_bytes(b"")
        self._control.unlink(missing_ok=True)
        make_firmware(self._firmware)
        with open(self._logs / "emulator.log", "wb") as log:
            self._process = subprocess.Popen(self._command(), stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self._qmp = self._connect()
        self._events = b""

    def _command(self):
        return [
            "qemu-system-x86_64",
            # The same everywhere, whatever the processor could help.
            *("-accel", "tcg,thread=multi", "-cpu", "max"),
            *("-smp", "2", "-m", "768"),
            *("-nodefaults", "-display", "none", "-no-reboot"),
            *("-kernel", str(self._image / "vmlinuz"), "-initrd", str(self._image / "initrd.img")),
            *("-append", " ".join(kernel_options())),
            # Whatever is written to the disk is forgotten.
            *("-drive", f"file={self._image / 'disk.ext4'},if=virtio,format=raw,snapshot=on"),
            *("-virtfs", f"local,path={self._share},mount_tag=lab,security_model=none,readonly=on"),
            *("-netdev", "user,id=port,restrict=on", "-device", "virtio-net-pci,netdev=port"),
            *("-device", "VGA,addr=0x10", "-acpitable", f"file={self._firmware}"),
            *("-smbios", f"type=1,serial={SERIAL_NUMBER}"),
            *("-rtc", f"base={FIRST_SECOND},clock=vm"),
            *("-serial", f"file:{self._logs / 'console.log'}"),
            *("-serial", f"file:{self.results}"),
            *("-qmp", f"unix:{self._control},server=on,wait=off"),
        ]

    def _connect(self):
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            if self._process.poll() is not None:
                raise MachineError((self._logs / "emulator.log").read_text(encoding="utf-8", errors="replace").strip())
            with contextlib.suppress(OSError):
                connection = socket.socket(socket.AF_UNIX)
                connection.connect(str(self._control))
                connection.sendall(b'{"execute": "qmp_capabilities"}\n')
                connection.setblocking(False)
                return connection
            time.sleep(0.05)
        raise MachineError("the emulator does not answer")

    def is_running(self):
        return self._process.poll() is None

    def end_reason(self):
        """Why it ended, as the emulator says: guest-reset, guest-shutdown or guest-panic; "" while nothing is told."""
        with contextlib.suppress(OSError):
            while part := self._qmp.recv(4096):
                self._events += part
        for line in self._events.splitlines():
            event = json.loads(line) if line.endswith(b"}") else {}
            if event.get("event") == "SHUTDOWN":
                return event["data"]["reason"]
        return ""

    def stop(self):
        """Ends it, whatever it does."""
        if self._process and self._process.poll() is None:
            self._process.kill()
        if self._process:
            self._process.wait()
        self._control.unlink(missing_ok=True)


def kernel_options():
    return [
        *("root=/dev/vda", "rw", "console=ttyS0", "quiet", "systemd.show_status=0", "net.ifnames=0"),
        # The machine is emulated, and forgotten afterwards.
        *("mitigations=off", "panic=-1", "modprobe.blacklist=kvm_amd"),
        # The backlight is the firmware's, and no driver of the display asks for it.
        *("acpi_backlight=video", "video.register_backlight_delay=1"),
    ]


def make_firmware(place):
    source = pathlib.Path(__file__).resolve().with_name("panel.asl")
    done = subprocess.run(
        ["iasl", "-p", str(place.with_suffix("")), str(source)], capture_output=True, text=True, check=False
    )
    if done.returncode != 0:
        raise MachineError(f"the firmware's table is wrong: {done.stdout}{done.stderr}")
