"""A device of the scripted NetworkManager, and what an activation on it comes to."""

import dbus

from active import ACTIVATED as IN_FORCE
from active import Active
from board import dictionaries, paths, refusal
from outcomes import (
    ACTIVATED,
    DEACTIVATING,
    DISCONNECTED,
    FAILED,
    NEW_ACTIVATION,
    NOW_UNMANAGED,
    OUTCOMES,
    UNMANAGED,
    USER_REQUESTED,
)

DEVICE = "org.freedesktop.NetworkManager.Device"
IP4 = "org.freedesktop.NetworkManager.IP4Config"
NOTHING = dbus.ObjectPath("/")


class Device:
    """What only its kind has comes from a part of its own: Wifi or Mobile."""

    def __init__(self, board, profiles, changed, path, name, kind, part):
        self._board = board
        self._profiles = profiles
        self._changed = changed
        self._part = part
        self._outcome = "itself"
        self.path = path
        self.name = name
        self.active = None
        board.add(
            path,
            {
                DEVICE: {
                    "Interface": name,
                    "IpInterface": name,
                    "DeviceType": dbus.UInt32(kind),
                    "State": dbus.UInt32(DISCONNECTED),
                    "StateReason": reasoned(DISCONNECTED, 0),
                    "ActiveConnection": NOTHING,
                    "AvailableConnections": paths(),
                    "Ip4Config": NOTHING,
                    "HwAddress": "02:00:00:00:00:30",
                    "Managed": True,
                    "Autoconnect": True,
                    "Real": True,
                    "Driver": "sandbox",
                },
                **part.properties(),
            },
            [
                (DEVICE, "Disconnect", "", "", self.disconnect),
                (DEVICE, "Reapply", "a{sa{sv}}tu", "", lambda *_: self._reapply()),
                (DEVICE, "GetAppliedConnection", "u", "a{sa{sv}}t", lambda _flags: self._applied()),
                *part.methods(),
            ],
        )

    def set_outcome(self, name):
        self._outcome = name

    def activate(self, profile, settings, specific):
        if self.active:
            self.end(NEW_ACTIVATION)
        self.active = Active(self._board, profile, settings, [self.path], specific)
        self._board.change(self.path, DEVICE, ActiveConnection=dbus.ObjectPath(self.active.path))
        self._changed()
        self._board.later(self._play, self.active, OUTCOMES[self._outcome_of(settings)])
        return self.active.path

    def disconnect(self):
        if not self.active:
            raise refusal(f"{DEVICE}.NotActive", "This device is not active")
        self.end(USER_REQUESTED)

    def end(self, reason):
        """Takes what is in force, or on its way to be, out of force."""
        self._enter(DEACTIVATING, reason)
        self._enter(DISCONNECTED, reason)

    def fail(self, reason):
        self._enter(FAILED, reason)
        self._enter(DISCONNECTED, 0)

    def remove(self):
        self._enter(UNMANAGED, NOW_UNMANAGED)
        self._board.remove(self.path)

    def _outcome_of(self, settings):
        if self._outcome != "itself":
            return self._outcome
        return self._part.outcome(settings)

    def _play(self, active, steps):
        # Another activation may have come, or an end.
        if steps and active is self.active:
            (state, reason), *rest = steps
            self._enter(state, reason)
            self._board.later(self._play, active, rest)

    def _enter(self, state, reason):
        was = self._board.get(self.path, DEVICE, "State")
        ended = self.active if state in (DISCONNECTED, UNMANAGED) else None
        if state == ACTIVATED:
            self._put_in_force()
        if ended:
            self._take_out_of_force()
        self._board.change(self.path, DEVICE, State=dbus.UInt32(state), StateReason=reasoned(state, reason))
        self._board.tell(self.path, DEVICE, "StateChanged", "uuu", dbus.UInt32(state), was, dbus.UInt32(reason))
        if ended:
            self._profiles.drop_volatile(ended.profile)

    def _put_in_force(self):
        addresses = f"/org/freedesktop/NetworkManager/IP4Config/{self.path.rpartition('/')[2]}"
        if not self._board.has(addresses):
            self._board.add(addresses, {IP4: lease()})
        self._board.change(self.path, DEVICE, Ip4Config=dbus.ObjectPath(addresses))
        self.active.set_addresses(addresses)
        self.active.set_state(IN_FORCE)
        self._part.put_in_force(self._profiles.settings(self.active.profile))

    def _take_out_of_force(self):
        ended, self.active = self.active, None
        addresses = self._board.get(self.path, DEVICE, "Ip4Config")
        self._board.change(self.path, DEVICE, ActiveConnection=NOTHING, Ip4Config=NOTHING)
        if self._board.has(addresses):
            self._board.remove(addresses)
        self._part.take_out_of_force()
        self._changed()
        ended.remove()

    def _reapply(self):
        self._require_active()
        self._enter(70, 0)
        self._enter(ACTIVATED, 0)

    def _applied(self):
        self._require_active()
        return self._profiles.settings(self.active.profile), dbus.UInt64(1)

    def _require_active(self):
        if not self.active:
            raise refusal(f"{DEVICE}.NotActive", "Device is not activated")


def reasoned(state, reason):
    return dbus.Struct((dbus.UInt32(state), dbus.UInt32(reason)), signature="uu")


def lease():
    address = {"address": "192.168.70.100", "prefix": dbus.UInt32(24)}
    server = {"address": "192.168.70.1"}
    return {
        "AddressData": dictionaries([dbus.Dictionary(address, signature="sv")]),
        "Gateway": "192.168.70.1",
        "NameserverData": dictionaries([dbus.Dictionary(server, signature="sv")]),
        "RouteData": dictionaries(),
    }
