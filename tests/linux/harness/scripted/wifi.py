"""What the scripted wireless device sees on the air."""

import time

import dbus

from board import paths, refusal

DEVICE = "org.freedesktop.NetworkManager.Device"
WIRELESS = f"{DEVICE}.Wireless"
POINT = "org.freedesktop.NetworkManager.AccessPoint"
PRIVACY = 0x1
PSK = 0x100 | 0x8 | 0x80
SAE = 0x400 | 0x8 | 0x80
SECURITIES = {"open": (0, 0), "wpa2": (PRIVACY, PSK), "wpa3": (PRIVACY, SAE)}


class Wifi:
    def __init__(self, board, device):
        self._board = board
        self._device = device
        self._points = {}
        self._passwords = {}
        self._made = 0
        self._scans = "answered"
        self._scanned = now()

    def properties(self):
        return {
            WIRELESS: {
                "AccessPoints": paths(),
                "ActiveAccessPoint": dbus.ObjectPath("/"),
                "HwAddress": "02:00:00:00:00:30",
                "PermHwAddress": "02:00:00:00:00:30",
                "Mode": dbus.UInt32(2),
                "Bitrate": dbus.UInt32(54000),
                "WirelessCapabilities": dbus.UInt32(0x7),
                "LastScan": dbus.Int64(self._scanned),
            }
        }

    def methods(self):
        return [
            (WIRELESS, "RequestScan", "a{sv}", "", self._scan),
            (WIRELESS, "GetAccessPoints", "", "ao", lambda: paths(self._points.values())),
            (WIRELESS, "GetAllAccessPoints", "", "ao", lambda: paths(self._points.values())),
        ]

    def set_scans(self, how):
        self._scans = how

    def appear(self, name, strength, security, password=""):
        """A network that is there from now on, or is there with another strength."""
        self._passwords[name] = password
        if name in self._points:
            self._board.change(self._points[name], POINT, Strength=dbus.Byte(strength))
            return
        self._made += 1
        path = f"/org/freedesktop/NetworkManager/AccessPoint/{self._made}"
        flags, wpa = SECURITIES[security]
        self._board.add(
            path,
            {
                POINT: {
                    "Ssid": dbus.Array([dbus.Byte(byte) for byte in name], signature="y"),
                    "Strength": dbus.Byte(strength),
                    "Flags": dbus.UInt32(flags),
                    "WpaFlags": dbus.UInt32(0),
                    "RsnFlags": dbus.UInt32(wpa),
                    "Frequency": dbus.UInt32(2412),
                    "HwAddress": ":".join(f"{byte:02X}" for byte in (2, 0, 0, 1, *divmod(self._made, 256))),
                    "Mode": dbus.UInt32(2),
                    "MaxBitrate": dbus.UInt32(54000),
                    "LastSeen": dbus.Int32(now() // 1000),
                }
            },
        )
        self._points[name] = path
        self._list()
        self._board.tell(self._device, WIRELESS, "AccessPointAdded", "o", dbus.ObjectPath(path))

    def vanish(self, name):
        path = self._points.pop(name)
        self._list()
        self._board.tell(self._device, WIRELESS, "AccessPointRemoved", "o", dbus.ObjectPath(path))
        self._board.remove(path)

    def clear(self):
        for name in list(self._points):
            self.vanish(name)

    @staticmethod
    def name_of(settings):
        return bytes(settings["802-11-wireless"]["ssid"])

    def put_in_force(self, settings):
        self._set_active(self._points.get(self.name_of(settings), "/"))

    def take_out_of_force(self):
        self._set_active("/")

    def _set_active(self, path):
        self._board.change(self._device, WIRELESS, ActiveAccessPoint=dbus.ObjectPath(path))

    def outcome(self, settings):
        """What an attempt with these settings comes to by itself."""
        name = self.name_of(settings)
        security = settings.get("802-11-wireless-security", {})
        given = str(security.get("psk", ""))
        if name not in self._points:
            return "absent"
        if self._passwords[name] in ("", given):
            return "joined"
        if security.get("key-mgmt") == "sae":
            return "absent"
        return "wrong-password" if len(given) >= 8 else "short-password"

    def _scan(self, _options):
        if self._scans == "refused":
            raise refusal(f"{DEVICE}.NotAllowed", "Scanning not allowed at this time")
        if self._scans == "answered":
            self._board.later(self._end_scan)

    def _end_scan(self):
        if self._board.has(self._device):
            # No two scans end in the same millisecond.
            self._scanned = max(self._scanned + 1, now())
            self._board.change(self._device, WIRELESS, LastScan=dbus.Int64(self._scanned))

    def _list(self):
        self._board.change(self._device, WIRELESS, AccessPoints=paths(self._points.values()))


def now():
    """Milliseconds on the clock that runs while the machine sleeps too."""
    return int(1000 * time.clock_gettime(time.CLOCK_BOOTTIME))
