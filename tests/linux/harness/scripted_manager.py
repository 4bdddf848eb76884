"""A NetworkManager by script, in place of the real one: for devices that no sandbox has."""

import pathlib
import subprocess
import sys

from daemon import Daemon, DaemonError

HERE = pathlib.Path(__file__).resolve().parent


class ScriptedManager(Daemon):
    name = "nm"

    def __init__(self, unpacked):
        super().__init__()
        self._unpacked = unpacked

    def command(self):
        template = str(HERE / "scripted" / "networkmanager.py")
        return [sys.executable, "-B", "-m", "dbusmock", "--system", "--template", template]

    def environment(self):
        return self._unpacked.python_environment()

    def is_ready(self):
        return self._call(["help"]).returncode == 0

    def tell(self, words):
        done = self._call(words)
        if done.returncode != 0:
            raise DaemonError(done.stderr.strip())
        return done.stdout.splitlines()

    def _call(self, words):
        return subprocess.run(
            [sys.executable, "-B", str(HERE / "scripted_call.py"), *words],
            env=self.environment(),
            capture_output=True,
            encoding="utf-8",
            check=False,
        )
