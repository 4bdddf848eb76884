"""A service of the sandbox as a process that can be started, killed, frozen and thawed."""

import os
import signal
import subprocess
import time

import places


class DaemonError(Exception):
    """A service does not do what it was told."""


class Daemon:
    """Derived classes know the command, and when the service is ready."""

    name = ""

    def __init__(self):
        self._process = None

    def command(self):
        """What starts the service."""
        raise NotImplementedError

    def environment(self):
        return dict(os.environ)

    def is_ready(self):
        """Whether the service can be used."""
        return True

    @property
    def log(self):
        return places.LOGS / f"{self.name}.log"

    @property
    def pid(self):
        if not self.is_running():
            raise DaemonError(f"{self.name} is not running")
        return self._process.pid

    def is_running(self):
        return self._process is not None and self._process.poll() is None

    def launch(self):
        """Starts the process, and does not wait until it is ready."""
        if self.is_running():
            raise DaemonError(f"{self.name} is running already")
        with open(self.log, "ab") as log:
            self._process = subprocess.Popen(
                self.command(),
                env=self.environment(),
                stdin=subprocess.DEVNULL,
                stdout=log,
                stderr=log,
                # What is typed at a terminal is for the command, not for the services.
                start_new_session=True,
            )

    def await_ready(self):
        end = time.monotonic() + 20
        while not self.is_ready():
            if not self.is_running():
                raise DaemonError(f"{self.name} ended with code {self._process.returncode}: {self.last_words()}")
            if time.monotonic() > end:
                raise DaemonError(f"{self.name} is not ready after 20 seconds: {self.last_words()}")
            time.sleep(0.005)

    def start(self):
        self.launch()
        self.await_ready()

    def stop(self):
        """Ends it as a system does that restarts it."""
        os.kill(self.pid, signal.SIGTERM)
        self._process.wait()

    def kill(self):
        """Ends it as a crash does."""
        os.kill(self.pid, signal.SIGKILL)
        self._process.wait()

    def restart(self):
        self.stop()
        self.start()

    def freeze(self):
        os.kill(self.pid, signal.SIGSTOP)
        # Signals take their time; who asked may count on silence from now on.
        if os.waitid(os.P_PID, self.pid, os.WSTOPPED | os.WEXITED | os.WNOWAIT).si_code != os.CLD_STOPPED:
            raise DaemonError(f"{self.name} ended instead of being frozen")

    def thaw(self):
        os.kill(self.pid, signal.SIGCONT)

    def last_words(self):
        with open(self.log, encoding="utf-8", errors="replace") as log:
            return "\n".join(["", *log.read().splitlines()[-15:]])
