"""The stand-in for polkit in the sandbox."""

import pathlib
import sys

from daemon import Daemon

SERVICE = pathlib.Path(__file__).resolve().with_name("policykit_service.py")


class PolicyKit(Daemon):
    name = "polkit"

    def __init__(self, unpacked):
        super().__init__()
        self._unpacked = unpacked

    def command(self):
        return [sys.executable, "-B", str(SERVICE)]

    def environment(self):
        return self._unpacked.python_environment()

    def is_ready(self):
        return "is ready" in self.log.read_text(encoding="utf-8")
