"""The ModemManager of the sandbox, in the mode in which it takes a socket for a modem."""

import pathlib
import subprocess
import sys

import places
from atmodem import AtModem, LINE
from daemon import Daemon

PROFILE = pathlib.Path(__file__).resolve().with_name("modem_profile.py")


class ModemManager(Daemon):
    """Started anew it finds the modem again, whose state outlives it."""

    name = "mm"

    def __init__(self, unpacked):
        super().__init__()
        self._unpacked = unpacked
        self._is_told = False
        self.modem = AtModem(open(places.LOGS / "modem.log", "a", encoding="utf-8"))
        self.modem.switch_on()

    def command(self):
        self._is_told = False
        return [
            self._unpacked.program("ModemManager"),
            "--debug",
            "--test-enable",
            "--test-no-udev",
            "--test-no-suspend-resume",
            f"--test-plugin-dir={self._unpacked.library('ModemManager')}",
        ]

    def environment(self):
        return self._unpacked.environment()

    def is_ready(self):
        """Whether it has found the modem, which need not be enabled yet."""
        if not self._is_told:
            telling = [sys.executable, "-B", str(PROFILE), LINE]
            self._is_told = self._ask(telling, self._unpacked.python_environment()) is not None
        modems = self._ask([self._unpacked.program("mmcli"), "--list-modems"], self.environment())
        return "/Modem/" in (modems or "")

    @staticmethod
    def _ask(question, environment):
        """What is answered; None when nobody answers."""
        done = subprocess.run(question, env=environment, capture_output=True, encoding="utf-8", check=False)
        return done.stdout if done.returncode == 0 else None
