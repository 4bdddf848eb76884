"""What can be done to the sandbox by those in it, over a socket.

A line with words goes in, lines come out, the first of which is "ok" or tells why not.
"""

import inspect
import shlex
import socketserver
import subprocess
import threading

import atmodem
import places
import ports
from daemon import DaemonError
from ports import PORTS
from scripted_manager import ScriptedManager

HELP = """\
cable PORT out|in          pulls the cable of lan0 or lan1, or puts it back
dhcp PORT silent|answering what the DHCP server behind the port does
nm kill|start|stop|restart|freeze|thaw
bus kill|start|stop|restart|freeze|thaw
addresses PORT             the port's addresses, from the kernel
routes                     the default routes, from the kernel: port, gateway, metric; the best one first
resolver                   the name servers that NetworkManager worked out
profiles                   the files of the stored profiles
pid SERVICE                the process: nm, bus, dhcp-lan0, dhcp-lan1, mm
help                       this list
With --modem:
mm kill|start|stop|restart|freeze|thaw
modem registration idle|home|searching|denied|roaming
modem signal NUMBER        from 0 to 31; 99 when there is none
modem card ready|missing|broken|wrong|locked
                           is seen after mm restart; 1234 unlocks it
With --scripted:
script WORDS...            what the scripted NetworkManager does; script help lists it"""

DAEMON_ACTS = ("kill", "start", "stop", "restart", "freeze", "thaw")


class Control:
    """Carries out what is asked for, one thing after the other."""

    def __init__(self, daemons):
        self._daemons = {daemon.name: daemon for daemon in daemons}
        self._commands = {
            "cable": self._cable,
            "dhcp": self._dhcp,
            "nm": lambda act: self._act("nm", act),
            "bus": lambda act: self._act("bus", act),
            "mm": lambda act: self._act("mm", act),
            "modem": self._modem,
            "script": self._script,
            "addresses": lambda name: ports.addresses(port(name)),
            "routes": ports.default_routes,
            "resolver": resolver,
            "profiles": lambda: sorted(str(path) for path in places.PROFILES.iterdir()),
            "pid": lambda name: [str(self._daemon(name).pid)],
            "help": lambda: HELP.splitlines(),
        }

    def answer(self, line):
        """Carries out what the line says; returns the lines of the answer."""
        try:
            name, *words = shlex.split(line) or ["help"]
            command = self._commands[one_of(name, *self._commands)]
            try:
                inspect.signature(command).bind(*words)
            except TypeError:
                raise DaemonError("not as many words as it takes; harnessctl help tells them") from None
            return ["ok", *(command(*words) or ())]
        except (DaemonError, ValueError, OSError, subprocess.CalledProcessError) as error:
            return [f"error: {line}: {error}"]

    def _cable(self, name, place):
        ports.set_cable(port(name), {"in": True, "out": False}[one_of(place, "in", "out")])

    def _dhcp(self, name, what):
        server = self._daemon(f"dhcp-{port(name).name}")
        if one_of(what, "silent", "answering") == "silent":
            server.silence()
        else:
            server.answer()

    def _modem(self, what, value):
        modem = self._daemon("mm").modem
        if one_of(what, "registration", "signal", "card") == "registration":
            modem.set_registration(one_of(value, *atmodem.REGISTRATIONS))
        elif what == "signal":
            modem.set_signal(int(one_of(value, *atmodem.SIGNALS)))
        else:
            modem.set_card(one_of(value, *atmodem.CARDS))

    def _script(self, *words):
        manager = self._daemon("nm")
        if not isinstance(manager, ScriptedManager):
            raise DaemonError("NetworkManager is a real one; it is scripted with --scripted")
        return manager.tell(words)

    def _act(self, name, act):
        getattr(self._daemon(name), one_of(act, *DAEMON_ACTS))()

    def _daemon(self, name):
        return self._daemons[one_of(name, *self._daemons)]


def port(name):
    return PORTS[one_of(name, *PORTS)]


def one_of(word, *words):
    if word not in words:
        raise DaemonError(f"not {word}, but one of: {', '.join(words)}")
    return word


def resolver():
    try:
        lines = places.RESOLVER.read_text(encoding="utf-8").splitlines()
    except FileNotFoundError:
        return []
    return [line.split()[1] for line in lines if line.startswith("nameserver ")]


def serve(control):
    """Listens in a thread of its own from now on."""

    class Handler(socketserver.StreamRequestHandler):
        def handle(self):
            line = self.rfile.readline().decode("utf-8", "replace").strip()
            self.wfile.write("".join(f"{said}\n" for said in control.answer(line)).encode())

    server = socketserver.UnixStreamServer(str(places.CONTROL), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
