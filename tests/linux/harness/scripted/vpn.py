"""VPN connections by plug-ins: without a device of their own."""

from active import ACTIVATED, Active
from outcomes import VPN_OUTCOMES

CONNECTED = 5
FAILED = 6
DISCONNECTED = 7
USER_DISCONNECTED = 2


class Vpn:
    def __init__(self, board, changed):
        self._board = board
        self._changed = changed
        self._outcome = "joined"
        self._active = {}

    def set_outcome(self, name):
        self._outcome = "joined" if name == "itself" else name

    def paths(self):
        return list(self._active)

    def activate(self, profile, settings):
        active = Active(self._board, profile, settings, [], "/")
        self._active[active.path] = active
        self._changed()
        self._board.later(self._play, active, VPN_OUTCOMES[self._outcome])
        return active.path

    def deactivate(self, path):
        self._play(self._active[path], [(DISCONNECTED, USER_DISCONNECTED)])

    def _play(self, active, steps):
        if not steps or active.path not in self._active:
            return
        (state, reason), *rest = steps
        active.set_vpn_state(state, reason)
        if state == CONNECTED:
            active.set_state(ACTIVATED)
        elif state in (FAILED, DISCONNECTED):
            del self._active[active.path]
            self._changed()
            active.remove()
        self._board.later(self._play, active, rest)
