"""The stored profiles of the scripted NetworkManager."""

import uuid

import dbus

from board import paths, refusal

SETTINGS = "org.freedesktop.NetworkManager.Settings"
PATH = "/org/freedesktop/NetworkManager/Settings"
CONNECTION = f"{SETTINGS}.Connection"
NO_SECRETS = "org.freedesktop.NetworkManager.AgentManager.NoSecrets"

STORED = 0
UNSAVED = 0x1
VOLATILE = 0x4
# What Update2 and AddConnection2 are told.
TO_DISK = 0x1
SECRETS = ("psk", "password", "pin", "private-key")


class Profiles:
    def __init__(self, board):
        self._board = board
        self._settings = {}
        self._made = 0
        # Called before a profile is deleted.
        self.deleting = lambda path: None
        board.add(
            PATH,
            {SETTINGS: {"Connections": paths(), "Hostname": "panel", "CanModify": True}},
            [
                (SETTINGS, "ListConnections", "", "ao", lambda: paths(self._settings)),
                (SETTINGS, "GetConnectionByUuid", "s", "o", self._by_uuid),
                (SETTINGS, "AddConnection", "a{sa{sv}}", "o", lambda settings: self.add(settings, STORED)),
                (SETTINGS, "AddConnectionUnsaved", "a{sa{sv}}", "o", lambda settings: self.add(settings, UNSAVED)),
                (SETTINGS, "AddConnection2", "a{sa{sv}}ua{sv}", "oa{sv}", self._add2),
            ],
        )

    def add(self, settings, flags):
        self._made += 1
        path = f"{PATH}/{self._made}"
        settings["connection"].setdefault("uuid", str(uuid.uuid4()))
        self._settings[path] = settings
        self._board.add(
            path,
            {CONNECTION: {"Unsaved": flags != STORED, "Flags": dbus.UInt32(flags), "Filename": ""}},
            [
                (CONNECTION, "GetSettings", "", "a{sa{sv}}", lambda: without_secrets(self._settings[path])),
                (CONNECTION, "GetSecrets", "s", "a{sa{sv}}", lambda section: self._secrets(path, section)),
                (CONNECTION, "Update", "a{sa{sv}}", "", lambda changed: self._update(path, changed, STORED)),
                (CONNECTION, "Update2", "a{sa{sv}}ua{sv}", "a{sv}", lambda *told: self._update2(path, *told)),
                (CONNECTION, "Save", "", "", lambda: self._update(path, {}, STORED)),
                (CONNECTION, "Delete", "", "", lambda: self.delete(path)),
            ],
        )
        self._list()
        self._board.tell(PATH, SETTINGS, "NewConnection", "o", dbus.ObjectPath(path))
        return dbus.ObjectPath(path)

    def delete(self, path):
        self.deleting(path)
        # A volatile one went with what was in force.
        if path not in self._settings:
            return
        del self._settings[path]
        self._list()
        self._board.tell(path, CONNECTION, "Removed", "")
        self._board.tell(PATH, SETTINGS, "ConnectionRemoved", "o", dbus.ObjectPath(path))
        self._board.remove(path)

    def settings(self, path):
        return self._settings[path]

    def drop_volatile(self, path):
        """Forgets a profile that was only for as long as it was in force."""
        if path in self._settings and self._board.get(path, CONNECTION, "Flags") & VOLATILE:
            self.delete(path)

    def told(self):
        """A line a profile: whether it is stored, and its name."""
        kinds = {STORED: "stored", UNSAVED: "unsaved"}
        return [
            f"{kinds.get(int(self._board.get(path, CONNECTION, 'Flags')), 'volatile')} {settings['connection']['id']}"
            for path, settings in self._settings.items()
        ]

    def _list(self):
        self._board.change(PATH, SETTINGS, Connections=paths(self._settings))

    def _by_uuid(self, wanted):
        for path, settings in self._settings.items():
            if settings["connection"]["uuid"] == wanted:
                return dbus.ObjectPath(path)
        raise refusal(f"{SETTINGS}.InvalidConnection", "No connection with the UUID was found.")

    def _add2(self, settings, flags, _arguments):
        path = self.add(settings, STORED if flags & TO_DISK else UNSAVED)
        return path, dbus.Dictionary({}, signature="sv")

    def _update2(self, path, changed, flags, _arguments):
        self._update(path, changed, STORED if flags & TO_DISK else UNSAVED)
        return dbus.Dictionary({}, signature="sv")

    def _update(self, path, changed, flags):
        # Nothing stands for what is there already; secrets that are not told stay.
        if changed:
            kept = self._settings[path]
            for section in changed:
                secrets = {name: value for name, value in kept.get(section, {}).items() if name in SECRETS}
                changed[section] = dbus.Dictionary({**secrets, **changed[section]}, signature="sv")
            self._settings[path] = changed
        self._board.change(path, CONNECTION, Flags=dbus.UInt32(flags), Unsaved=flags != STORED)
        self._board.tell(path, CONNECTION, "Updated", "")

    def _secrets(self, path, section):
        secrets = {name: value for name, value in self._settings[path].get(section, {}).items() if name in SECRETS}
        if not secrets:
            raise refusal(NO_SECRETS, "No agents were available for this request.")
        return sections({section: secrets})


def without_secrets(settings):
    return sections(
        {
            section: {name: value for name, value in values.items() if name not in SECRETS}
            for section, values in settings.items()
        }
    )


def sections(values):
    typed = {name: dbus.Dictionary(section, signature="sv") for name, section in values.items()}
    return dbus.Dictionary(typed, signature="sa{sv}")
