"""The first process of the sandbox: brings up the services, runs the command, and takes all with it when it ends."""

import argparse
import json
import os
import pathlib
import signal
import subprocess
import sys
import time

import control
import mounts
import places
import ports
from bus import Bus
from daemon import PATIENCE, DaemonError
from dhcpserver import DhcpServer
from modemmanager import ModemManager
from networkmanager import NetworkManager
from policykit import PolicyKit
from scripted_manager import ScriptedManager
from skip import FAILED
from unpacked import Unpacked

HERE = pathlib.Path(__file__).resolve().parent
NOT_FOUND = 127


def main():
    signal.signal(signal.SIGINT, signal.SIG_IGN)
    options = argparse.Namespace(**json.loads(sys.argv[1]))
    supervisor = os.fork()
    if supervisor == 0:
        return supervise(options)
    # Orphans end up here; who looks whether one has ended must not find what is left of it.
    while True:
        process, status = os.wait()
        if process == supervisor:
            return os.waitstatus_to_exitcode(status) % 256


def supervise(options):
    try:
        prepare(options)
        ports.plug_in()
        shield = mounts.Shield(["/run", "/var/lib", places.LOGS])
        bring_up(options)
    except (DaemonError, OSError, subprocess.CalledProcessError) as error:
        print(f"nm-harness: {error}", file=sys.stderr)
        return FAILED
    if options.verbose:
        print(f"nm-harness: up after {1000 * (time.time() - options.begun):.0f} ms", file=sys.stderr)
    return run(options.command, shield)


def prepare(options):
    """Makes the places of the sandbox and the environment of all that runs in it."""
    mounts.arrange([HERE.parents[2], os.getcwd(), options.packages, *options.keep, *filter(None, [options.logs])])
    for directory in (places.BIN, places.PROFILES, places.BUS_SOCKET.parent, pathlib.Path("/var/lib/NetworkManager")):
        directory.mkdir(parents=True, exist_ok=True)
    places.LOGS.mkdir()
    mounts.bind(options.logs or places.LOGS, places.LOGS)
    session = places.HOME / "session"
    session.mkdir(mode=0o700)
    for variable in ("DBUS_SESSION_BUS_ADDRESS", "DBUS_STARTER_ADDRESS", "NOTIFY_SOCKET"):
        os.environ.pop(variable, None)
    os.environ.update(
        DBUS_SYSTEM_BUS_ADDRESS=places.BUS_ADDRESS,
        PANEL_HARNESS=str(places.CONTROL),
        PATH=f"{places.BIN}{os.pathsep}{os.environ['PATH']}",
        XDG_RUNTIME_DIR=str(session),
    )


def bring_up(options):
    unpacked = Unpacked(pathlib.Path(options.packages))
    bus = Bus()
    if options.scripted:
        manager = ScriptedManager(unpacked)
    else:
        manager = NetworkManager(unpacked, options.profiles, options.log_level)
    servers = [DhcpServer(port, unpacked) for port in ports.PORTS.values()]
    for daemon in (bus, *servers):
        daemon.launch()
    bus.await_ready()
    daemons = [bus, manager, *servers]
    if options.modem:
        daemons += bring_up_modem(unpacked)
    manager.start()
    if options.profiles and not options.scripted:
        await_leases(manager)
    offer_commands(unpacked)
    control.serve(control.Control(daemons))


def bring_up_modem(unpacked):
    policy = PolicyKit(unpacked)
    policy.start()
    manager = ModemManager(unpacked)
    manager.start()
    return [policy, manager]


def await_leases(manager):
    end = time.monotonic() + PATIENCE
    while not all(ports.addresses(port) for port in ports.PORTS.values()):
        if time.monotonic() > end:
            raise DaemonError(f"no lease after {PATIENCE} seconds: {manager.last_words()}")
        time.sleep(0.005)


def offer_commands(unpacked):
    """Puts commands on the path: for the sandbox, the services by hand, and the far side of the cables."""
    (places.BIN / "harnessctl").symlink_to(HERE / "harnessctl.py")
    libraries = unpacked.environment()["LD_LIBRARY_PATH"]
    scripts = {
        "nmcli": f"LD_LIBRARY_PATH='{libraries}' exec '{unpacked.program('nmcli')}'",
        "mmcli": f"LD_LIBRARY_PATH='{libraries}' exec '{unpacked.program('mmcli')}'",
        "far": f"exec {' '.join(ports.FAR)}",
    }
    python = unpacked.python_environment()
    variables = " ".join(f"{name}='{python[name]}'" for name in ("LD_LIBRARY_PATH", "PYTHONPATH", "GI_TYPELIB_PATH"))
    scripts["python3-dbus"] = f"{variables} exec '{sys.executable}'"
    for name, text in scripts.items():
        script = places.BIN / name
        script.write_text(f'#!/bin/sh\n{text} "$@"\n', encoding="utf-8")
        script.chmod(0o755)


def run(command, shield):
    def become_command():
        shield.leave()
        signal.signal(signal.SIGINT, signal.SIG_DFL)

    try:
        code = subprocess.call(command, preexec_fn=become_command)
    except OSError as error:
        print(f"nm-harness: {command[0]}: {error.strerror}", file=sys.stderr)
        return NOT_FOUND
    return code if code >= 0 else 128 - code


if __name__ == "__main__":
    # What still runs in other threads has nothing to finish.
    result = main()
    sys.stdout.flush()
    os._exit(result)
