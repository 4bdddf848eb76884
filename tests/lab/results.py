"""What a device tells of its tests, and whether that is all."""

import time

# What the end of the device itself tells.
RESTART = "restart"


class Results:
    """Takes lines: "plan NAME...", "pass NAME", "fail NAME REASON", "note TEXT", "restarting"."""

    def __init__(self):
        self._begun = time.monotonic()
        self._open = []
        self._passed = []
        self._failed = []
        self._is_planned = False
        self._is_restarting = False

    def take(self, line):
        word, _, rest = line.partition(" ")
        name, _, reason = rest.partition(" ")
        if word == "plan":
            self._is_planned = True
            self._open += rest.split()
        elif word == "pass":
            self._settle(name, "")
        elif word == "fail":
            self._settle(name, reason or "failed")
        elif word == "restarting":
            self._is_restarting = True
        else:
            self._tell(line)

    def end(self, reason):
        """The device has ended, for the emulator's reason."""
        if not self._is_planned:
            return self.give_up(f"the device ended before it told anything: {reason or 'the emulator died'}")
        if RESTART in self._open:
            if self._is_restarting and reason == "guest-reset":
                self._settle(RESTART, "")
            else:
                self._settle(RESTART, f"the device ended without it: {reason or 'the emulator died'}")
        return self.give_up("the device ended without telling")

    def give_up(self, reason):
        if not self._is_planned:
            self._settle("start", reason)
        for name in list(self._open):
            self._settle(name, reason)

    def is_good(self):
        return bool(self._passed) and not self._failed

    def summary(self):
        return f"{len(self._passed)} passed, {len(self._failed)} failed"

    def _settle(self, name, failure):
        if name in self._open:
            self._open.remove(name)
        elif not failure:
            failure = "was told without having been announced, or twice"
        (self._failed if failure else self._passed).append(name)
        self._tell(f"FAIL {name}: {failure}" if failure else f"pass {name}")

    def _tell(self, text):
        print(f"{time.monotonic() - self._begun:6.1f} {text}", flush=True)
