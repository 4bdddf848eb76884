"""The demo host as a process, for its tests."""

import os
import pathlib
import subprocess
import sys
import tempfile

HOST = pathlib.Path(os.environ["PANEL_HOST"])
# What runs it where it is for another machine than this one.
EMULATOR = [os.environ["PANEL_EMULATOR"]] if "PANEL_EMULATOR" in os.environ else []
# What the host may take for all that it is told, in seconds; only what hangs takes so long. Less than ctest grants,
# which would leave the host behind.
PATIENCE = 600 if EMULATOR else 240
PLUGIN = pathlib.Path(os.environ["PANEL_PLUGIN"])
SERVICE = pathlib.Path(os.environ["PANEL_SERVICE"])
SCENARIOS = pathlib.Path(os.environ["PANEL_SCENARIOS"])


def environment(**changes):
    """The environment of the test run, without a display unless one is given."""
    result = dict(os.environ)
    for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"):
        result.pop(name, None)
    result.update(changes)
    return result


def run(*options, timeout=PATIENCE, cwd=None, **changes):
    """Runs the host to its end; returns its exit code and what it said on stdout and stderr."""
    done = subprocess.run(
        [*EMULATOR, HOST, *options],
        env=environment(**changes),
        cwd=cwd,
        stdin=subprocess.DEVNULL,
        capture_output=True,
        encoding="utf-8",
        timeout=timeout,
        check=False,
    )
    return done.returncode, done.stdout, done.stderr


def start(*options, preexec_fn=None, **changes):
    """The running host, with what it says on pipes. It ends with the block of its "with" when somebody ends it."""
    return subprocess.Popen(
        [HOST, *options],
        env=environment(**changes),
        preexec_fn=preexec_fn,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
        encoding="utf-8",
    )


def temporary_directory():
    return tempfile.TemporaryDirectory(prefix="panel host ")


def main():
    import unittest

    unittest.main(argv=[sys.argv[0], *sys.argv[1:]], verbosity=2)
