"""The active connections of the scripted NetworkManager, as objects on the bus."""

import dbus

from board import paths

ACTIVE = "org.freedesktop.NetworkManager.Connection.Active"
VPN_CONNECTION = "org.freedesktop.NetworkManager.VPN.Connection"

ACTIVATING = 1
ACTIVATED = 2
DEACTIVATED = 4


class Active:
    """One of them, from its activation to its end."""

    made = 0

    def __init__(self, board, profile, settings, devices, specific):
        Active.made += 1
        self._board = board
        self.profile = profile
        self.path = f"/org/freedesktop/NetworkManager/ActiveConnection/{Active.made}"
        self.is_vpn = settings["connection"]["type"] == "vpn"
        interfaces = {
            ACTIVE: {
                "Connection": dbus.ObjectPath(profile),
                "SpecificObject": dbus.ObjectPath(specific),
                "Id": settings["connection"]["id"],
                "Uuid": settings["connection"]["uuid"],
                "Type": settings["connection"]["type"],
                "Devices": paths(devices),
                "State": dbus.UInt32(ACTIVATING),
                "StateFlags": dbus.UInt32(0),
                "Default": False,
                "Vpn": self.is_vpn,
                "Ip4Config": dbus.ObjectPath("/"),
            }
        }
        if self.is_vpn:
            interfaces[VPN_CONNECTION] = {"VpnState": dbus.UInt32(0), "Banner": ""}
        board.add(self.path, interfaces)

    def set_state(self, state):
        self._board.change(self.path, ACTIVE, State=dbus.UInt32(state))
        # A real one tells this reason whatever the reason is.
        self._board.tell(self.path, ACTIVE, "StateChanged", "uu", dbus.UInt32(state), dbus.UInt32(3))

    def set_vpn_state(self, state, reason):
        self._board.change(self.path, VPN_CONNECTION, VpnState=dbus.UInt32(state))
        self._board.tell(self.path, VPN_CONNECTION, "VpnStateChanged", "uu", dbus.UInt32(state), dbus.UInt32(reason))

    def set_addresses(self, path):
        self._board.change(self.path, ACTIVE, Ip4Config=dbus.ObjectPath(path))

    def remove(self):
        self.set_state(DEACTIVATED)
        self._board.remove(self.path)
