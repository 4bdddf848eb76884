"""Template of python-dbusmock: a NetworkManager whose devices do what they are told.

For what no sandbox has: a wireless device, a modem's data connection, VPN plug-ins. Tell(as), on the interface
panel.sandbox.Script of the manager's object, is what "harnessctl script" calls.
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from board import Board, paths, refusal  # noqa: E402
from devices import Devices, VPN  # noqa: E402
from outcomes import NETWORK_NOT_FOUND, OUTCOMES, VPN_OUTCOMES  # noqa: E402
from profiles import Profiles  # noqa: E402
from wifi import SECURITIES  # noqa: E402
import dbus  # noqa: E402

BUS_NAME = "org.freedesktop.NetworkManager"
MAIN_OBJ = "/org/freedesktop"
MAIN_IFACE = "org.freedesktop.DBus.ObjectManager"
SYSTEM_BUS = True
IS_OBJECT_MANAGER = True

MANAGER = "org.freedesktop.NetworkManager"
PATH = "/org/freedesktop/NetworkManager"
SCRIPT = "panel.sandbox.Script"
SCANS = ("answered", "refused", "silent")

HELP = """\
outcome wlan0|wwan0|vpn NAME   what activations come to: itself, {outcomes}
pace MILLISECONDS              from one state to the next
network SSID STRENGTH open|wpa2|wpa3 [PASSWORD]
                               a network appears, or is heard otherwise; its name in hexadecimal digits
vanish SSID                    the network is gone, and what is joined to it fails
crowd COUNT                    as many networks more
silence                        all networks are gone
scan answered|refused|silent   what comes of asking for a scan
device wlan0|wwan0 out|in      takes the device away, or puts it back
profiles                       whether each profile is stored or volatile, and its name""".format(
    outcomes=", ".join(OUTCOMES)
)


class Manager:
    def __init__(self, board):
        self._board = board
        self._board.add(PATH, {MANAGER: self._properties()}, self._methods())
        self._profiles = Profiles(board)
        self._devices = Devices(board, self._profiles, self._tell_lists)
        self._crowd = 0
        for name in ("wlan0", "wwan0"):
            self._devices.put_in(name)

    @staticmethod
    def _properties():
        return {
            "Version": "1.42.4",
            "State": dbus.UInt32(20),
            "Startup": False,
            "NetworkingEnabled": True,
            "WirelessEnabled": True,
            "WirelessHardwareEnabled": True,
            "WwanEnabled": True,
            "WwanHardwareEnabled": True,
            "Devices": paths(),
            "AllDevices": paths(),
            "ActiveConnections": paths(),
            "ActivatingConnection": dbus.ObjectPath("/"),
            "PrimaryConnection": dbus.ObjectPath("/"),
            "PrimaryConnectionType": "",
        }

    def _methods(self):
        return [
            (MANAGER, "GetDevices", "", "ao", lambda: paths(self._devices.paths())),
            (MANAGER, "GetAllDevices", "", "ao", lambda: paths(self._devices.paths())),
            (MANAGER, "GetDeviceByIpIface", "s", "o", lambda name: dbus.ObjectPath(self._devices.path(name))),
            (MANAGER, "ActivateConnection", "ooo", "o", lambda *told: self._devices.activate(*told)),
            (MANAGER, "AddAndActivateConnection", "a{sa{sv}}oo", "oo", lambda *told: self._add(*told, {})[:2]),
            (MANAGER, "AddAndActivateConnection2", "a{sa{sv}}ooa{sv}", "ooa{sv}", self._add),
            (MANAGER, "DeactivateConnection", "o", "", lambda active: self._devices.deactivate(active)),
            (SCRIPT, "Tell", "as", "as", self._obey),
        ]

    def _add(self, settings, device, specific, options):
        return self._devices.add_and_activate(settings, device, specific, options)

    def _tell_lists(self):
        self._board.change(
            PATH,
            MANAGER,
            Devices=paths(self._devices.paths()),
            AllDevices=paths(self._devices.paths()),
            ActiveConnections=paths(self._devices.active()),
        )

    def _obey(self, words):
        try:
            name, *rest = map(str, words)
            act = getattr(self, f"do_{name}", None)
            if not act:
                raise ValueError("no such command; script help lists them")
            return dbus.Array(act(*rest) or [], signature="s")
        except (KeyError, TypeError, ValueError) as error:
            raise refusal(f"{SCRIPT}.Refused", f"{error.args[0]}") from error

    def do_help(self):
        return HELP.splitlines()

    def do_outcome(self, device, name):
        known = VPN_OUTCOMES if device == VPN else OUTCOMES
        if name not in ("itself", *known):
            raise ValueError(f"not one of: itself, {', '.join(known)}")
        self._devices.set_outcome(device, name)

    def do_pace(self, milliseconds):
        self._board.pace = int(milliseconds)

    def do_network(self, name, strength, security, password=""):
        if security not in SECURITIES:
            raise ValueError(f"not one of: {', '.join(SECURITIES)}")
        self._devices.wifi.appear(bytes.fromhex(name), int(strength), security, password)

    def do_vanish(self, name):
        self._devices.wifi.vanish(bytes.fromhex(name))
        self._devices.lose_network(bytes.fromhex(name), NETWORK_NOT_FOUND)

    def do_crowd(self, count):
        for _ in range(int(count)):
            self._crowd += 1
            security = tuple(SECURITIES)[self._crowd % len(SECURITIES)]
            self._devices.wifi.appear(f"crowd {self._crowd}".encode(), 1 + self._crowd % 100, security, "password")

    def do_silence(self):
        self._devices.wifi.clear()

    def do_scan(self, how):
        if how not in SCANS:
            raise ValueError(f"not one of: {', '.join(SCANS)}")
        self._devices.wifi.set_scans(how)

    def do_device(self, name, place):
        {"out": self._devices.take_out, "in": self._devices.put_in}[place](name)

    def do_profiles(self):
        return self._profiles.told()


def load(mock, _parameters):
    mock.sandbox_manager = Manager(Board(mock))
