"""The devices of the scripted NetworkManager, and what is activated on them."""

import dbus

from board import refusal
from device import Device
from mobile import Mobile
from outcomes import CONNECTION_REMOVED
from profiles import STORED, UNSAVED, VOLATILE
from vpn import Vpn
from wifi import POINT, Wifi

MANAGER = "org.freedesktop.NetworkManager"
# What a plug-in does goes by this name where a device's would stand.
VPN = "vpn"
KINDS = {"wlan0": 2, "wwan0": 8}
PERSISTENCE = {"disk": STORED, "memory": UNSAVED, "volatile": VOLATILE}


class Devices:
    def __init__(self, board, profiles, changed):
        self._board = board
        self._profiles = profiles
        self._changed = changed
        self._devices = {}
        self._made = 0
        self._vpn = Vpn(board, changed)
        self._wifi = None
        profiles.deleting = self._profile_goes

    @property
    def wifi(self):
        if not self._wifi:
            raise ValueError("wlan0 has been taken out")
        return self._wifi

    def paths(self):
        return [device.path for device in self._devices.values()]

    def path(self, name):
        if name not in self._devices:
            raise refusal(f"{MANAGER}.UnknownDevice", "No device found for the requested iface.")
        return self._devices[name].path

    def active(self):
        return [device.active.path for device in self._devices.values() if device.active] + self._vpn.paths()

    def set_outcome(self, name, outcome):
        (self._vpn if name == VPN else self._devices[name]).set_outcome(outcome)

    def put_in(self, name):
        if name in self._devices:
            raise ValueError(f"{name} is there")
        self._made += 1
        path = f"/org/freedesktop/NetworkManager/Devices/{self._made}"
        part = Mobile()
        if name == "wlan0":
            part = self._wifi = Wifi(self._board, path)
        self._devices[name] = Device(self._board, self._profiles, self._changed, path, name, KINDS[name], part)
        self._changed()
        self._board.tell("/org/freedesktop/NetworkManager", MANAGER, "DeviceAdded", "o", dbus.ObjectPath(path))

    def take_out(self, name):
        """As when somebody pulls it out, also in the middle of something."""
        device = self._devices.pop(name)
        if name == "wlan0":
            self.wifi.clear()
            self._wifi = None
        device.remove()
        self._changed()
        self._board.tell("/org/freedesktop/NetworkManager", MANAGER, "DeviceRemoved", "o", dbus.ObjectPath(device.path))

    def lose_network(self, name, reason):
        device = self._devices["wlan0"]
        if device.active and self.wifi.name_of(self._profiles.settings(device.active.profile)) == name:
            device.fail(reason)

    def activate(self, profile, device, specific):
        settings = self._profiles.settings(profile)
        if settings["connection"]["type"] == VPN:
            return dbus.ObjectPath(self._vpn.activate(profile, settings))
        return dbus.ObjectPath(self._at(device, settings).activate(profile, settings, specific))

    def add_and_activate(self, settings, device, specific, options):
        self._complete(settings, device, specific)
        profile = self._profiles.add(settings, PERSISTENCE[str(options.get("persist", "disk"))])
        return profile, self.activate(profile, device, specific), dbus.Dictionary({}, signature="sv")

    def deactivate(self, active):
        if active in self._vpn.paths():
            self._vpn.deactivate(active)
            return
        for device in self._devices.values():
            if device.active and device.active.path == active:
                device.disconnect()
                return
        raise refusal(f"{MANAGER}.ConnectionNotActive", "The connection was not active.")

    def _complete(self, settings, device, specific):
        """Fills in what the caller left out and the network says."""
        if "802-11-wireless" in settings or self._at(device, None).name == "wlan0":
            wireless = settings.setdefault("802-11-wireless", dbus.Dictionary({}, signature="sv"))
            if "ssid" not in wireless:
                wireless["ssid"] = self._board.get(specific, POINT, "Ssid")
            name = bytes(wireless["ssid"]).decode("utf-8", "replace")
            said = {"id": name, "type": "802-11-wireless"}
        else:
            said = {"id": "Mobile", "type": "gsm"}
        settings["connection"] = dbus.Dictionary({**said, **settings.get("connection", {})}, signature="sv")

    def _at(self, path, settings):
        """The device that is meant; the one for which the profile is made when none is named."""
        wanted = str((settings or {}).get("connection", {}).get("interface-name", ""))
        for device in self._devices.values():
            if device.path == path or (path == "/" and device.name == wanted):
                return device
        raise refusal(f"{MANAGER}.UnknownDevice", "Device not found")

    def _profile_goes(self, path):
        for device in self._devices.values():
            if device.active and device.active.profile == path:
                device.end(CONNECTION_REMOVED)
